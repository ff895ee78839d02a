#include "analyses/methodeval/polynomial_linearity.h"

#include "analyses/methodeval/variance_components.h"

namespace quorval::methodeval::linearity {
namespace {

Real PooledSD(std::span<const DilutionLevel> levels) {
  std::vector<Sample> groups;
  for (const DilutionLevel& level : levels) groups.push_back(level.y);
  return PoolWithin(groups).SD();
}

std::optional<Real> PooledCV(std::span<const DilutionLevel> levels) {
  std::vector<Sample> groups;
  for (const DilutionLevel& level : levels) {
    if (level.mean <= 0) return std::nullopt;
    Sample& relative = groups.emplace_back();
    for (Real y : level.y) relative.push_back((y - level.mean) / level.mean);
  }
  return 100 * PoolWithin(groups).SD();
}

struct Pairs {
  Sample x, y;
};

Pairs SinglePairs(std::span<const DilutionLevel> levels) {
  Pairs pairs;
  for (const DilutionLevel& level : levels)
    for (Real y : level.y) {
      pairs.x.push_back(level.x);
      pairs.y.push_back(y);
    }
  return pairs;
}

Curve FitCurve(const Pairs& pairs, int degree) {
  Polynomial fit = PolynomialFit(pairs.x, pairs.y, degree);
  const PolynomialSums sums = SumsOf(pairs.x, pairs.y, fit);
  return {std::move(fit), sums};
}

// In an exactly linear series rounding must not decide whether the test is made: some ten thousand
// roundings of a double are negligible.
constexpr double kRounding = 1e-12;

LastCoefficient TestLast(Messages& messages, const Pairs& pairs, const Curve& curve) {
  LastCoefficient last{};
  const PolynomialTests tests = TestPolynomial(messages, pairs.x, pairs.y, curve.sums, kRounding);
  if (!tests.last) return last;
  last.F = tests.last->F;
  last.P = tests.last->P;
  const Real b = curve.fit.b.back();
  last.t = b < 0 ? -Sqrt(last.F) : Sqrt(last.F);
  if (last.t != 0) last.SE = b / last.t;
  return last;
}

}  // namespace

Repeatability EvaluateRepeatability(std::span<const DilutionLevel> levels) {
  Repeatability r{.differences = {},
                  .percent = {},
                  .pooled_SD = PooledSD(levels),
                  .pooled_CV = PooledCV(levels)};
  for (const DilutionLevel& level : levels) {
    const Range range = RangeOf(level.y);
    r.differences.push_back(range.max - range.min);
    r.percent.push_back(PercentOf(r.differences.back(), level.mean));
  }
  return r;
}

PolynomialLinearity EvaluatePolynomial(Messages& messages, std::span<const DilutionLevel> levels,
                                       int g) {
  const Pairs pairs = SinglePairs(levels);
  if (g + 1 > static_cast<int>(pairs.x.size()))
    Refuse(messages, "Degree of polynomium is higher than sample size minus one: No analysis");
  PolynomialLinearity result{
      .polynomial = FitCurve(pairs, g), .line = FitCurve(pairs, 1), .last = {}, .deviations = {}};
  result.last = TestLast(messages, pairs, result.polynomial);
  for (const DilutionLevel& level : levels) {
    const Real P = result.polynomial.fit.At(level.x);
    const Real L = result.line.fit.At(level.x);
    result.deviations.push_back({P, L, P - L, PercentOf(P - L, L)});
  }
  return result;
}

}  // namespace quorval::methodeval::linearity
