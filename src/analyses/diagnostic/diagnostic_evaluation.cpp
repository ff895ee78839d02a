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

constexpr auto kQuantities = std::to_array<Quantity>({
    kFirstColumn,
    kFirstCount,
    kSecondColumn,
    kSecondCount,
    kCutOff,
    kSpecificity.estimate,
    kSpecificity.se,
    kSpecificity.lower,
    kSpecificity.upper,
    kSensitivity.estimate,
    kSensitivity.se,
    kSensitivity.lower,
    kSensitivity.upper,
    kArea,
    kAreaSe,
    kAreaLower,
    kAreaUpper,
});

constexpr PlotJob kGroupsJobs[] = {{.pictures = kGroupsPlot}};
constexpr PlotJob kRocJobs[] = {{.pictures = kRocPlot}};

constexpr Procedure ProcedureOf(When when, std::span<const PlotJob> plot_jobs, void (*run)(Run&)) {
  return {.when = when,
          .window = "frmDiaResults",
          .title = "Quorval      Diagnostic test Evaluation",
          .menu = kFileMenu,
          .print_header = kPrintHeader,
          .plot_jobs = plot_jobs,
          .plot_windows = plot_jobs.front().pictures,
          .failure = kFailure,
          .run = run};
}
constexpr Procedure kProcedures[] = {ProcedureOf(kByCutOff, kGroupsJobs, EvaluateCutOff),
                                     ProcedureOf(kByRoc, kRocJobs, EvaluateRocCurve)};

}  // namespace

DiagnosticGroups TakeGroups(Run& run) {
  Group first = TakeGroup(run, Text10);
  Group second = TakeGroup(run, Text11);
  return {.FirstCol = first.column,
          .SecondCol = second.column,
          .FirstName = std::move(first.name),
          .SecondName = std::move(second.name),
          .FirstSample = std::move(first.sample),
          .SecondSample = std::move(second.sample)};
}

constinit const Analysis kDiagnostic{
    .id = "diagnostic",
    .dialog = &frmDiaOptions,
    .procedures = kProcedures,
    .quantities = kQuantities,
    .manual = "diagnostic-test.md",
};

}  // namespace quorval::diagnostic
