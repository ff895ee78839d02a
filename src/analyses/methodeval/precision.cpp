// Imprecision of one sample: the mean, SD and CV% of a single run, or the components of variance
// within and between runs.
//
// Outliers are listed, and stay in the estimates.  A single run is one column; of several runs each
// stands in a column of its own.
#include <array>
#include <vector>

#include "analyses/methodeval/method_evaluation.h"
#include "analyses/methodeval/variance_components.h"
#include "analyses/registry.h"
#include "core/steps.h"

namespace quorval::methodeval {
namespace precision {
namespace {

// --- Options

constexpr std::array<Choice, 2> kModes{{{"single", "Precision from single run (mean, SD and CV%)"},
                                        {"several", "Precision from several runs "}}};
constexpr Field kMode{
    .key = "mode", .kind = FieldKind::kChoice, .initial = "single", .choices = kModes};
constexpr When kSingle{kMode.key, "single"}, kSeveral{kMode.key, "several"};

constexpr std::string_view kLimitCaption = "No. of SD units as outlier rejection limit:";
constexpr std::string_view kSingleGroup = "Single run:", kSeveralGroup = "Several runs:";

constexpr Field kColumn{.key = "column",
                        .group = kSingleGroup,
                        .caption = "x values from Data Column No.:",
                        .initial = "2",
                        .enabled = {kSingle},
                        .demand = kDataColumn};
constexpr Field kOutlierLimit{.key = "outlier-limit",
                              .group = kSingleGroup,
                              .caption = kLimitCaption,
                              .initial = "4",
                              .enabled = {kSingle},
                              .demand = kPositiveLimit};
constexpr Field kStartColumn{.key = "start-column",
                             .group = kSeveralGroup,
                             .caption = "Compute means and SD from       Data Column No.(start):",
                             .enabled = {kSeveral},
                             .demand = kDataColumn};
constexpr Field kLastColumn{.key = "last-column",
                            .group = kSeveralGroup,
                            .caption = "Data Column No. (last):",
                            .enabled = {kSeveral},
                            .demand = kDataColumn};
constexpr Field kSeveralOutlierLimit{.key = "several-outlier-limit",
                                     .group = kSeveralGroup,
                                     .caption = kLimitCaption,
                                     .initial = "4",
                                     .enabled = {kSeveral},
                                     .demand = kPositiveLimit};
constexpr Field kShowMeans{.key = "show-means",
                           .kind = FieldKind::kCheck,
                           .group = kSeveralGroup,
                           .caption = "Display mean values",
                           .initial = "off",
                           .enabled = {kSeveral}};

constexpr Field kRunsNote{.kind = FieldKind::kNote,
                          .group = kSeveralGroup,
                          .caption = "(Each data column corresponds to one run)",
                          .enabled = {kSeveral}};

constexpr Field kFields[] = {kMode,       kColumn,   kOutlierLimit,        kStartColumn,
                             kLastColumn, kRunsNote, kSeveralOutlierLimit, kShowMeans};

constexpr Rule kRules[] = {
    DemandsOf(kColumn, kStartColumn, kLastColumn),
    DemandsOf(kOutlierLimit, kSeveralOutlierLimit),
};

constexpr Dialog frmMethPrecisionOpt{
    .window = "frmMethPrecisionOpt",
    .title = "Quorval     Precision Options   ",
    .heading = "Options for Precision  Determination",
    .fields = kFields,
    .rules = kRules,
};
static_assert(WellFormed(frmMethPrecisionOpt));

// --- Input

struct SingleRunInput {
  int column;
  std::string analyte;
  Sample x;
  Single outlier_limit;
};

SingleRunInput ReadSingleRun(Run& run) {
  Column column = ReadColumn(run, TakeColumn(run, kColumn));
  SingleRunInput input{.column = column.number,
                       .analyte = std::move(column.header),
                       .x = column.Numbers(run.notices),
                       .outlier_limit = run.form.TextAsNumber32(kOutlierLimit)};
  if (input.x.size() < 2) run.Refuse(kFewerThanTwo);
  RefuseWithoutDispersion(run, input.x);
  return input;
}

struct RunsInput {
  Single outlier_limit;
  bool show_means;
  ColumnSpan columns;
  std::vector<Sample> runs{};
  std::vector<int> outlier_columns{};  // those that hold a marked value
};

// A run is examined before the next is read: its box comes before what the next is refused for.
RunsInput ReadRuns(Run& run) {
  RunsInput input{.outlier_limit = run.form.TextAsNumber32(kSeveralOutlierLimit),
                  .show_means = run.form.On(kShowMeans),
                  .columns = TakeColumns(run, kStartColumn, kLastColumn)};
  for (int column = input.columns.start; column <= input.columns.last; ++column) {
    const Sample& values = input.runs.emplace_back(ReadColumn(run, column).Numbers(run.notices));
    if (values.empty()) run.Refuse(kNoValues);
    if (values.size() == 1) Raise(Fault::Kind::kDivisionByZero);  // a run without an SD
    if (MarkOutliersBySD(run.messages, input.outlier_limit, values).count > 0)
      input.outlier_columns.push_back(column);
  }
  return input;
}

// --- Computation

struct SingleRunResult {
  Real mean, SD;
  OutlierMarks outliers;
};

SingleRunResult ComputeSingleRun(Messages& messages, const SingleRunInput& input) {
  const Description d = DescribeSample(messages, input.x);
  return {.mean = d.mean,
          .SD = d.sd,
          .outliers = MarkOutliersBySD(messages, input.outlier_limit, input.x)};
}

struct RunsResult {
  VarianceComponents components;
  Sample means;  // of the runs
};

RunsResult ComputeRuns(const RunsInput& input) {
  RunsResult result{.components = EstimateComponents(input.runs), .means = {}};
  for (const Sample& values : input.runs) result.means.push_back(Sum(values) / values.size());
  return result;
}

// --- Report

constexpr Quantity kColumnUsed = Captioned(quantity::kColumn, "  Selected Col.:  ");
constexpr Quantity kCount = Captioned(quantity::kCount, "  No of obs:  ");
constexpr Quantity kMean = Captioned(quantity::kMean, "  Mean:  ");
constexpr Quantity kSD = Captioned(quantity::kSd, "  SD:  ");
constexpr Quantity kCV = Captioned(quantity::kCv, "  CV%: ");
constexpr Quantity kOutliers = Captioned(quantity::kOutliers, "  Outlier(s) present");
constexpr Quantity kLimit = Captioned(quantity::kOutlierLimit, "  Outlier Limit (no. of SDs):");

constexpr Quantity kFirst = Captioned(quantity::kFirstColumn, "  First Data Column:   Col. no.:  ");
constexpr Quantity kLast = Captioned(quantity::kLastColumn, "  Last Data Column:   Col. no.:  ");
constexpr Quantity kRuns{"runs", "  No of runs: :  ", Unit::kNone, Width::kWhole};
constexpr Quantity kMeanOfRuns = Captioned(quantity::kMean, "  Mean of all run means:  ");
constexpr Quantity kWithin = Captioned(quantity::kSDWithin, "  Pooled Within-run SD: ");
constexpr Quantity kBetween{"sd.between", "  Between-run SD: ", Unit::kMeasurand};
constexpr Quantity kTotal{"sd.total", "  Total SD: ", Unit::kMeasurand};
constexpr Quantity kLimitOfRuns =
    Captioned(quantity::kOutlierLimit, "  Outlier limit (no. of SDs): ");

constexpr Quantity kQuantities[] = {kColumnUsed, kCount,   kMean,  kSD,   kCV,
                                    kOutliers,   kLimit,   kFirst, kLast, kRuns,
                                    kWithin,     kBetween, kTotal};
constexpr NamedTable kRunMeans{"run_means", "The columns and their means"};
constexpr NamedTable kTables[] = {kOutlierList, kOutlierColumns, kRunMeans};

void WriteOutliers(ResultsSheet& sheet, const SingleRunInput& input, const OutlierMarks& outliers) {
  constexpr int kMostListed = 5;
  if (outliers.count > 0) {
    sheet.Row(11, kOutliers(outliers.count));
  } else {
    sheet.Row(11, "  No outlier(s) present");
  }
  sheet.Row(12, kLimit(Real(input.outlier_limit)));
  const ResultsSheet::Listing listing(sheet, kOutlierList);
  int row = 13;
  for (std::size_t i : FirstMarked(outliers, kMostListed))
    sheet.Row(row++, "  Outlier:", input.x[i], "  No.:", static_cast<int>(i) + 1);
  if (outliers.count > kMostListed) sheet.Row(row, "  More than 5 outliers that are not shown");
}

void ReportSingleRun(ResultsSheet& sheet, const SingleRunInput& input,
                     const SingleRunResult& result) {
  sheet.Row(2, Bold{"  Mean, SD and CV% for a single run"});
  sheet.Row(3, "  Project:", sheet.ProjectName());
  sheet.Row(4, kColumnUsed(input.column));
  sheet.Row(5, "   Analyte: ", input.analyte.empty() ? " " : input.analyte);
  sheet.Row(6, kCount(static_cast<int>(input.x.size())));
  sheet.Row(7, kMean(result.mean));
  sheet.Row(8, kSD(result.SD));
  if (const auto CV = PercentOf(result.SD, Abs(result.mean))) {
    sheet.Row(9, kCV(*CV));
  } else {
    sheet.Row(9, "  CV% n. d. ");
  }
  WriteOutliers(sheet, input, result.outliers);
}

// Returns the row below them.
int WriteOutlierColumns(ResultsSheet& sheet, int row, const RunsInput& input) {
  sheet.Row(row++, kLimitOfRuns(Real(input.outlier_limit)));
  const ResultsSheet::Listing listing(sheet, kOutlierColumns);
  for (int column : input.outlier_columns)
    sheet.Row(row++, "  Outlier(s) identified in Col. no.  ", column);
  if (input.outlier_columns.empty()) sheet.Row(row++, "  No outliers identified ");
  return row;
}

void WriteMeans(ResultsSheet& sheet, int row, const RunsInput& input, const RunsResult& result) {
  sheet.Row(row++, "  Display of col means ");
  sheet.Row(row++, "  Col. no. ", "  Col. mean ");
  const ResultsSheet::Listing listing(sheet, kRunMeans);
  int column = input.columns.start;
  for (Real mean : result.means) sheet.Row(row++, column++, mean);
}

void ReportRuns(ResultsSheet& sheet, const RunsInput& input, const RunsResult& result) {
  const VarianceComponents& components = result.components;
  sheet.Row(2, Bold{"  Precision from multiple runs"});
  sheet.Row(3, "  Project:", sheet.ProjectName());
  sheet.Row(4, kFirst(input.columns.start));
  sheet.Row(5, kLast(input.columns.last));
  sheet.Row(6, kRuns(static_cast<int>(input.runs.size())));
  sheet.Row(7, kMeanOfRuns(components.M));
  sheet.Row(8, kWithin(components.Sw));
  if (components.Sb) {
    sheet.Row(10, kBetween(*components.Sb));
    sheet.Row(11, kTotal(*components.St));
  } else {
    sheet.Row(10, kBetween.caption, "  Negative estimate ");
    sheet.Row(11, kTotal.caption, "  Can not be estimated ");
  }
  const int row = WriteOutlierColumns(sheet, 13, input);
  if (input.show_means) WriteMeans(sheet, row, input, result);
}

// --- Plots

constexpr PlotWindow kSingleRunPlots[] = {{.window = "frmPrecSPlot",
                                           .caption = "Sample values",
                                           .x_title = "Observation no.",
                                           .bitmap = " Chart2D1.bmp",
                                           .height = 250}};
constexpr PlotWindow kRunsPlots[] = {{.window = "frmPrecSPlot",
                                      .caption = "Values of all runs",
                                      .x_title = "Observation no.",
                                      .bitmap = " Chart2D1.bmp",
                                      .height = 250},
                                     {.window = "frmPrecMPlot",
                                      .caption = "Run means",
                                      .x_title = "Run no.",
                                      .bitmap = " Chart2D1M.bmp",
                                      .height = 250}};
constexpr PlotJob kSingleRunJobs[] = {{.pictures = kSingleRunPlots}};
constexpr PlotJob kRunsJobs[] = {{.pictures = kRunsPlots}};

void DrawSingleRun(Plots& plots, const SingleRunInput& input, const SingleRunResult& result) {
  Plot& plot = AddPlot(plots, kSingleRunPlots[0]);
  plot.label = "Plot of Sample Values with mean, +/- 2SD and +/-3SD";
  plot.AddPoints(AgainstNumber(input.x));
  AddSdLines(plot, result.mean, result.SD, {1, input.x.size()});
  if (result.outliers.count == 0) return;
  Points marked;
  for (std::size_t i : FirstMarked(result.outliers, input.x.size()))
    marked.push_back({i + 1, input.x[i]});
  plot.AddPoints(std::move(marked), Mark::kCross);
}

void DrawRuns(Plots& plots, const RunsInput& input, const RunsResult& result) {
  Sample all;
  for (const Sample& values : input.runs) all.insert(all.end(), values.begin(), values.end());
  Plot& values = AddPlot(plots, kRunsPlots[0]);
  values.label = "Plot of Total No. of Sample Values";
  values.AddPoints(AgainstNumber(all));
  Plot& means = AddPlot(plots, kRunsPlots[1]);
  means.label = "Plot of run mean values";
  means.AddPoints(AgainstNumber(result.means));
}

// --- The analysis

constexpr Procedure kSingleRun{
    .when = kSingle,
    .window = "frmMethPrecision",
    .title = "Determination of Precision",
    .menu = MenuWith("&Select Options for Precision Evaluation"),
    .print_header = "/cPrecision Results/rPage #/p/n",
    .plot_jobs = kSingleRunJobs,
    .plot_windows = kSingleRunPlots,
    .failure = ClosingWith("Error occurred in Precision analysis"),
    .run = Steps<ReadSingleRun, ComputeSingleRun, ReportSingleRun, DrawSingleRun>,
};
// The same window with plots of its own.
constexpr Procedure SeveralRuns() {
  Procedure procedure =
      ForChoice(kSingleRun, kSeveral, Steps<ReadRuns, ComputeRuns, ReportRuns, DrawRuns>);
  procedure.plot_jobs = kRunsJobs;
  procedure.plot_windows = kRunsPlots;
  return procedure;
}

constexpr Procedure kProcedures[] = {kSingleRun, SeveralRuns()};

}  // namespace
}  // namespace precision

constinit const Analysis kPrecision{
    .id = "precision",
    .dialog = &precision::frmMethPrecisionOpt,
    .procedures = precision::kProcedures,
    .quantities = precision::kQuantities,
    .tables = precision::kTables,
    .manual = "precision.md",
};

}  // namespace quorval::methodeval
