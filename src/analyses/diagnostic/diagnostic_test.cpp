// Evaluation of one quantitative diagnostic test, from the results of a non-diseased and of a
// diseased group: specificity and sensitivity at a cut-off, or the ROC curve of all cut-offs.
#include "analyses/diagnostic/cut_off.h"
#include "analyses/diagnostic/roc_curve.h"
#include "analyses/registry.h"
#include "stats/percentile.h"

namespace quorval::diagnostic {
namespace {

struct Group {
  int column;
  std::string name;
  Sample sample;  // ascending
};

Group TakeGroup(Run& run, const Field& field) {
  Column column = ReadColumn(run, field);
  Sample sample = SortAscending(column.Numbers32(run.notices));
  if (TooSmall(sample)) run.Refuse(" N in group(s) < 10: No diagnostic test evaluation ");
  return {column.number, std::move(column.header), std::move(sample)};
}

TwoGroups TakeGroups(Run& run) {
  Group first = TakeGroup(run, Text10);
  Group second = TakeGroup(run, Text11);
  return {.FirstCol = first.column,
          .SecondCol = second.column,
          .FirstName = std::move(first.name),
          .SecondName = std::move(second.name),
          .FirstSample = std::move(first.sample),
          .SecondSample = std::move(second.sample)};
}

constexpr Procedure frmDiaResults[] = {
    ResultsWindow("frmDiaResults", "Quorval      Diagnostic test Evaluation", [](Run& run) {
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
