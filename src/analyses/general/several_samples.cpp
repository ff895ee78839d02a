// Mean and SD of each of several samples side by side, without the values that lie too far out.
//
// Unlike elsewhere, outliers are left out of the figures here; each sample is looked at once.
#include <algorithm>

#include "analyses/column_options.h"
#include "analyses/general/dot_plot.h"
#include "analyses/registry.h"
#include "core/intake.h"
#include "core/steps.h"
#include "stats/primitives.h"

namespace quorval::general {
namespace {

// --- Options

constexpr std::string_view kColumnGroup = "Select data columns:";
constexpr Field kColumnNote{.kind = FieldKind::kNote,
                            .group = kColumnGroup,
                            .caption = "(Each data column corresponds to one group)"};
constexpr Field kStartColumn{.key = "start-column",
                             .group = kColumnGroup,
                             .caption = "Compute means and SD from       Data Column No.(start):",
                             .demand = kWorksheetColumn};
constexpr Field kLastColumn{.key = "last-column",
                            .group = kColumnGroup,
                            .caption = "Data Column No. (last):",
                            .demand = kWorksheetColumn};
constexpr Field kOutlierLimit{.key = "outlier-limit",
                              .caption = "No. of SD units as outlier rejection limit:",
                              .initial = "4",
                              .demand = kPositiveLimit};

constexpr Field kFields[] = {kColumnNote, kStartColumn, kLastColumn, kOutlierLimit};

constexpr Rule kRules[] = {
    DemandsOf(kStartColumn, kLastColumn),
    DemandsOf(kOutlierLimit),
};

constexpr Dialog frmGenSeveralOptions{
    .window = "frmGenSeveralOptions",
    .title = "Quorval     General Statistics: Several Samples   ",
    .fields = kFields,
    .rules = kRules,
};
static_assert(WellFormed(frmGenSeveralOptions));

// --- Input

struct SeveralSamplesInput {
  ColumnSpan columns;
  std::vector<Sample> samples;
  Single outlier_limit;  // in SDs
};

std::vector<Sample> ReadSamples(Run& run, const ColumnSpan& columns) {
  std::vector<Sample> samples;
  for (int column = columns.start; column <= columns.last; ++column) {
    samples.push_back(ReadColumn(run, column).Numbers(run.notices));
    if (samples.back().size() < 2) run.Refuse(" Sample size < 2: No analysis ");
  }
  return samples;
}

bool AllEqual(std::span<const Sample> samples) {
  const Real first = samples.front().front();
  return std::ranges::all_of(samples, [&](const Sample& values) {
    const Range range = RangeOf(values);
    return range.min == first && range.max == first;
  });
}

SeveralSamplesInput ReadSeveralSamples(Run& run) {
  const ColumnSpan columns = TakeColumns(run, kStartColumn, kLastColumn, kAllColumns);
  std::vector<Sample> samples = ReadSamples(run, columns);
  if (AllEqual(samples)) run.Refuse(" No dispersion in variables: No analysis ");
  return {columns, std::move(samples), run.form.TextAsNumber32(kOutlierLimit)};
}

// --- Computation

struct Summary {
  int n;          // without the outliers
  Real mean, sd;  // likewise
  Sample outliers{};
};

Summary Summarise(Messages& messages, Real limit, const Sample& values) {
  Description described = DescribeSample(messages, values);
  const OutlierMarks marks = MarkOutliersBySD(messages, limit, values);
  Sample retained, outliers;
  for (std::size_t i = 0; i < values.size(); ++i)
    (marks.flags[i] ? outliers : retained).push_back(values[i]);
  if (marks.count > 0) described = DescribeSample(messages, retained);
  return {static_cast<int>(retained.size()), described.mean, described.sd, std::move(outliers)};
}

std::vector<Summary> SummariseSamples(Messages& messages, const SeveralSamplesInput& input) {
  std::vector<Summary> summaries;
  for (const Sample& values : input.samples)
    summaries.push_back(Summarise(messages, input.outlier_limit, values));
  return summaries;
}

// --- Report

constexpr Quantity kStart{"first.column", "Sample(s) from cols:", Unit::kNone, Width::kWhole};
constexpr Quantity kLast{"last.column", "Sample(s) from cols:", Unit::kNone, Width::kWhole};
constexpr Quantity kQuantities[] = {kStart, kLast};
constexpr NamedTable kSamples{"samples", "Number, count, mean and SD of each sample"};
constexpr NamedTable kOutliers{"outliers_of_samples", "The outliers of each sample"};
constexpr NamedTable kTables[] = {kSamples, kOutliers};

// From `row` on, below one another where they are more than a row holds.
int WriteOutliers(ResultsSheet& sheet, int row, int number, const Sample& outliers) {
  constexpr int kFirstColumn = 4;
  sheet.Row(row, "Outlier(s) in sample no.:", Blank{}, number);
  int column = kFirstColumn;
  for (Real value : outliers) {
    if (column > ResultsSheet::kColumns) {
      column = kFirstColumn;
      ++row;
    }
    sheet.Put(row, column++, value);
  }
  return row + 1;
}

void ReportSeveralSamples(ResultsSheet& sheet, const SeveralSamplesInput& input,
                          const std::vector<Summary>& summaries) {
  sheet.Row(2, Bold{" General Statistics Several Samples"});
  sheet.Row(3, Bold{" Project: "}, sheet.ProjectName());
  sheet.Row(11, kStart.caption, Blank{}, kStart(input.columns.start), kLast(input.columns.last));
  sheet.Row(13, "Sample no.:", "No. of obs.:", "Mean:", "SD:");
  int row = 14, number = 0;
  {
    const ResultsSheet::Listing listing(sheet, kSamples);
    for (const Summary& summary : summaries)
      sheet.Row(row++, ++number, summary.n, summary.mean, summary.sd);
  }
  ++row;
  number = 0;
  const ResultsSheet::Listing listing(sheet, kOutliers);
  for (const Summary& summary : summaries) {
    ++number;
    if (!summary.outliers.empty()) row = WriteOutliers(sheet, row, number, summary.outliers);
  }
}

// --- Plots

constexpr PlotWindow kPlots[] = {DotPlot("General Statistics Plot", "Sample no.")};
constexpr PlotJob kPlotJobs[] = {{.pictures = kPlots}};
constexpr std::string_view kPlotFault = "Error in dotplot routine";

void DrawSeveralSamples(Plots& plots, const SeveralSamplesInput& input,
                        const std::vector<Summary>& summaries) {
  Plot& plot = AddDotPlot(plots, kPlots[0], static_cast<int>(summaries.size()));
  Points means;
  for (std::size_t i = 0; i < summaries.size(); ++i) {
    plot.AddPoints(DotsAt(i + 1, input.samples[i]));
    means.push_back({i + 1, summaries[i].mean});
  }
  plot.AddPoints(std::move(means), Mark::kCross);
}

// --- The analysis

constexpr Procedure frmGenSeveralResults[] = {{
    .window = "frmGenSeveralResults",
    .title = "General Statistics: Several Samples",
    .menu = {.save = "&Save As", .print_plots = "P&rint Plot"},
    .print_header = "/cGeneral Statistics - Two Samples/rPage #/p/n",  // for several ones as well
    .plot_jobs = kPlotJobs,
    .plot_windows = kPlots,
    .failure = {.fault = "Error occurred", .aftermath = Aftermath::kWindowNotShown},
    .run = Steps<ReadSeveralSamples, SummariseSamples, ReportSeveralSamples,
                 kInsisting<kPlotFault, DrawSeveralSamples>>,
}};

}  // namespace

constinit const Analysis kSeveralSamples{
    .id = "several-samples",
    .dialog = &frmGenSeveralOptions,
    .procedures = frmGenSeveralResults,
    .quantities = kQuantities,
    .tables = kTables,
    .manual = "several-samples.md",
};

}  // namespace quorval::general
