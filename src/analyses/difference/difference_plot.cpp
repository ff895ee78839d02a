// Difference plots of two methods (Bland and Altman, Lancet 1986;1:307-310): the difference y - x
// of every sample against the mean of x and y, in absolute units and relative to the mean.
//
// Each sample was measured once by both methods, or twice, and then its means are compared.  The
// limits of agreement are estimated from the differences; the procedure for limits that the user
// sets reads in single_user_limits.cpp.  Everything is computed before the sheet is written.
#include "analyses/difference/difference_plot.h"

#include "analyses/colours.h"
#include "analyses/difference/estimated_limits.h"
#include "analyses/registry.h"
#include "core/steps.h"

namespace quorval::difference {
namespace {

// --- Input

DifferenceInput ReadPairs(Run& run) {
  const Options options = ReadOptions(run.form);
  return {options, TakePairs(run, options.scale)};
}

DifferenceInput ReadDuplicates(Run& run) {
  const Options options = ReadOptions(run.form);
  return {options, TakeDuplicates(run, options.scale)};
}

// --- Computation

struct DifferenceResult {
  EstimatedLimits absolute;
  std::optional<EstimatedLimits> relative;  // where the pairs have relative differences
  Description x, y;
};

DifferenceResult ComputeDifferences(Messages& messages, const DifferenceInput& input) {
  const PairedData& data = input.data;
  const auto estimate = [&](const Sample& difference) {
    return EstimateLimits(messages, data.mean, difference, input.options.outlier_limit);
  };
  EstimatedLimits absolute = estimate(data.difference);
  std::optional<EstimatedLimits> relative;
  if (data.relative) relative = estimate(*data.relative);
  const Description x = DescribeSample(messages, data.x);
  const Description y = DescribeSample(messages, data.y);
  return {std::move(absolute), std::move(relative), x, y};
}

// --- Report

constexpr auto kQuantities =
    Joined(kHeadQuantities, kXRows.All(), kYRows.All(), kAbsoluteRows.All(), kFractionRows.All(),
           kPercentRows.All(), kUserLimitQuantities);
constexpr NamedTable kTables[] = {kOutlierList, kRelativeOutliers, kPairsTable};

const DifferenceRows& RelativeRows(const Scale& scale) {
  return scale.percent ? kPercentRows : kFractionRows;
}

// --- Report: one measurement by each method

void WriteMethod(ResultsSheet& sheet, int row, const MethodRows& rows, const Description& method) {
  sheet.Row(row, rows.mean(method.mean));
  sheet.Row(row + 1, rows.sd(method.sd));
  sheet.Row(row + 2, rows.min(method.min), rows.max(method.max));
}

void WriteEstimates(ResultsSheet& sheet, int row, const DifferenceRows& rows,
                    std::string_view tested, const EstimatedLimits& limits) {
  sheet.Row(row, rows.mean(limits.mean), rows.se(limits.SE));
  sheet.Row(row + 1, tested);
  sheet.Row(row + 2, rows.t(limits.t), limits.P);
  sheet.Row(row + 3, rows.lower(limits.lower), rows.upper(limits.upper));
  sheet.Row(row + 4, rows.t95(limits.t95), rows.sd(limits.SD));
  sheet.Row(row + 6, rows.r(limits.r), limits.P_of_r);
}

struct ListedRows {
  int count, first, more;
};

void WriteOutlierPairs(ResultsSheet& sheet, const ListedRows& at, const DifferenceRows& rows,
                       const EstimatedLimits& limits, const DifferenceInput& input) {
  WriteOutliers(sheet,
                {.count = at.count,
                 .first = at.first,
                 .more = at.more,
                 .outliers = rows.outliers,
                 .outlier_limit = rows.outlier_limit,
                 .list = rows.outlier_list},
                limits.outliers, input.options.outlier_limit, input.data.x, input.data.y);
}

void ReportPairs(ResultsSheet& sheet, const DifferenceInput& input,
                 const DifferenceResult& result) {
  const Scale& scale = input.options.scale;
  const auto& [absolute, relative, x, y] = result;
  sheet.Frame("  Results of Difference plots (single)(row 1 - 80)", DateBeside::kAnalyst);
  WriteXYColumns(sheet, input.data.Count(), input.data.columns);
  WriteMethod(sheet, 11, kXRows, x);
  WriteMethod(sheet, 14, kYRows, y);
  WriteEstimates(sheet, 18, kAbsoluteRows,
                 scale.Word("  t-test for paired absolute Y - X differences:",
                            "  t-test for paired Y - X differences:"),
                 absolute);
  WriteOutlierPairs(sheet, {.count = 28, .first = 31, .more = 41}, kAbsoluteRows, absolute, input);

  sheet.Row(43, Bold{scale.Word("Results for relative Y-X difference plot",
                                "Results for percent Y-X difference plot")});
  WriteEstimates(sheet, 47, RelativeRows(scale),
                 scale.Word("  t-test for paired relative Y - X differences:",
                            "  t-test for paired percent Y - X differences:"),
                 *relative);
  WriteOutlierPairs(sheet, {.count = 55, .first = 60, .more = 72}, RelativeRows(scale), *relative,
                    input);
  WriteListing(sheet,
               {.heading = 73,
                .column_heads = 74,
                .first_pair = 75,
                .percent_heading = "Display of x, y, diffs and percent diffs",
                .percent_column = "Percent Y-X"},
               input);
}

// --- Report: the means of two measurements by each method

constexpr std::string_view kSD = "  SD:";
constexpr std::string_view kSE = "  SE:";
constexpr std::string_view kP = "  P:";
constexpr std::string_view kOutlierLimit = "Outlier limit:";

void WriteDuplicateHead(ResultsSheet& sheet, const DifferenceInput& input,
                        const DifferenceResult& result) {
  const auto& [n, x, y, x1, x2, y1, y2] = kHeadQuantities;
  const std::array<int, 4>& columns = input.data.columns;
  sheet.Frame("  Results of Difference plots (dupl.)(row 1 - 55)", DateBeside::kAnalyst);
  sheet.Row(8, "  No of (x1 ,x2, y1, y2) obs: ", n(input.data.Count()));
  sheet.Row(9, "  X = (x1+x2)/2 and Y = (y1+y2)/2 ");
  sheet.Row(11, "  x1: Col:", x1(columns[0]));
  sheet.Row(12, "  x2: Col:", x2(columns[1]));
  sheet.Row(13, "  y1: Col:", y1(columns[2]));
  sheet.Row(14, "  y2: Col:", y2(columns[3]));
  const Description &X = result.x, &Y = result.y;
  sheet.Row(16, kXRows.mean(X.mean), kSD, kXRows.sd(X.sd));
  sheet.Row(17, "  Range of X (min - max):", kXRows.min(X.min), kXRows.max(X.max));
  sheet.Row(19, kYRows.mean(Y.mean), kSD, kYRows.sd(Y.sd));
  sheet.Row(20, "  Range of Y (min - max):", kYRows.min(Y.min), kYRows.max(Y.max));
}

// Four rows of estimates, the row of the number of outliers, and their list.
struct DuplicateWords {
  std::string_view mean, t, interval, correlation, outliers, no_outliers;
};

void WriteDuplicateEstimates(ResultsSheet& sheet, int row, const DifferenceRows& rows,
                             const DuplicateWords& words, const EstimatedLimits& limits,
                             const DifferenceInput& input) {
  const auto limit = rows.outlier_limit(Real(input.options.outlier_limit));
  sheet.Row(row, words.mean, rows.mean(limits.mean), kSD, rows.sd(limits.SD), kSE,
            rows.se(limits.SE));
  sheet.Row(row + 1, words.t, rows.t(limits.t), kP, limits.P);
  sheet.Row(row + 2, words.interval, rows.lower(limits.lower), rows.upper(limits.upper));
  sheet.Row(row + 3, words.correlation, rows.r(limits.r), kP, limits.P_of_r);
  if (limits.outliers.count > 0)
    sheet.Row(row + 5, words.outliers, rows.outliers(limits.outliers.count), kOutlierLimit, limit,
              "SD");
  else
    sheet.Row(row + 5, words.no_outliers);
  const int first = row + 6;
  ListFirstMarked(sheet, rows.outlier_list, limits.outliers, first + kMostOutliersListed,
                  "  More than 5 outliers that are not shown", [&](int listed, std::size_t i) {
                    sheet.Row(first + listed, input.data.ids[i], input.data.x[i], input.data.y[i]);
                  });
}

void ReportDuplicates(ResultsSheet& sheet, const DifferenceInput& input,
                      const DifferenceResult& result) {
  WriteDuplicateHead(sheet, input, result);
  WriteDuplicateEstimates(sheet, 22, kAbsoluteRows,
                          {.mean = "  Mean paired Y - X diff.:",
                           .t = "  t-test for paired Y - X diff.: t = ",
                           .interval = "  95%-interval for differences: ",
                           .correlation = "  Correlation for abs. Y-X diff. plot: r = ",
                           .outliers = "  No. of outliers identified for Y-X diff.:",
                           .no_outliers = "  No outliers identified for Y-X diff. "},
                          result.absolute, input);
  if (result.absolute.outliers.count == 0) {
    sheet.Put(27, 2, kOutlierLimit);
    sheet.Put(27, 3, kAbsoluteRows.outlier_limit(Real(input.options.outlier_limit)));
    sheet.Put(27, 4, "SD");
  }
  if (!result.relative) return;

  constexpr DuplicateWords kFraction{.mean = "  Mean paired rel. Y - X diff.:",
                                     .t = "  t-test for paired Y - X diff.: t = ",
                                     .interval = "  95%-interval for rel. differences: ",
                                     .correlation = "  Correlation for rel. Y-X diff. plot: r = ",
                                     .outliers = "  No. of outliers for rel. Y-X diff.:",
                                     .no_outliers = "  No outliers for rel. Y-X diff. "};
  constexpr DuplicateWords kPercent{.mean = "  Mean paired perc. Y - X diff.:",
                                    .t = "  t-test for paired perc. Y - X diff.: t = ",
                                    .interval = "  95%-interval for perc. differences: ",
                                    .correlation = "  Correlation for perc. Y-X diff. plot: r = ",
                                    .outliers = "  No. of outliers for perc. Y-X diff.:",
                                    .no_outliers = "  No outliers for perc. Y-X diff. "};
  const Scale& scale = input.options.scale;
  sheet.Row(35, scale.Word("  Results for relative paired Y - X diff.:",
                           "  Results for percent paired Y - X diff.:"));
  WriteDuplicateEstimates(sheet, 39, RelativeRows(scale), scale.percent ? kPercent : kFraction,
                          *result.relative, input);
  WriteListing(sheet, {.heading = 52, .column_heads = 53, .first_pair = 54}, input);
}

// --- Plots

// The points, the mean (blue, dashed) and the limits (green, dotted) from the smallest pair mean to
// the largest, and the outliers where there are any.
void DrawEstimates(Plot& plot, std::string_view label, const PairedData& data,
                   std::span<const Real> difference, const EstimatedLimits& limits) {
  const auto level = [&](Real value) {
    return Points{{data.mean_range.min, value}, {data.mean_range.max, value}};
  };
  plot.label = label;
  plot.AddPoints(Select(data.mean, difference, limits.outliers, false));
  plot.AddLine(level(limits.mean), Pattern::kDashed).colour = kBlue;
  AddLimit(plot, level(limits.lower));
  AddLimit(plot, level(limits.upper));
  if (limits.outliers.count > 0)
    plot.AddPoints(Select(data.mean, difference, limits.outliers, true), Mark::kCross);
}

void DrawBoth(Plots& plots, const DifferenceInput& input, const DifferenceResult& result,
              std::string_view relative_caption) {
  const PairedData& data = input.data;
  DrawEstimates(AddPlot(plots, kPlots[0]),
                "Mean (blue dashed line) with +/-t-95 % x SD limits (green dot lines)", data,
                data.difference, result.absolute);
  if (result.relative)
    DrawEstimates(AddRelativePlot(plots, relative_caption, input.options.scale),
                  "Mean (blue dashed line) with +/-t-95% x SD limits (green dot lines)", data,
                  *data.relative, *result.relative);
}

void DrawPairs(Plots& plots, const DifferenceInput& input, const DifferenceResult& result) {
  DrawBoth(plots, input, result, input.options.scale.Word(kRelativeCaption, kPercentCaption));
}

void DrawDuplicates(Plots& plots, const DifferenceInput& input, const DifferenceResult& result) {
  DrawBoth(plots, input, result,
           input.options.scale.Word(
               "Relative Bland-Altman Plot (Rel. y-x differences against mean of x and y)",
               "Percent Bland-Altman Plot (Perc. y-x differences against mean of x and y)"));
}

// --- The analysis

constexpr PlotJob kPlotJobs[] = {{.pictures = std::span(kPlots).first(1)},
                                 {.pictures = std::span(kPlots).last(1)}};

constexpr FileMenu MenuWith(std::string_view back) {
  return {.back = back, .print = "&Print ", .save = "&Save As", .export_results = "E&xport"};
}

// Of pairs; unequal columns count as none.
constexpr Procedure PairsProcedure(When when, void (*run)(Run&)) {
  return {.when = when,
          .window = "frmBAs",
          .title = "Difference Plots      Single (x, y) data set",
          .menu = MenuWith("&Select Options for Difference Plot"),
          .print_header = "/cDifference Plot/rPage #/p/n",
          .plot_jobs = kPlotJobs,
          .plot_windows = kPlots,
          .failure = {.fault = "Error occurred in Difference Plot analysis",
                      .second = kTooFewPairs,
                      .aftermath = Aftermath::kWindowCloses},
          .run = run};
}

constexpr Procedure DuplicatesProcedure() {
  Procedure procedure = PairsProcedure(
      kDuplicateMode, Steps<ReadDuplicates, ComputeDifferences, ReportDuplicates, DrawDuplicates>);
  procedure.window = "frmBAd";
  procedure.title = "Quorval   Difference Plot Section      Duplicate data (id, x1, x2, y1, y2) ";
  procedure.menu = MenuWith("&Select options for difference plots");
  procedure.plot_button = {"Show X2-X1 and Y2-Y1 diff. plots", kPlots[0].window};
  procedure.failure.second = {};
  return procedure;
}

constexpr Procedure kProcedures[] = {
    DuplicatesProcedure(),
    PairsProcedure(kLimitsEstimated, Steps<ReadPairs, ComputeDifferences, ReportPairs, DrawPairs>),
    PairsProcedure({}, RunUserLimits),
};

}  // namespace

void WriteListing(ResultsSheet& sheet, const ListingLayout& layout, const DifferenceInput& input) {
  const auto& [options, data] = input;
  if (!options.show_data) return;
  sheet.Row(layout.heading,
            options.scale.Word("Display of x, y, diffs and rel. diffs", layout.percent_heading));
  sheet.Row(layout.column_heads, "X", "Y", "Y-X",
            options.scale.Word("Rel. Y-X", layout.percent_column));
  const ResultsSheet::Listing listing(sheet, kPairsTable);
  int row = layout.first_pair;
  for (std::size_t i = 0; i < data.x.size(); ++i)
    sheet.Row(row++, data.x[i], data.y[i], data.difference[i], (*data.relative)[i]);
}

Plot& AddRelativePlot(Plots& plots, std::string_view caption, const Scale& scale) {
  Plot& plot = AddPlot(plots, kPlots[1]);
  plot.caption = caption;
  plot.y.title = scale.Word("Difference y - x, fraction of mean", "Difference y - x, % of mean");
  return plot;
}

void AddLimit(Plot& plot, Points points) {
  plot.AddLine(std::move(points), Pattern::kDotted).colour = kGreen;
}

constinit const Analysis kDifference{
    .id = "difference",
    .dialog = &frmBAOpt,
    .procedures = kProcedures,
    .quantities = kQuantities,
    .tables = kTables,
    .manual = "difference-plot.md",
};

}  // namespace quorval::difference
