#include "analyses/diagnostic/roc_curve.h"

#include <optional>

#include "analyses/diagnostic/plots.h"
#include "analyses/diagnostic/roc_area.h"
#include "core/failure.h"
#include "stats/resampling.h"
#include "stats/significance.h"

namespace quorval::diagnostic {
namespace {

constexpr int B = 100;  // replications

Real EstimateSE(Run& run, const TwoGroups& groups) {
  return Insist(run.messages, "Error in resampling SEarea ROC-Curve routine", [&] {
    const Sample areas = ResampleAreas(run.messages, groups.FirstSample, groups.SecondSample, B);
    return SummariseReplicates(areas).sd;
  });
}

void WriteSheet(Run& run, const TwoGroups& groups, Real RocArea,
                const std::optional<Real>& RocAreaSE) {
  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  sheet.Frame("  ROC-Curve results for diagnostic test", DateBeside::kAnalyst);
  sheet.Row(6, "  First sample (Non-diseased group): Col: ", groups.FirstCol);
  sheet.Row(9, "  Second sample (Diseased group): Col: ", groups.SecondCol);
  WriteNamesAndSizes(sheet, groups, " ");
  sheet.Row(12, "  Area under ROC-Curve:  ", RocArea);
  if (!RocAreaSE) return;
  const Real t = CriticalT05(groups.N1() + groups.N2() - 2);
  const Range limits = LimitsWithin({0, 1}, RocArea, t * *RocAreaSE);
  sheet.Row(13, "  SE of Area:  ", *RocAreaSE);
  sheet.Row(14, "  0.95-Confidence limits: ", limits.min, limits.max);
}

}  // namespace

void EvaluateRocCurve(Run& run, const TwoGroups& groups) {
  const CutOffSweep sweep = Insist(run.messages, "Error ROC-Curve routine", [&] {
    CutOffSweep swept = SweepCutOffs(groups.FirstSample, groups.SecondSample);
    std::optional<Real> RocAreaSE;
    if (run.form.On(kAreaSE)) RocAreaSE = EstimateSE(run, groups);
    WriteSheet(run, groups, AreaUnder(swept), RocAreaSE);
    return swept;
  });
  DrawRocCurve(run, sweep);
}

}  // namespace quorval::diagnostic
