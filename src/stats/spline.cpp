#include "stats/spline.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <vector>

namespace quorval {
namespace {

Real Cube(Real a) { return a * a * a; }

std::vector<std::size_t> OrderOf(std::span<const Real> x) {
  std::vector<std::size_t> order(x.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, [&](std::size_t i, std::size_t j) { return x[i] < x[j]; });
  return order;
}

// The tridiagonal system of the second derivatives, swept forward for c and d and solved backward.
Sample SecondDerivatives(std::span<const Real> x, std::span<const Real> y) {
  const std::size_t n = x.size();
  Sample c(n + 1), d(n + 1), y2(n);
  for (std::size_t i = 1; i + 1 < n; ++i) {
    const Real h1 = x[i] - x[i - 1];
    const Real h2 = x[i + 1] - x[i];
    const Real p = h1 / h2 * (c[i] + 2) + 2;
    c[i + 1] = -1 / p;
    const Real r = ((y[i + 1] - y[i]) / h2 - (y[i] - y[i - 1]) / h1) * 6 / h2;
    d[i + 1] = (r - d[i] * h1 / h2) / p;
  }
  for (std::size_t i = n - 1; i-- > 1;) y2[i] = c[i + 1] * y2[i + 1] + d[i + 1];
  return y2;
}

}  // namespace

inline namespace BNAMod {

Spline SplineSetup(std::span<const Real> x, std::span<const Real> y) {
  if (x.size() < 2) Raise(Fault::Kind::kOutOfRange);
  Spline spline;
  for (std::size_t i : OrderOf(x)) {
    spline.x.push_back(x[i]);
    spline.y.push_back(y[i]);
  }
  if (std::ranges::adjacent_find(spline.x) != spline.x.end()) Raise(Fault::Kind::kDivisionByZero);
  spline.y2 = SecondDerivatives(spline.x, spline.y);
  return spline;
}

Real SplineEvaluate(const Spline& spline, Real X) {
  const auto& [x, y, y2] = spline;
  const auto found = std::lower_bound(x.begin() + 1, x.end() - 1, X);
  const auto hi = static_cast<std::size_t>(found - x.begin());
  const std::size_t lo = hi - 1;
  const Real h = x[hi] - x[lo];
  const Real a = (x[hi] - X) / h;
  const Real b = (X - x[lo]) / h;
  return a * y[lo] + b * y[hi] + ((Cube(a) - a) * y2[lo] + (Cube(b) - b) * y2[hi]) * Square(h) / 6;
}

}  // namespace BNAMod

}  // namespace quorval
