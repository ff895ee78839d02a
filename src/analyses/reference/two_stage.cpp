#include "analyses/reference/two_stage.h"

#include "analyses/reference/parametric.h"
#include "analyses/reference/sheet_blocks.h"
#include "analyses/reference/transforms.h"
#include "core/failure.h"
#include "stats/normality.h"

namespace quorval::reference {
namespace {

struct TwoStageWords {
  std::string_view fault, unreached, inverse_fault;
  std::string_view analyte_label, procedure, constant;
  VariableNames names;
};

Sample RunTwoStage(Run& run, const ReferenceSample& sample, const Transform& transform,
                   const TwoStageWords& words) {
  Messages& messages = run.messages;
  return Insist(messages, words.fault, [&] {
    const SymmetricValues first = TellAlso(messages, words.unreached, [&] {
      return SearchSymmetry(messages, transform, sample.RefValues);
    });
    const Real c = first.SymmetryConstant;
    const Description described = DescribeSample(messages, first.y);
    const Real my = described.mean, sy = described.sd;
    Sample z;
    for (Real y : first.y) z.push_back((y - my) / sy);
    MesokurticValues second =
        TellAlso(messages, words.unreached, [&] { return SearchModulus(messages, z); });
    const Real lambda = second.ModulusExponent;

    const auto inverse = [&](Real v) {
      return Insist(messages, words.inverse_fault,
                    [&] { return transform.inverse(InverseModulus(v, lambda) * sy + my, c); });
    };
    WorkingVariable variable{.TransformedValues = std::move(second.w),
                             .inverse = inverse,
                             .widened = true,
                             .normality_factor = kTwoConstantsEstimated};
    const ParametricEstimate estimate = EstimateOn(run, variable);
    WriteHead(run, sample, words.analyte_label, words.procedure);
    run.sheet.Row(11, words.constant, c);
    run.sheet.Row(12, "  Modulus exponent: ", lambda);
    WriteTransformedRows(run, sample, words.names, variable, estimate);
    return std::move(variable.TransformedValues);
  });
}

}  // namespace

Sample RunPowerModulus(Run& run, const ReferenceSample& sample) {
  return RunTwoStage(
      run, sample, kPower,
      {.fault = "Error",
       .unreached = "Power transformation to symmetry could not be reached",
       .inverse_fault = "Error",
       .analyte_label = kVariable,
       .procedure = "  Parametric procedure on basis of power-modulus-transformed values",
       .constant = "  Power exponent: ",
       .names = {"power-modulus-transformed", "power-modulus-transformed values",
                 "power-modulus-transformed-values"}});
}

Sample RunExponentialModulus(Run& run, const ReferenceSample& sample) {
  return RunTwoStage(
      run, sample, kExponential,
      {.fault = "Error in exponential-modulus transformation",
       .unreached = "Exponential  transformation to symmetry could not be reached",
       .inverse_fault = "Error in inverse exponential-modulus function",
       .analyte_label = kAnalyte,
       .procedure = "  Parametric procedure on basis of expo-modulus-transformed values",
       .constant = "  Transformation constant: ",
       .names = {"expo-modulus-transformed", "expo-modulus-transformed values",
                 "expo-modulus-transformed-values"}});
}

}  // namespace quorval::reference
