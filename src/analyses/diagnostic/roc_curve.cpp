#include "analyses/diagnostic/roc_curve.h"

#include <optional>

#include "analyses/diagnostic/roc_area.h"
#include "core/failure.h"
#include "stats/resampling.h"
#include "stats/significance.h"

namespace quorval::diagnostic {
namespace {

constexpr std::string_view kRoutine = "Error ROC-Curve routine";

// --- Input

struct RocInput {
  DiagnosticGroups groups;
  bool with_se;
};

RocInput ReadRoc(Run& run) { return {TakeGroups(run), run.form.On(kAreaSE)}; }

// --- Computation

struct RocResult {
  CutOffSweep sweep;
  Real RocArea;
  std::optional<Real> RocAreaSE{};
};

RocResult ComputeRoc(Messages& messages, const RocInput& input) {
  constexpr int B = 100;  // replications
  const Sample &first = input.groups.FirstSample, &second = input.groups.SecondSample;
  return Insist(messages, kRoutine, [&] {
    RocResult result{.sweep = SweepCutOffs(first, second), .RocArea = {}};
    if (input.with_se)
      result.RocAreaSE = Insist(messages, "Error in resampling SEarea ROC-Curve routine", [&] {
        return SummariseReplicates(ResampleAreas(messages, first, second, B)).sd;
      });
    result.RocArea = AreaUnder(result.sweep);
    return result;
  });
}

// --- Report

void ReportRoc(Messages& messages, ResultsSheet& sheet, const RocInput& input,
               const RocResult& result) {
  const DiagnosticGroups& groups = input.groups;
  Insist(messages, kRoutine, [&] {
    sheet.Frame("  ROC-Curve results for diagnostic test", DateBeside::kAnalyst);
    sheet.Row(6, "  First sample (Non-diseased group): Col: ", kFirstColumn(groups.FirstCol));
    sheet.Row(9, "  Second sample (Diseased group): Col: ", kSecondColumn(groups.SecondCol));
    WriteNamesAndSizes(sheet, groups, " ");
    sheet.Row(12, kArea(result.RocArea));
    if (!result.RocAreaSE) return;
    const Real t = CriticalT05(groups.N1() + groups.N2() - 2);
    const Range limits = LimitsWithin({0, 1}, result.RocArea, t * *result.RocAreaSE);
    sheet.Row(13, kAreaSe(*result.RocAreaSE));
    sheet.Row(14, kAreaLower(limits.min), kAreaUpper(limits.max));
  });
}

// --- Plots

void DrawRoc(Messages& messages, Plots& plots, const RocInput&, const RocResult& result) {
  Insist(messages, "Error in plot Roc-curve routine",
         [&] { AddRocPlot(plots, kRocPlot[0]).AddLine(RocCurveOf(result.sweep)); });
}

}  // namespace

void EvaluateRocCurve(Run& run) { Steps<ReadRoc, ComputeRoc, ReportRoc, DrawRoc>(run); }

}  // namespace quorval::diagnostic
