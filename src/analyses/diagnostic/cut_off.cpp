#include "analyses/diagnostic/cut_off.h"

#include <algorithm>

#include "analyses/diagnostic/cut_off_sweep.h"
#include "analyses/diagnostic/plots.h"
#include "core/failure.h"
#include "stats/percentile.h"
#include "stats/significance.h"

namespace quorval::diagnostic {
namespace {

// --- Choice of the cut-off

Single UserCutOff(Run& run, const TwoGroups&) { return run.form.WholeNumber32(kCutOffValue); }

Single PercentileCutOff(Run& run, const TwoGroups& groups) {
  const Real p = run.form.WholeNumber32(kCutOffPercentile);
  const Real t = p / 100 * groups.N1() + 0.5;
  if (t < 1 || t > groups.N1()) {
    run.messages.Tell(
        "Specified percentile as cut-off could not be computed because too extreme in relation to "
        "sample size");
    throw Failure{};
  }
  return Single(AtPosition(groups.FirstSample, t));
}

Single OptimalCutOff(Run& run, const TwoGroups& groups, std::string_view fault,
                     Single (*best)(const CutOffSweep&)) {
  return Insist(run.messages, fault,
                [&] { return best(SweepCutOffs(groups.FirstSample, groups.SecondSample)); });
}

Single MaxSumCutOff(Run& run, const TwoGroups& groups) {
  return OptimalCutOff(run, groups, "Error in Cut-off sub", CutOffOfMaxSum);
}

Single MaxCorrectCutOff(Run& run, const TwoGroups& groups) {
  return OptimalCutOff(run, groups, "Error in Cut-off sub for max no of classifications",
                       CutOffOfMaxCorrect);
}

struct CutOffRule {
  std::string_view word;
  Single (*choose)(Run&, const TwoGroups&);
  std::string_view CutOffLabel;
};
constexpr CutOffRule kRules[] = {
    {"value", UserCutOff, "(User-selected cut-off)"},
    {"percentile", PercentileCutOff, "(User-specified percentile as cut-off)"},
    {"max-sum", MaxSumCutOff, "(Cut-off corresponding to max Spec+Sens)"},
    {"max-correct", MaxCorrectCutOff, "(Cut-off corr. to max no classifications)"},
};

// --- What it classifies correctly

struct Proportion {
  Real p, se;
  Range limits;
};

Proportion ProportionOf(std::ptrdiff_t correct, Real N) {
  Proportion proportion;
  proportion.p = correct / N;
  proportion.se = Sqrt(proportion.p * (1 - proportion.p) / N);
  const Real t = CriticalT05(1001);  // the Gaussian 1.96, whatever N
  proportion.limits = LimitsWithin({0, 1}, proportion.p, t * proportion.se);
  return proportion;
}

std::ptrdiff_t CountAtMost(const Sample& values, Real limit) {
  return std::ranges::count_if(values, [&](Real value) { return value <= limit; });
}

// --- The sheet

void WriteProportion(ResultsSheet& sheet, int row, std::string_view label,
                     const Proportion& proportion) {
  sheet.Row(row, label, proportion.p, proportion.se);
  sheet.Row(row + 1, "  95%-conf. limits: ", proportion.limits.min, proportion.limits.max);
}

void WriteSheet(Run& run, const TwoGroups& groups, Single CutOff, const CutOffRule& rule) {
  const int N2 = groups.N2();
  const Proportion specificity = ProportionOf(CountAtMost(groups.FirstSample, CutOff), groups.N1());
  const Proportion sensitivity = ProportionOf(N2 - CountAtMost(groups.SecondSample, CutOff), N2);
  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  sheet.Row(2, Bold{" Specificity and sensitivity of diagnostic test"});
  sheet.Row(3, "  Project:", run.context.ProjectName);
  sheet.Row(4, "  Analyst: ", Blank{}, "  Date: ");
  sheet.Row(6, "  First sample (Non-diseased group, blue): Col: ", groups.FirstCol);
  sheet.Row(9, "  Second sample (Diseased group, red): Col: ", groups.SecondCol);
  WriteNamesAndSizes(sheet, groups, "  ");
  sheet.Row(12, "  Cut-Off value(dotted line): ", Real(CutOff));
  sheet.Row(13, rule.CutOffLabel);
  WriteProportion(sheet, 14, "  Specificity with SE: ", specificity);
  WriteProportion(sheet, 16, "  Sensitivity with SE: ", sensitivity);
}

}  // namespace

void EvaluateCutOff(Run& run, const TwoGroups& groups) {
  const Single CutOff = Insist(run.messages, "Error in Specificity/Sensitivity routine", [&] {
    const CutOffRule& rule =
        *std::ranges::find(kRules, run.form.Text(kCutOffBy), &CutOffRule::word);
    const Single chosen = rule.choose(run, groups);
    WriteSheet(run, groups, chosen, rule);
    return chosen;
  });
  DrawGroups(run, groups, CutOff);
}

}  // namespace quorval::diagnostic
