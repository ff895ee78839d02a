#include "stats/resampling.h"

#include <algorithm>
#include <numeric>

#include "stats/percentile.h"

namespace quorval {
namespace {

constexpr std::size_t kBlock = 64;

std::uint32_t SumOf(std::span<const std::uint16_t> counts) {
  return std::accumulate(counts.begin(), counts.end(), std::uint32_t{0});
}

}  // namespace

Resample::Resample(std::size_t N)
    : N_(N), counts_((N + kBlock - 1) / kBlock * kBlock), block_sums_(counts_.size() / kBlock) {}

void Resample::Draw(ResampleGenerator& generator) {
  std::ranges::fill(counts_, std::uint16_t{0});
  ResampleGenerator local = generator;  // stays in registers
  for (std::size_t i = 0; i < N_; ++i) ++counts_[local.DrawIndex(N_)];
  generator = local;
  for (std::size_t block = 0; block < block_sums_.size(); ++block)
    block_sums_[block] = SumOf({&counts_[block * kBlock], kBlock});
}

Real Resample::RankOf(Real k) const {
  if (k < 1 || k > N_) Raise(Fault::Kind::kOutOfRange);
  auto left = static_cast<std::uint32_t>(Raw(k));
  std::size_t block = 0;
  while (left > block_sums_[block]) left -= block_sums_[block++];
  std::size_t index = block * kBlock;
  while (left > counts_[index]) left -= counts_[index++];
  return index + 1;
}

BootstrapEstimate SummariseReplicates(std::span<const Real> replicates) {
  const Real R = replicates.size();
  const Real mean = Sum(replicates) / R;
  Real squares;
  for (Real value : replicates) squares += Square(value - mean);
  return {mean, Sqrt(squares / (R - 1))};
}

std::vector<BootstrapEstimate> BootstrapPositions(std::span<const Real> sorted,
                                                  std::span<const Real> positions, int R) {
  ResampleGenerator generator;
  Resample resample(sorted.size());
  std::vector<Sample> replicates(positions.size());
  for (int replicate = 0; replicate < R; ++replicate) {
    resample.Draw(generator);
    const auto at_rank = [&](Real k) { return AtRank(sorted, resample.RankOf(k)); };
    for (std::size_t i = 0; i < positions.size(); ++i)
      replicates[i].push_back(AtPosition(positions[i], at_rank));
  }
  std::vector<BootstrapEstimate> estimates;
  estimates.reserve(replicates.size());
  for (const Sample& values : replicates) estimates.push_back(SummariseReplicates(values));
  return estimates;
}

}  // namespace quorval
