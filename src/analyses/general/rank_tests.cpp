#include "analyses/general/rank_tests.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "analyses/general/rank_tables.h"
#include "stats/significance.h"

namespace quorval::general {
namespace {

struct Classes {
  std::string_view not_significant, below_5_percent, below_1_percent;
};

std::string_view ClassOf(Real T, const tables::RankLimits& limits, const Classes& classes) {
  if (T > limits.c05) return classes.not_significant;
  return T > limits.c01 ? classes.below_5_percent : classes.below_1_percent;
}

// Of a rank sum that has this mean and variance where the null hypothesis holds.
std::string_view ClassByNormal(Real T, Real mean, Real variance) {
  constexpr int kManyDegreesOfFreedom = 1001;
  return TPClass(kManyDegreesOfFreedom, (mean - T - 0.5) / Sqrt(variance));
}

// T is the rank sum of the smaller sample of the two sizes ns and nl.
std::string_view RankSumClass(int ns, int nl, Real T) {
  const Real both = Real(ns) * (ns + nl + 1);  // twice the mean of T
  T = std::min(T, both - T);
  if (ns <= tables::kLargestSmallerSize && ns + nl <= tables::kLargestTotal) {
    const auto row = static_cast<std::size_t>(ns - tables::kSmallestSize);
    return ClassOf(T, tables::kRankSums[row][static_cast<std::size_t>(nl - ns)],
                   {"n.s.", "0.01 < P < 0.05", "P < 0.01"});
  }
  const Real mean = both / 2;
  return ClassByNormal(T, mean, nl * mean / 6);
}

}  // namespace

Sample MeanRanks(std::span<const Real> values) {
  std::vector<std::size_t> order(values.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  const auto value_of = [&](std::size_t i) { return values[i]; };
  std::ranges::stable_sort(order, {}, value_of);
  Sample ranks(values.size());
  for (auto first = order.begin(); first != order.end();) {
    const auto end = std::ranges::upper_bound(first, order.end(), values[*first], {}, value_of);
    const Real mean = Real(first - order.begin() + 1 + end - order.begin()) / 2;
    for (; first != end; ++first) ranks[*first] = mean;
  }
  return ranks;
}

RankSumTest TestRankSums(std::span<const Real> x, std::span<const Real> y) {
  Sample combined(x.begin(), x.end());
  combined.insert(combined.end(), y.begin(), y.end());
  const Sample ranks = MeanRanks(combined);
  const Real R1 = Sum(std::span(ranks).first(x.size()));
  const Real R2 = Sum(std::span(ranks).subspan(x.size()));
  const int n1 = static_cast<int>(x.size()), n2 = static_cast<int>(y.size());
  return {R1, R2, n1 <= n2 ? RankSumClass(n1, n2, R1) : RankSumClass(n2, n1, R2)};
}

std::string_view SignedRankClass(std::span<const Real> differences) {
  Sample sizes;
  for (Real d : differences) sizes.push_back(Abs(d));
  const Sample ranks = MeanRanks(sizes);
  Real positive, negative;
  for (std::size_t i = 0; i < ranks.size(); ++i) {
    if (differences[i] >= 0) positive += differences[i] == 0 ? ranks[i] / 2 : ranks[i];
    if (differences[i] <= 0) negative += differences[i] == 0 ? ranks[i] / 2 : ranks[i];
  }
  const Real T = std::min(positive, negative);
  const int N = static_cast<int>(ranks.size());
  if (N < tables::kFewestPairs) return {};
  if (N <= tables::kMostTabledPairs)
    return ClassOf(T, tables::kSignedRanks[N - tables::kFewestPairs],
                   {"n.s.", " 0.01 < P < 0.05", "P < 0.01"});
  const Real mean = Real(N) * (N + 1) / 4;
  return ClassByNormal(T, mean, mean * (2 * N + 1) / 6);
}

}  // namespace quorval::general
