#include "analyses/reference/parametric.h"

#include "analyses/reference/options.h"
#include "analyses/reference/sheet_blocks.h"
#include "analyses/reference/transforms.h"
#include "core/failure.h"
#include "stats/moments.h"
#include "stats/normality.h"

namespace quorval::reference {
namespace {

constexpr double kDeviateOf95 = 1.96;

// A percentile and its limits on the scale of the data.
Percentile CarryBack(const Percentile& on_y, const WorkingVariable& variable) {
  const Real P = variable.inverse(on_y.value);
  const Real L = variable.inverse(on_y.confidence->lower);
  const Real U = variable.inverse(on_y.confidence->upper);
  if (!variable.widened) return {P, Limits{L, U}};
  return {P, Limits{P - (P - L) * 1.25, P + (U - P) * 1.25}};
}

// Rows 15 to 31, which all parametric sheets have.
void WriteCommonRows(Run& run, const ReferenceSample& sample, std::string_view normality,
                     const ParametricEstimate& estimate) {
  WriteInterval(run.sheet, 15, estimate.interval);
  run.sheet.Row(19, normality);
  run.sheet.Row(20, "  P ", estimate.NormalityP);
  WriteOutliers(run.sheet, kOutlierRows, estimate.outliers, estimate.outlier_limit,
                sample.RefValues);
}

// The power and the exponential estimator, which differ in their words.
struct OneStageWords {
  std::string_view fault, unreached;
  std::string_view analyte_label, procedure, constant;
  VariableNames names;
};

Sample RunOneStage(Run& run, const ReferenceSample& sample, const Transform& transform,
                   const OneStageWords& words) {
  return Insist(run.messages, words.fault, [&] {
    SymmetricValues found = TellAlso(run.messages, words.unreached, [&] {
      return SearchSymmetry(run.messages, transform, sample.RefValues);
    });
    const Real c = found.SymmetryConstant;
    WorkingVariable variable{.TransformedValues = std::move(found.y),
                             .inverse = [&](Real v) { return transform.inverse(v, c); },
                             .widened = true,
                             .normality_factor = kOneConstantEstimated};
    const ParametricEstimate estimate = EstimateOn(run, variable);
    WriteHead(run, sample, words.analyte_label, words.procedure);
    run.sheet.Row(11, words.constant, c);
    WriteTransformedRows(run, sample, words.names, variable, estimate);
    return std::move(variable.TransformedValues);
  });
}

}  // namespace

ReferenceInterval EstimateGaussian(Real mean, Real sd, Real N) {
  const Real k = kDeviateOf95 * (1 / (1 - 1 / (4 * (N - 1))));
  const Real se = Sqrt(Square(sd) / N + Square(kDeviateOf95) * Square(sd) / (2 * N));
  const auto percentile = [&](Real P) { return Percentile{P, LimitsAround(P, se)}; };
  return {percentile(mean - k * sd), percentile(mean + k * sd)};
}

ParametricEstimate EstimateOn(Run& run, const WorkingVariable& variable) {
  const Sample& y = variable.TransformedValues;
  ParametricEstimate estimate{.y = DescribeSample(run.messages, y)};
  const ReferenceInterval on_y = EstimateGaussian(estimate.y.mean, estimate.y.sd, y.size());
  estimate.interval.lower = CarryBack(on_y.lower, variable);
  estimate.interval.upper = CarryBack(on_y.upper, variable);
  estimate.skewness = Skewness(run.messages, y);
  estimate.kurtosis = Kurtosis(y);
  estimate.outlier_limit = run.form.WholeNumber32(kOutlierLimit);
  estimate.outliers = MarkOutliersBySD(run.messages, estimate.outlier_limit, ToSingles(y));
  estimate.NormalityP = AndersonDarling(run.messages, y, variable.normality_factor);
  return estimate;
}

void WriteTransformedRows(Run& run, const ReferenceSample& sample, const VariableNames& names,
                          const WorkingVariable& variable, const ParametricEstimate& estimate) {
  const auto about = [](std::string_view before, std::string_view name, std::string_view after) {
    return std::string(before).append(name).append(after);
  };
  ResultsSheet& sheet = run.sheet;
  WriteCommonRows(
      run, sample,
      about("  Result of Normality test on ", names.name, " values (Anderson-Darling): "),
      estimate);
  sheet.Row(32, about("  Display of measures on ", names.name, " data "));
  sheet.Row(33, "  Total range ", estimate.y.min, estimate.y.max);
  sheet.Row(34, about("  Mean of ", names.values, ": "), estimate.y.mean);
  sheet.Row(35, about("  SD of ", names.hyphened_values, ": "), estimate.y.sd);
  sheet.Row(36, about("  Skewness of ", names.hyphened_values, ": "), estimate.skewness);
  sheet.Row(37, about("  Kurtosis of ", names.hyphened_values, ": "), estimate.kurtosis);
  WriteOutliers(sheet, kTransformedOutlierRows, estimate.outliers, estimate.outlier_limit,
                ToReals(ToSingles(variable.TransformedValues)));
}

void RunDirect(Run& run, const ReferenceSample& sample) {
  Insist(run.messages, "Error in parametric reference interval estimation", [&] {
    const WorkingVariable variable{.TransformedValues = sample.RefValues,
                                   .inverse = [](Real v) { return v; }};
    const ParametricEstimate estimate = EstimateOn(run, variable);
    WriteHead(run, sample, kVariable, "  Parametric procedure (untransformed values)",
              "  Percentiles as mean+/-1.96(1/(1-1/(4(n-1)))) SD");
    ResultsSheet& sheet = run.sheet;
    sheet.Row(11, "  Mean and SD: ", estimate.y.mean, estimate.y.sd);
    sheet.Row(12, "  Coeff. of skewness: ", estimate.skewness);
    sheet.Row(13, "  Coeff. of kurtosis: ", estimate.kurtosis);
    sheet.Row(14, "  Parametric reference interval estimates: ");
    WriteCommonRows(run, sample, "  Result of Normality test  (Anderson-Darling): ", estimate);
  });
}

Sample RunLog(Run& run, const ReferenceSample& sample) {
  return Insist(run.messages, "Error in log-parametric reference interval estimation", [&] {
    WorkingVariable variable{.inverse = [](Real v) { return Exp(v); }};
    for (Real x : sample.RefValues) variable.TransformedValues.push_back(Log(x));
    const ParametricEstimate estimate = EstimateOn(run, variable);
    WriteHead(run, sample, kAnalyte, "  Parametric procedure on log-transformed values");
    run.sheet.Row(11, "  Geometric mean: ", Exp(estimate.y.mean));
    WriteTransformedRows(run, sample, {"log-transformed", "log-values", "log-values"}, variable,
                         estimate);
    return std::move(variable.TransformedValues);
  });
}

Sample RunPower(Run& run, const ReferenceSample& sample) {
  return RunOneStage(
      run, sample, kPower,
      {.fault = "Error in power-parametric reference interval estimation",
       .unreached = "Power transformation to symmetry could not be reached",
       .analyte_label = kVariable,
       .procedure = "  Parametric procedure on basis of power-transformed values",
       .constant = "  Power exponent: ",
       .names = {"power-transformed", "power-transformed values", "power-transformed-values"}});
}

Sample RunExponential(Run& run, const ReferenceSample& sample) {
  return RunOneStage(
      run, sample, kExponential,
      {.fault = "Error in exponential-parametric reference interval estimation",
       .unreached = "Exponential transformation to symmetry could not be reached",
       .analyte_label = kAnalyte,
       .procedure = "  Parametric procedure on basis of exponential-transformed values",
       .constant = "  Exponential transformation constant: ",
       .names = {"exponential-transformed", "exponential-transformed values",
                 "exponential-transformed-values"}});
}

}  // namespace quorval::reference
