#include "analyses/diagnostic/binormal.h"

#include "stats/primitives.h"

namespace quorval::diagnostic {
namespace {

constexpr double kTwoPi = 6.283185308;

// Both groups Gaussian; in units of the SD of the diseased, a is how far their mean lies above that
// of the non-diseased, and b is the SD of the non-diseased.
struct Binormal {
  Real a, b;
  Real f, g;  // the derivatives of the area with respect to a and b
};

Binormal Fit(Messages& messages, const PairedTest& test) {
  const auto [m1, s1, min1, max1] = DescribeSample(messages, test.first);
  const auto [m2, s2, min2, max2] = DescribeSample(messages, test.second);
  if (m2 < m1) Raise(Fault::Kind::kBadArgument);
  Binormal fit;
  fit.a = (m2 - m1) / s2;
  fit.b = s1 / s2;
  const Real spread = 1 + Square(fit.b);
  const Real E = Exp(-Square(fit.a) / (2 * spread));
  fit.f = E * Pow(kTwoPi * spread, -0.5);
  fit.g = -E * fit.a * fit.b * Pow(kTwoPi * Pow(spread, 3), -0.5);
  return fit;
}

struct GroupSizes {
  Real N2;  // diseased
  Real R;   // non-diseased for each of them
};

Real VarianceOfArea(const Binormal& t, const GroupSizes& sizes) {
  const auto [N2, R] = sizes;
  const Real var_a = (1 + Square(t.b) / R + Square(t.a) / 2) / N2;
  const Real var_b = (1 + R) * Square(t.b) / (2 * R * N2);
  const Real cov_ab = t.a * t.b / (2 * N2);
  return Square(t.f) * var_a + Square(t.g) * var_b + 2 * t.f * t.g * cov_ab;
}

// rn and rd: how the two tests correlate among the non-diseased and among the diseased.
Real CovarianceOfAreas(const Binormal& t1, const Binormal& t2, Real rn, Real rd,
                       const GroupSizes& sizes) {
  const auto [N2, R] = sizes;
  const Real cov_a1a2 = (rd + rn * t1.b * t2.b / R + Square(rd) * t1.a * t2.a / 2) / N2;
  const Real cov_b1b2 = (Square(rn) + R * Square(rd)) * t1.b * t2.b / (2 * R * N2);
  const Real cov_a1b2 = Square(rd) * t1.a * t2.b / (2 * N2);
  const Real cov_a2b1 = Square(rd) * t2.a * t1.b / (2 * N2);
  return t1.f * t2.f * cov_a1a2 + t1.g * t2.g * cov_b1b2 + t1.f * t2.g * cov_a1b2 +
         t2.f * t1.g * cov_a2b1;
}

}  // namespace

Real SEOfAreaDifference(Messages& messages, const PairedTest& test1, const PairedTest& test2) {
  const Real N1 = test1.first.size();
  const Real N2 = test1.second.size();
  const GroupSizes sizes{.N2 = N2, .R = N1 / N2};
  const Binormal t1 = Fit(messages, test1);
  const Binormal t2 = Fit(messages, test2);
  const Real variances = VarianceOfArea(t1, sizes) + VarianceOfArea(t2, sizes);
  const Real rn = PearsonR(messages, test1.first, test2.first);
  const Real rd = PearsonR(messages, test1.second, test2.second);
  const Real V = variances - 2 * CovarianceOfAreas(t1, t2, rn, rd, sizes);
  // Two tests that give the same results leave rounding errors of either sign.
  if (Abs(V) < 1e-12 * variances) return 0;
  return Sqrt(V);
}

}  // namespace quorval::diagnostic
