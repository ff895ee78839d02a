#include "stats/percentile.h"

#include <algorithm>

namespace quorval {

Sample SortAscending(Sample values) {
  std::ranges::stable_sort(values);
  return values;
}

Real AtRank(std::span<const Real> sorted, Real rank) {
  if (rank < 1 || rank > sorted.size()) Raise(Fault::Kind::kOutOfRange);
  return sorted[static_cast<std::size_t>(Raw(rank)) - 1];
}

Real AtPosition(std::span<const Real> sorted, Real t) {
  return AtPosition(t, [&](Real rank) { return AtRank(sorted, rank); });
}

}  // namespace quorval
