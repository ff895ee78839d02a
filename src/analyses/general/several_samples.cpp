// Mean and SD of each of several samples side by side, without the values that lie too far out.
//
// Unlike elsewhere, outliers are left out of the figures here; each sample is looked at once.
#include <algorithm>

#include "analyses/column_options.h"
#include "analyses/general/dot_plot.h"
#include "analyses/registry.h"
#include "core/failure.h"
#include "core/intake.h"
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

// --- Intake

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

// --- Statistics

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

// --- The sheet

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

void WriteSheet(Run& run, const ColumnSpan& columns, std::span<const Summary> summaries) {
  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  sheet.Row(2, Bold{" General Statistics Several Samples"});
  sheet.Row(3, Bold{" Project: "}, run.context.ProjectName);
  sheet.Row(11, "Sample(s) from cols:", Blank{}, columns.start, columns.last);
  sheet.Row(13, "Sample no.:", "No. of obs.:", "Mean:", "SD:");
  int row = 14, number = 0;
  for (const Summary& summary : summaries)
    sheet.Row(row++, ++number, summary.n, summary.mean, summary.sd);
  ++row;
  number = 0;
  for (const Summary& summary : summaries) {
    ++number;
    if (!summary.outliers.empty()) row = WriteOutliers(sheet, row, number, summary.outliers);
  }
}

// --- The plot

void DrawSamples(Run& run, std::span<const Sample> samples, std::span<const Summary> summaries) {
  Plot& plot = AddDotPlot(run, "General Statistics Plot", static_cast<int>(samples.size()));
  plot.x.title = "Sample no.";
  Points means;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    plot.AddPoints(DotsAt(i + 1, samples[i]));
    means.push_back({i + 1, summaries[i].mean});
  }
  plot.AddPoints(std::move(means), Mark::kCross);
}

// --- The run

void RunSeveralSamples(Run& run) {
  const ColumnSpan columns = TakeColumns(run, kStartColumn, kLastColumn, kAllColumns);
  const std::vector<Sample> samples = ReadSamples(run, columns);
  if (AllEqual(samples)) run.Refuse(" No dispersion in variables: No analysis ");
  const Real limit = run.form.WholeNumber32(kOutlierLimit);
  std::vector<Summary> summaries;
  summaries.reserve(samples.size());
  for (const Sample& values : samples) summaries.push_back(Summarise(run.messages, limit, values));
  WriteSheet(run, columns, summaries);
  Insist(run.messages, "Error in dotplot routine", [&] { DrawSamples(run, samples, summaries); });
}

constexpr PlotWindow kPictures[] = {
    {.window = kDotPlotWindow, .caption = {}, .bitmap = " Chart2D1.bmp", .height = 350}};
constexpr PlotJob kPlotJobs[] = {{.pictures = kPictures}};

constexpr Procedure frmGenSeveralResults[] = {{
    .window = "frmGenSeveralResults",
    .title = "General Statistics: Several Samples",
    .menu = {.save = "&Save As", .print_plots = "P&rint Plot"},
    .print_header = "/cGeneral Statistics - Two Samples/rPage #/p/n",  // for several ones as well
    .plot_jobs = kPlotJobs,
    .failure = {.fault = "Error occurred", .aftermath = Aftermath::kWindowNotShown},
    .run = RunSeveralSamples,
}};

}  // namespace

constinit const Analysis kSeveralSamples{
    .id = "several-samples",
    .dialog = &frmGenSeveralOptions,
    .procedures = frmGenSeveralResults,
    .manual = "several-samples.md",
};

}  // namespace quorval::general
