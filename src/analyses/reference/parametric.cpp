#include "analyses/reference/parametric.h"

#include <string_view>
#include <utility>

#include "analyses/reference/transforms.h"
#include "core/failure.h"
#include "stats/moments.h"
#include "stats/normality.h"

namespace quorval::reference {

// --- Working variables

WorkingVariable Untransformed(Messages&, const Sample& x) {
  return {.TransformedValues = x, .inverse = [](Real v) { return v; }};
}

WorkingVariable ByLogarithm(Messages&, const Sample& x) {
  WorkingVariable variable{.TransformedValues = {}, .inverse = [](Real v) { return Exp(v); }};
  for (Real value : x) variable.TransformedValues.push_back(Log(value));
  return variable;
}

namespace {

SymmetricValues ReachSymmetry(Messages& messages, const Transform& transform, const Sample& x,
                              std::string_view unreached) {
  return TellAlso(messages, unreached, [&] { return SearchSymmetry(messages, transform, x); });
}

WorkingVariable InOneStage(Messages& messages, const Transform& transform, const Sample& x,
                           std::string_view unreached) {
  SymmetricValues found = ReachSymmetry(messages, transform, x, unreached);
  const Real c = found.SymmetryConstant;
  return {.TransformedValues = std::move(found.y),
          .inverse = [&transform, c](Real v) { return transform.inverse(v, c); },
          .SymmetryConstant = c};
}

WorkingVariable InTwoStages(Messages& messages, const Transform& transform, const Sample& x,
                            std::string_view unreached, std::string_view inverse_fault) {
  const SymmetricValues first = ReachSymmetry(messages, transform, x, unreached);
  const Description described = DescribeSample(messages, first.y);
  const Real c = first.SymmetryConstant, my = described.mean, sy = described.sd;
  Sample z;
  for (Real y : first.y) z.push_back((y - my) / sy);
  MesokurticValues second =
      TellAlso(messages, unreached, [&] { return SearchModulus(messages, z); });
  const Real lambda = second.ModulusExponent;
  return {.TransformedValues = std::move(second.w),
          .inverse =
              [&messages, &transform, inverse_fault, c, my, sy, lambda](Real v) {
                return Insist(messages, inverse_fault, [&] {
                  return transform.inverse(InverseModulus(v, lambda) * sy + my, c);
                });
              },
          .SymmetryConstant = c,
          .ModulusExponent = lambda};
}

}  // namespace

WorkingVariable ByPower(Messages& messages, const Sample& x) {
  return InOneStage(messages, kPower, x, "Power transformation to symmetry could not be reached");
}

WorkingVariable ByExponential(Messages& messages, const Sample& x) {
  return InOneStage(messages, kExponential, x,
                    "Exponential transformation to symmetry could not be reached");
}

WorkingVariable ByPowerAndModulus(Messages& messages, const Sample& x) {
  return InTwoStages(messages, kPower, x, "Power transformation to symmetry could not be reached",
                     "Error");
}

WorkingVariable ByExponentialAndModulus(Messages& messages, const Sample& x) {
  return InTwoStages(messages, kExponential, x,
                     "Exponential  transformation to symmetry could not be reached",
                     "Error in inverse exponential-modulus function");
}

// --- Estimates

namespace {

constexpr double kDeviateOf95 = 1.96;

// What the limits' distances from their percentile are multiplied by where constants were
// estimated: these vary from sample to sample too, which the limits on the scale of the transform
// leave out (Linnet, Clin Chem 1987;33:381-386, by simulation for two stages; for one stage the
// factor is this procedure's own choice).
constexpr double kWidening = 1.25;

// A percentile and its limits on the scale of the data.
Percentile CarryBack(const Percentile& on_y, const WorkingVariable& variable) {
  const Real P = variable.inverse(on_y.value);
  const Real L = variable.inverse(on_y.confidence->lower);
  const Real U = variable.inverse(on_y.confidence->upper);
  if (!variable.SymmetryConstant) return {P, Limits{L, U}};
  return {P, Limits{P - (P - L) * kWidening, P + (U - P) * kWidening}};
}

double NormalityFactor(const WorkingVariable& variable) {
  if (variable.ModulusExponent) return kTwoConstantsEstimated;
  return variable.SymmetryConstant ? kOneConstantEstimated : kNothingEstimated;
}

}  // namespace

ReferenceInterval EstimateGaussian(Real mean, Real sd, Real N) {
  const Real k = kDeviateOf95 * (1 / (1 - 1 / (4 * (N - 1))));
  const Real se = Sqrt(Square(sd) / N + Square(kDeviateOf95) * Square(sd) / (2 * N));
  const auto percentile = [&](Real P) { return Percentile{P, LimitsAround(P, se)}; };
  return {percentile(mean - k * sd), percentile(mean + k * sd)};
}

ParametricEstimate EstimateParametric(Messages& messages, WorkingVariable variable,
                                      Real outlier_limit) {
  const Sample& y = variable.TransformedValues;
  const Description described = DescribeSample(messages, y);
  const auto [lower, upper] = EstimateGaussian(described.mean, described.sd, y.size());
  const ReferenceInterval interval{CarryBack(lower, variable), CarryBack(upper, variable)};
  const Real skewness = Skewness(messages, y);
  const Real kurtosis = Kurtosis(y);
  OutlierMarks outliers = MarkOutliersBySD(messages, outlier_limit, ToSingles(y));
  std::string NormalityP = AndersonDarling(messages, y, NormalityFactor(variable));
  return {std::move(variable),  described, interval, skewness, kurtosis, std::move(outliers),
          std::move(NormalityP)};
}

}  // namespace quorval::reference
