// How well a polynomial describes points, and whether its degree is needed.
#pragma once

#include <optional>
#include <span>

#include "core/messages.h"
#include "stats/polynomial.h"

namespace quorval {

// Sums and mean squares of a polynomial of degree k on n points (x, y); n is above k + 1.
struct PolynomialSums {
  int n, k;
  Real SSreg;  // of the estimates about the mean of y
  Real SSres;  // of y about the estimates
  Real m2sq;   // SSreg / k
  Real m1sq;   // SSres / (n - k - 1)

  Real SDyx() const { return Sqrt(m1sq); }
};

PolynomialSums SumsOf(std::span<const Real> x, std::span<const Real> y, const Polynomial& fit);

struct FTest {
  Real F, P;
};

struct PolynomialTests {
  std::optional<FTest> overall{};
  std::optional<FTest> last{};  // of the last coefficient
};

// The overall test, m2sq / m1sq, and that of the coefficient of x^k, which is made where k is above
// 1 and the overall P below 0.05: what the last degree takes off the residual sum of squares
// against m1sq.  A reduction below `negligible` times SSres counts as none; with 0 the sign that
// rounding leaves decides whether the test can be made.  Tells why a test can not be made; a Fault
// above about 340 points.
PolynomialTests TestPolynomial(Messages& messages, std::span<const Real> x, std::span<const Real> y,
                               const PolynomialSums& sums, Real negligible = 0);

}  // namespace quorval
