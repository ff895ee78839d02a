// Evaluation of one quantitative diagnostic test, from the results of a non-diseased and of a
// diseased group: specificity and sensitivity at a cut-off, or the ROC curve of all cut-offs.
#include "analyses/diagnostic/cut_off.h"
#include "analyses/diagnostic/roc_curve.h"
#include "analyses/registry.h"
#include "stats/percentile.h"

namespace quorval::diagnostic {
namespace {

Column TakeColumn(Run& run, const Field& field) {
  Column column = ReadColumn(run, run.form.Column(field));
  if (TooSmall(column)) run.Refuse(" N in group(s) < 10: No diagnostic test evaluation ");
  return column;
}

TwoGroups TakeGroups(Run& run) {
  TwoGroups groups;
  const Column first = TakeColumn(run, Text10);
  groups.FirstCol = first.number;
  groups.FirstName = first.header;
  groups.FirstSample = SortAscending(ValuesOf(first));
  const Column second = TakeColumn(run, Text11);
  groups.SecondCol = second.number;
  groups.SecondName = second.header;
  groups.SecondSample = SortAscending(ValuesOf(second));
  return groups;
}

constexpr Procedure frmDiaResults[] = {ResultsWindow(
    "frmDiaResults",
    [](const Form&) -> std::string { return "Quorval      Diagnostic test Evaluation"; },
    [](Run& run) {
      const TwoGroups groups = TakeGroups(run);
      if (run.form.Holds(kByRoc))
        EvaluateRocCurve(run, groups);
      else
        EvaluateCutOff(run, groups);
    })};

}  // namespace

constinit const Analysis kDiagnostic{
    .id = "diagnostic",
    .dialog = &frmDiaOptions,
    .procedures = frmDiaResults,
    .manual = "diagnostic-test.md",
};

}  // namespace quorval::diagnostic
