// Resampling with replacement.  Nothing depends on the clock: each generator starts from the same
// state, so a bootstrap of the same data gives the same result each time.
//
// The draws work on raw numbers, which cannot leave the finite ones: they are made of whole numbers
// below 2^15 and quotients below 1.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "core/real.h"

namespace quorval {

// The generator of Wichmann and Hill (Algorithm AS 183, Applied Statistics 31, 1982, 188-190), from
// the state 4, 4, 4, of which every second number is used.
class ResampleGenerator {
 public:
  // An index from 0 to N - 1.  N is at most 9999; there N u + 1 stays below N + 1, as u keeps a
  // distance of 1 / (30269 x 30307 x 30323) from 1.
  std::size_t DrawIndex(std::size_t N) {
    const double u = Uniform();
    return static_cast<std::size_t>(static_cast<std::uint32_t>(static_cast<double>(N) * u + 1) - 1);
  }

  // The next used number, above 0 and below 1.
  double Uniform() {
    const double u = x_ / 30269.0 + y_ / 30307.0 + z_ / 30323.0;
    // Two steps as one, by the squares of the multipliers.
    x_ = x_ * (171 * 171) % 30269;
    y_ = y_ * (172 * 172) % 30307;
    z_ = z_ * (170 * 170) % 30323;
    return u - static_cast<int>(u);
  }

 private:
  // One step on from 4, 4, 4: the state that the first number is made of.
  std::uint32_t x_ = 4 * 171, y_ = 4 * 172, z_ = 4 * 170;
};

// A resample of a sorted sample: how often each value was drawn.  It stands for the sorted resample
// without a sort, as an index into a sorted sample is a rank.
class Resample {
 public:
  // Of a sample of N values, at most 9999.
  explicit Resample(std::size_t N);

  // Draws N indexes anew.
  void Draw(ResampleGenerator& generator);

  // How often the value of each index was drawn.
  std::span<const std::uint16_t> Counts() const { return {counts_.data(), N_}; }

  // The rank in the sample of the value that has rank k in the sorted resample; both from 1.  A
  // Fault where there is none.
  Real RankOf(Real k) const;

 private:
  std::size_t N_;
  std::vector<std::uint16_t> counts_;  // filled up to whole blocks
  std::vector<std::uint32_t> block_sums_;
};

struct BootstrapEstimate {
  Real mean, sd;  // of the replicates; R - 1 in the denominator of the SD
};

// Of at least 2 replicates, summed in their order.
BootstrapEstimate SummariseReplicates(std::span<const Real> replicates);

// The values at the positions of a sorted sample, each estimated from the same R resamples, R at
// least 2.  The mean is taken in the order of the replicates.  A Fault where a position has no
// value.
std::vector<BootstrapEstimate> BootstrapPositions(std::span<const Real> sorted,
                                                  std::span<const Real> positions, int R);

}  // namespace quorval
