// Sorted samples, and values at positions on them.  Ranks and positions count from 1.
#pragma once

#include <span>

#include "core/real.h"

namespace quorval {

// Ascending; equal values keep their order, as in any exchange or bubble sort.
Sample SortAscending(Sample values);

// The value of this whole rank; a Fault where the sample has none.
Real AtRank(std::span<const Real> sorted, Real rank);

// The value at position t: that of rank t where t is whole, else on the straight line between the
// two neighbours.  `at_rank` gives the value of a whole rank.
template <class AtRankOf>
Real AtPosition(Real t, AtRankOf&& at_rank) {
  const Real ip = Int(t);
  const Real f = t - ip;
  const Real x = at_rank(ip);
  if (f == 0) return x;
  return x + f * (at_rank(ip + 1) - x);
}

// The same on a sorted sample; a Fault where a neighbour is missing.
Real AtPosition(std::span<const Real> sorted, Real t);

// The position of the median.
inline Real MedianPosition(Real N) { return 0.5 * (N + 1); }

}  // namespace quorval
