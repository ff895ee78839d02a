#include "stats/polynomial_tests.h"

#include "stats/f_distribution.h"

namespace quorval {
namespace {

constexpr double kSignificant = 0.05;

std::optional<FTest> TestLastCoefficient(Messages& messages, std::span<const Real> x,
                                         std::span<const Real> y, const PolynomialSums& sums,
                                         Real negligible) {
  const Real s = PolynomialFit(x, y, sums.k - 1).s;
  Real reduction = (Real(sums.n) - 1) * Square(s) - sums.SSres;
  if (Abs(reduction) < negligible * sums.SSres) reduction = 0;
  if (reduction < 0) {
    messages.Tell("Supplementary F-test for last coefficient can not be performed");
    return std::nullopt;
  }
  const Real F = reduction / sums.m1sq;
  return FTest{F, FUpperTail(1, sums.n - sums.k - 1, F)};
}

}  // namespace

PolynomialSums SumsOf(std::span<const Real> x, std::span<const Real> y, const Polynomial& fit) {
  PolynomialSums sums{};
  sums.n = static_cast<int>(x.size());
  sums.k = static_cast<int>(fit.b.size()) - 1;
  const Real mean = Sum(y) / sums.n;
  for (std::size_t i = 0; i < x.size(); ++i) {
    const Real estimate = fit.At(x[i]);
    sums.SSreg += Square(estimate - mean);
    sums.SSres += Square(y[i] - estimate);
  }
  sums.m2sq = sums.SSreg / sums.k;
  sums.m1sq = sums.SSres / (sums.n - sums.k - 1);
  return sums;
}

PolynomialTests TestPolynomial(Messages& messages, std::span<const Real> x, std::span<const Real> y,
                               const PolynomialSums& sums, Real negligible) {
  PolynomialTests tests;
  if (sums.SSres == 0) {
    messages.Tell("zero residuals variation: no F-test");
    return tests;
  }
  const Real F = sums.m2sq / sums.m1sq;
  tests.overall = {F, FUpperTail(sums.k, sums.n - sums.k - 1, F)};
  if (sums.k > 1 && tests.overall->P < kSignificant)
    tests.last = TestLastCoefficient(messages, x, y, sums, negligible);
  return tests;
}

}  // namespace quorval
