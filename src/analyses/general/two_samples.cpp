// Comparison of two samples, independent or paired: by their means (compare_means.cpp), their
// variances (compare_variances.cpp) or their ranks (compare_ranks.cpp).
#include "analyses/general/two_samples.h"

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

// --- Input

Group TakeGroup(Run& run, const Field& field) {
  Column column = ReadColumn(run, field);
  Sample values = column.Numbers32(run.notices);
  if (values.size() < 3) run.Refuse(" N < 3: No group comparison! ");
  return {column.number, std::move(column.header), std::move(values)};
}

// --- Report

namespace q = quantity;
constexpr Quantity kQuantities[] = {
    q::kFirst.column,
    q::kFirst.n,
    q::kFirst.mean,
    q::kFirst.sd,
    q::kFirst.mean_se,
    q::kFirst.variance,
    q::kFirst.df,
    q::kFirst.median,
    q::kFirst.mean_rank,
    q::kSecond.column,
    q::kSecond.n,
    q::kSecond.mean,
    q::kSecond.sd,
    q::kSecond.mean_se,
    q::kSecond.variance,
    q::kSecond.df,
    q::kSecond.median,
    q::kSecond.mean_rank,
    q::kPairs,
    q::kDifference,
    q::kDifferenceSe,
    q::kDifferenceLower,
    q::kDifferenceUpper,
    q::kDifferenceT,
    q::kDifferenceSd,
    q::kMedianDifference,
    q::kF,
    q::kFP,
};

// --- Plots

constexpr PlotWindow kPlots[] = {DotPlot("Plot of two samples")};
constexpr PlotJob kPlotJobs[] = {{.pictures = kPlots}};
constexpr std::string_view kPlotFailure = "Error in t-test plot routine";

std::string AxisTitle(const TwoGroups& groups) {
  const auto named = [](const Group& group, const char* otherwise) {
    return group.name.empty() ? otherwise : group.name;
  };
  return "1: " + named(groups.first, "first sample") +
         "     2: " + named(groups.second, "second sample");
}

// --- The analysis

constexpr Procedure ProcedureOf(std::string_view test, void (*run)(Run&)) {
  return {
      .when = {kTest.key, test},
      .window = "frmGenTwoResults",
      .title = "General Statistics: Two Samples",
      .menu = {.save = "&Save As", .print_plots = "P&rint Plot"},
      .print_header = "/cGeneral Statistics - Two Samples/rPage #/p/n",
      .plot_jobs = kPlotJobs,
      .plot_windows = kPlots,
      .kept_picture = {.file = "PlotGenD.svg", .failure = kPlotFailure},
      .failure = {.fault = "Error", .second = "Error", .aftermath = Aftermath::kWindowNotShown},
      .run = run,
  };
}

constexpr Procedure kProcedures[] = {
    ProcedureOf("t", CompareMeans),
    ProcedureOf("paired-t", ComparePairedMeans),
    ProcedureOf("f", CompareVariances),
    ProcedureOf("mann-whitney", CompareRanks),
    ProcedureOf("wilcoxon", ComparePairedRanks),
};

}  // namespace

TwoGroups ReadTwoGroups(Run& run) {
  Group first = TakeGroup(run, kFirstColumn);
  Group second = TakeGroup(run, kSecondColumn);
  return {std::move(first), std::move(second)};
}

Sample TakeDifferences(Messages& messages, Notices& notices, const TwoGroups& groups) {
  const auto& [first, second] = groups;
  NoteLengths(notices,
              {{first.column, first.values.size()}, {second.column, second.values.size()}});
  if (first.N() != second.N()) Fail(messages, "Unequal size of groups 1 and 2: No paired analysis");
  Sample differences;
  for (std::size_t i = 0; i < first.values.size(); ++i)
    differences.push_back(second.values[i] - first.values[i]);
  return differences;
}

void WritePairedHead(ResultsSheet& sheet, std::string_view title, const TwoGroups& groups) {
  sheet.Frame(title, DateBeside::kAnalyst);
  sheet.Row(6, "  First sample: Col: ", q::kFirst.column(groups.first.column));
  sheet.Row(7, "  Variable name for first group:", groups.first.name);
  sheet.Row(9, q::kSecond.column(groups.second.column));
  sheet.Row(10, "  Variable name for second group:", groups.second.name);
  sheet.Row(11, q::kPairs(groups.first.N()));
}

void DrawGroups(Messages& messages, Plots& plots, const TwoGroups& groups, Real first_centre,
                Real second_centre) {
  Insist(messages, kPlotFailure, [&] {
    Plot& plot = AddDotPlot(plots, kPlots[0], 2);
    plot.x.title = AxisTitle(groups);
    plot.AddPoints(DotsAt(1, groups.first.values));
    plot.AddPoints(DotsAt(2, groups.second.values));
    AddBar(plot, 1, first_centre);
    AddBar(plot, 2, second_centre);
  });
}

void DrawDifferences(Messages& messages, Plots& plots, std::span<const Real> differences,
                     Real centre) {
  Insist(messages, kPlotFailure, [&] {
    Plot& plot = AddDotPlot(plots, kPlots[0], 1);
    plot.y.title = "Difference";
    plot.AddPoints(DotsAt(1, differences));
    AddBar(plot, 1, centre);
  });
}

constinit const Analysis kTwoSamples{
    .id = "two-samples",
    .dialog = &frmGenTwoOptions,
    .procedures = kProcedures,
    .quantities = kQuantities,
    .manual = "two-samples.md",
};

}  // namespace quorval::general
