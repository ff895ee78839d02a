// Comparison of two samples, independent or paired: by their means (t_tests.cpp), their variances
// (f_test.cpp) or their ranks (two_samples_by_ranks.cpp).
#include "analyses/general/two_samples.h"

#include <algorithm>

#include "analyses/general/dot_plot.h"
#include "analyses/registry.h"
#include "core/intake.h"

namespace quorval::general {
namespace {

// --- Options

constexpr std::string_view kColumnGroup = "Select Data Columns:";
constexpr Field kFirstColumn{.key = Text10.key,
                             .group = kColumnGroup,
                             .heading = "First Sample:",
                             .caption = "No.:",
                             .initial = Text10.initial};
constexpr Field kSecondColumn{.key = Text11.key,
                              .group = kColumnGroup,
                              .heading = "Second Sample:",
                              .caption = "No.:",
                              .initial = Text11.initial};
constexpr Field kPurpose{.kind = FieldKind::kNote,
                         .caption =
                             "Comparison of two groups by parametric (t-test) or "
                             "nonparametric approaches. Unpaired and paired options."};
constexpr Choice kTests[] = {
    {"t", "Unpaired t-test", "Parametric:"},
    {"paired-t", "Paired t-test"},
    {"f", "F-test"},
    {"mann-whitney", "Unpaired (Mann-Whitney)", "Nonparametric:"},
    {"wilcoxon", "Paired (Wilcoxon)"},
};
constexpr Field kTest{.key = "test", .kind = FieldKind::kChoice, .initial = "t", .choices = kTests};

constexpr Field kFields[] = {kFirstColumn, kSecondColumn, kPurpose, kTest};

constexpr Dialog frmGenTwoOptions{
    .window = "frmGenTwoOptions",
    .title = "Quorval     General Statistics: Two Samples   ",
    .fields = kFields,
};
static_assert(WellFormed(frmGenTwoOptions));

// --- The run

Group TakeGroup(Run& run, const Field& field) {
  Column column = ReadColumn(run, field);
  Sample values = column.Numbers32(run.notices);
  if (values.size() < 3) run.Refuse(" N < 3: No group comparison! ");
  return {column.number, std::move(column.header), std::move(values)};
}

struct TestRoutine {
  std::string_view word, failure;
  void (*run)(Run&, const TwoGroups&);
};
constexpr TestRoutine kRoutines[] = {
    {"t", "Error in t-test routine", RunTTest},
    {"paired-t", "Error in paired t-test routine", RunPairedTTest},
    {"f", "Error in F-test routine", RunFTest},
    {"mann-whitney", "Error in Mann-Whitney routine", RunMannWhitney},
    {"wilcoxon", "Error in Wilcoxon routine", RunWilcoxon},
};

void RunTwoSamples(Run& run) {
  Group first = TakeGroup(run, kFirstColumn);
  Group second = TakeGroup(run, kSecondColumn);
  const TwoGroups groups{std::move(first), std::move(second)};
  const auto& routine = *std::ranges::find(kRoutines, run.form.Text(kTest), &TestRoutine::word);
  Insist(run.messages, routine.failure, [&] { routine.run(run, groups); });
}

constexpr PlotWindow kPictures[] = {
    {.window = kDotPlotWindow, .caption = {}, .bitmap = " Chart2D1.bmp", .height = 350}};
constexpr PlotJob kPlotJobs[] = {{.pictures = kPictures}};

constexpr std::string_view kPlotFailure = "Error in t-test plot routine";

constexpr Procedure frmGenTwoResults[] = {{
    .window = "frmGenTwoResults",
    .title = "General Statistics: Two Samples",
    .menu = {.save = "&Save As", .print_plots = "P&rint Plot"},
    .print_header = "/cGeneral Statistics - Two Samples/rPage #/p/n",
    .plot_jobs = kPlotJobs,
    .kept_picture = {.file = "PlotGenD.svg", .failure = kPlotFailure},
    .failure = {.fault = "Error", .second = "Error", .aftermath = Aftermath::kWindowNotShown},
    .run = RunTwoSamples,
}};

std::string AxisTitle(const TwoGroups& groups) {
  const auto named = [](const Group& group, const char* otherwise) {
    return group.name.empty() ? otherwise : group.name;
  };
  return "1: " + named(groups.first, "first sample") +
         "     2: " + named(groups.second, "second sample");
}

// Draws what `fill` adds.
template <class Fill>
void Draw(Run& run, int places, Fill&& fill) {
  Insist(run.messages, kPlotFailure, [&] { fill(AddDotPlot(run, "Plot of two samples", places)); });
}

}  // namespace

Sample TakeDifferences(Run& run, const TwoGroups& groups) {
  const auto& [first, second] = groups;
  NoteLengths(run.notices,
              {{first.column, first.values.size()}, {second.column, second.values.size()}});
  if (first.N() != second.N()) Fail(run, "Unequal size of groups 1 and 2: No paired analysis");
  Sample differences;
  for (std::size_t i = 0; i < first.values.size(); ++i)
    differences.push_back(second.values[i] - first.values[i]);
  return differences;
}

void WritePairedHead(Run& run, std::string_view title, const TwoGroups& groups) {
  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  sheet.Frame(title, DateBeside::kAnalyst);
  sheet.Row(6, "  First sample: Col: ", groups.first.column);
  sheet.Row(7, "  Variable name for first group:", groups.first.name);
  sheet.Row(9, "  Second sample (right side of plot): Col: ", groups.second.column);
  sheet.Row(10, "  Variable name for second group:", groups.second.name);
  sheet.Row(11, "  Number of paired observations:", groups.first.N());
}

void DrawGroups(Run& run, const TwoGroups& groups, Real first_centre, Real second_centre) {
  Draw(run, 2, [&](Plot& plot) {
    plot.x.title = AxisTitle(groups);
    plot.AddPoints(DotsAt(1, groups.first.values));
    plot.AddPoints(DotsAt(2, groups.second.values));
    AddBar(plot, 1, first_centre);
    AddBar(plot, 2, second_centre);
  });
}

void DrawDifferences(Run& run, std::span<const Real> differences, Real centre) {
  Draw(run, 1, [&](Plot& plot) {
    plot.y.title = "Difference";
    plot.AddPoints(DotsAt(1, differences));
    AddBar(plot, 1, centre);
  });
}

constinit const Analysis kTwoSamples{
    .id = "two-samples",
    .dialog = &frmGenTwoOptions,
    .procedures = frmGenTwoResults,
    .manual = "two-samples.md",
};

}  // namespace quorval::general
