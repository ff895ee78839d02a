#include "analyses/regression/fit_passing_bablok.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <vector>

#include "analyses/regression/slope_list.h"
#include "core/conversion.h"

namespace quorval::regression {
namespace {

std::vector<int> RanksOf(std::span<const Real> values) {
  std::vector<std::size_t> order(values.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order,
                           [&](std::size_t i, std::size_t j) { return values[i] < values[j]; });
  std::vector<int> ranks(values.size());
  for (std::size_t k = 0; k < order.size(); ++k) ranks[order[k]] = static_cast<int>(k) + 1;
  return ranks;
}

std::int64_t Whole(Real value) { return static_cast<std::int64_t>(Raw(RoundHalfEven(value))); }

// The middle of the list, shifted by K: a slope, or the geometric mean of two.
std::optional<Real> ShiftedMedian(Messages& messages, std::string_view words, SlopeList& slopes,
                                  std::int64_t K) {
  const std::int64_t M = slopes.M();
  const auto fail = [&]() -> std::optional<Real> {
    messages.Tell(words);
    return std::nullopt;
  };
  const std::int64_t h = M % 2 == 1 ? (M + 1) / 2 + K : M / 2 + K;
  const std::int64_t last = M % 2 == 1 ? h : h + 1;
  if (h < 1 || last > M) return fail();
  const Real low = slopes.Nth(h);
  if (last == h) return low;
  const Real high = slopes.Nth(last);
  if (low <= 0 || high <= 0) return fail();
  return Exp((Log(low) + Log(high)) / 2);
}

struct Shifted {
  Real b;
  std::int64_t K;
};

// One round: the slope that the threshold -s leads to.
std::optional<Shifted> SlopeIteration(Messages& messages, Real s, SlopeList& slopes) {
  const auto [below, equal] = slopes.PlaceOf(-s);
  const std::int64_t K = Whole(below + 0.5 * Real(equal));
  const auto b = ShiftedMedian(messages, "Error in slope iteration sub", slopes, K);
  if (!b) return std::nullopt;
  return Shifted{*b, K};
}

// The median of y - s x.
Real InterceptAt(Real s, std::span<const Real> x, std::span<const Real> y) {
  Sample intercepts;
  for (std::size_t i = 0; i < x.size(); ++i) intercepts.push_back(y[i] - s * x[i]);
  const auto middle = intercepts.begin() + std::ssize(intercepts) / 2;
  std::nth_element(intercepts.begin(), middle, intercepts.end());
  if (intercepts.size() % 2 == 1) return *middle;
  return (*std::max_element(intercepts.begin(), middle) + *middle) / 2;
}

}  // namespace

Real RankCorrelation(std::span<const Real> x, std::span<const Real> y) {
  const std::vector<int> ranks_x = RanksOf(x);
  const std::vector<int> ranks_y = RanksOf(y);
  const Real n = x.size();
  Real D;
  for (std::size_t i = 0; i < x.size(); ++i) D += Square(Real(ranks_x[i]) - ranks_y[i]);
  return 1 - 6 * D / (n * (Square(n) - 1));
}

std::optional<PassingBablokLine> PassingBablokFit(Messages& messages, std::span<const Real> x,
                                                  std::span<const Real> y) {
  constexpr int kMostRounds = 100;
  constexpr double kTolerance = 0.0001;
  SlopeList slopes(x, y);
  PassingBablokLine line;
  line.K = slopes.PlaceOf(-1).below;
  const auto first = ShiftedMedian(messages, "Error in rank sub", slopes, line.K);
  if (!first) return std::nullopt;
  line.b = *first;
  for (int round = 0; round < kMostRounds; ++round) {
    const auto next = SlopeIteration(messages, line.b, slopes);
    if (!next) return std::nullopt;
    const Real change = Abs(next->b - line.b);
    line.b = next->b;
    line.K = next->K;
    if (change < kTolerance) break;
  }

  const Real n = x.size();
  const std::int64_t M = slopes.M();
  const Real C = 1.96 * Sqrt(n * (n - 1) * (2 * n + 5) / 18);
  const std::int64_t M1 = Whole((M - C) / 2);
  const std::int64_t M2 = M - M1 + 1;
  if (std::min(M1, M2) + line.K < 1 || std::max(M1, M2) + line.K > M) return line;
  line.bL = slopes.Nth(M1 + line.K);
  line.bU = slopes.Nth(M2 + line.K);
  line.a0 = InterceptAt(line.b, x, y);
  line.aL = InterceptAt(line.bU, x, y);
  line.aU = InterceptAt(line.bL, x, y);
  return line;
}

}  // namespace quorval::regression
