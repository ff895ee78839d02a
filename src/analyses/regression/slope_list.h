#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "analyses/regression/pair_slopes.h"

namespace quorval::regression {

// The sorted list of slopes of Passing and Bablok's procedure, as it stands after its zeros were
// removed; it is asked, not stored.
//
// A pair of equal x counts as a slope below all others (smin - 1) when y falls in the order of the
// data, above all others (smax + 1) when y rises, and as 0 when the points are the same.  Of the
// zeros, in the order of the pairs, as many are taken out as there are pairs of the same points;
// one that directly follows a removed one is passed over.
class SlopeList {
 public:
  // At least one pair has different x.  A Fault where a slope overflows.
  SlopeList(std::span<const Real> x, std::span<const Real> y);

  std::int64_t M() const { return M_; }
  PairSlopes::Place PlaceOf(Real t);
  // The slope of a rank from 1 to M.
  Real Nth(std::int64_t rank);

 private:
  // Equal entries beside the slopes of pairs.
  struct Block {
    double value = 0;
    std::int64_t count = 0;
  };

  void CountEqualAbscissae();
  double Entry(std::size_t i, std::size_t j) const;
  void RemoveZeros();
  void DropFromTheEnd(std::int64_t dropped, const std::vector<bool>& removed);
  double NthWithDropped(std::int64_t rank);
  std::int64_t DroppedUpTo(double value) const;

  std::span<const Real> x_, y_;
  PairSlopes pairs_;
  std::int64_t M_ = 0;
  Block falling_, rising_;       // the pairs of equal x
  Block same_;                   // zeros of the same points that stayed, less those of other pairs
  std::vector<double> dropped_;  // sorted entries that fell off the list's end
};

}  // namespace quorval::regression
