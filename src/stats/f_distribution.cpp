#include "stats/f_distribution.h"

#include <array>
#include <cstddef>

#include "core/conversion.h"

namespace quorval {
namespace {

// Of Stirling's series, c1 to c10.
constexpr std::array<double, 10> kStirling{
    0.0833333333333333,   -0.00277777777777778, 0.000793650793650794, -0.000595238095238095,
    0.000841750841750842, -0.00191752691752692, 0.00641025641025641,  -0.0295506535947712,
    0.179644372368831,    -1.3924322169059};
constexpr double kTwoPi = 6.28318530717959;
constexpr double kSeriesFrom = 7;  // the series is good to the last digits from here on

Real LogGamma(Real x) {
  if (x <= 0) Raise(Fault::Kind::kBadArgument);
  if (x == 1 || x == 2) return 0;
  const Real steps = x <= kSeriesFrom ? RoundHalfEven(kSeriesFrom - x) : 0;
  Real x0 = x + steps;
  const Real t = 1 / Square(x0);
  Real s = kStirling.back();
  for (std::size_t k = kStirling.size() - 1; k-- > 0;) s = s * t + kStirling[k];
  Real log_gamma = s / x0 + 0.5 * Log(kTwoPi) + (x0 - 0.5) * Log(x0) - x0;
  for (int i = 0; i < steps; ++i) {
    log_gamma -= Log(x0 - 1);
    x0 -= 1;
  }
  return log_gamma;
}

constexpr int kDepth = 20;

// The k-th coefficient of the continued fraction.
Real Coefficient(int k, Real a, Real b, Real x) {
  const int m = k / 2;
  if (k % 2 == 0) return m * (b - m) * x / (a + 2 * m - 1) / (a + 2 * m);
  return -(a + m) * (a + b + m) * x / (a + 2 * m) / (a + 2 * m + 1);
}

Real Fraction(Real a, Real b, Real x) {
  Real t;
  for (int k = kDepth; k >= 1; --k) t = Coefficient(k, a, b, x) / (1 + t);
  return 1 / (1 + t);
}

}  // namespace

inline namespace BNAMod {

Real GammaFunction(Real x) { return Exp(LogGamma(x)); }

Real BetaFunction(Real a, Real b) {
  return GammaFunction(a) * GammaFunction(b) / GammaFunction(a + b);
}

Real IncompleteBeta(Real a, Real b, Real x) {
  const Real s0 = (a + 1) / (a + b + 2);
  const Real BT = BetaFunction(a, b);
  const Real power = Pow(x, a) * Pow(1 - x, b);
  if (x <= s0) return power / (a * BT) * Fraction(a, b, x);
  return 1 - power / (b * BT) * Fraction(b, a, 1 - x);
}

Real FUpperTail(int df1, int df2, Real F) {
  const Real x = df2 / (df1 * F + df2);
  return IncompleteBeta(Real(df2) / 2, Real(df1) / 2, x);
}

}  // namespace BNAMod

}  // namespace quorval
