// Location, spread, shape, normality, outliers and percentiles of one column of numbers.
#include "analyses/general/one_sample.h"

#include "analyses/general/dot_plot.h"
#include "analyses/registry.h"
#include "stats/moments.h"
#include "stats/normality.h"
#include "stats/percentile.h"
#include "stats/resampling.h"

namespace quorval::general {
namespace {

// --- Options

constexpr Field kColumn = InGroup(WithInitial(Text1, "2"), "Select Data Column No.:");

constexpr std::string_view kPercentileGroup = " Percentiles (optional):";
constexpr Field kPercentiles{
    .key = "percentiles",
    .kind = FieldKind::kCheck,
    .group = kPercentileGroup,
    .caption = "Display 10 - 90-Percentiles and (optional) user-defined percentiles",
    .initial = "off"};
constexpr When kPercentilesAsked{"percentiles", "on"};

constexpr Field PercentileField(std::string_view key) {
  return {.key = key,
          .group = kPercentileGroup,
          .caption = "Percentile (0 - 100):",
          .enabled = {kPercentilesAsked}};
}
constexpr Field SeField(std::string_view key, std::string_view caption) {
  return {.key = key,
          .kind = FieldKind::kCheck,
          .group = kPercentileGroup,
          .caption = caption,
          .initial = "off",
          .enabled = {kPercentilesAsked}};
}
constexpr Field kPercentile1 = PercentileField("percentile1");
constexpr Field kPercentile1Se = SeField("percentile1-se", "Include bootstrap SE");
constexpr Field kPercentile2 = PercentileField("percentile2");
constexpr Field kPercentile2Se = SeField("percentile2-se", "Include bootsrap SE");

constexpr Field kOutlierLimit{.key = "outlier-limit",
                              .group = "Outlier Detection:",
                              .caption = "Outlier limit (SD)  (assuming normality)",
                              .initial = "4"};

constexpr Field PlotNote(std::string_view text) {
  return {.kind = FieldKind::kNote, .group = "Plots: ", .caption = text};
}

constexpr Field kFields[] = {
    kColumn,
    kPercentiles,
    kPercentile1,
    kPercentile1Se,
    kPercentile2,
    kPercentile2Se,
    kOutlierLimit,
    kRelativeClasses,
    kRelativeClassCount,
    kAbsoluteClasses,
    kAbsoluteClassCount,
    PlotNote("Histogram of absolute numbers"),
    PlotNote("Cumulative distribution with Gauss"),
    PlotNote("Histogram of rel. frequencies with optional display of Gauss distribution and two "
             "user-defined percentiles"),
    PlotNote("Dot plot with median (bar)"),
    {.kind = FieldKind::kNote,
     .caption = "Descriptive Statistics: Mean, Median, SD, SEM, Coeff. of kurtosis, Coeff. of "
                "Skewness, Minimum and Maximum. Test of Normality. Optional Computation of "
                "Percentiles."},
};

constexpr Dialog frmGenOneOptions{
    .window = "frmGenOneOptions",
    .title = "Quorval     General Statistics: One Sample   ",
    .fields = kFields,
};
static_assert(WellFormed(frmGenOneOptions));

// --- Percentiles

std::optional<UserPercentile> TakeUserPercentile(const Run& run, std::span<const Real> x,
                                                 const Field& field, const Field& with_se) {
  if (run.form.Blank(field)) return std::nullopt;
  constexpr int kReplications = 200;
  const Single p = run.form.WholeNumber32(field);
  const Real t = p / 100 * x.size() + 0.5;
  if (t < 1 || t > x.size()) {
    run.form.Note(field,
                  ", which is too extreme for " + Counted(x.size(), "value") + " and is left out");
    return std::nullopt;
  }
  UserPercentile percentile{run.form.Text(field), AtPosition(x, t)};
  if (run.form.On(with_se)) percentile.se = BootstrapPositions(x, {{t}}, kReplications).front().sd;
  return percentile;
}

Percentiles TakePercentiles(const Run& run, std::span<const Real> x) {
  constexpr std::array<double, 9> kTens{0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9};
  Percentiles percentiles;
  for (std::size_t i = 0; i < kTens.size(); ++i)
    percentiles.tens[i] = AtPosition(x, kTens[i] * Real(x.size()) + 0.5);
  percentiles.user = {TakeUserPercentile(run, x, kPercentile1, kPercentile1Se),
                      TakeUserPercentile(run, x, kPercentile2, kPercentile2Se)};
  return percentiles;
}

// --- The run

OneSample TakeSample(Run& run) {
  const Column column = ReadDialogColumn(run);
  Sample x = SortAscending(column.Numbers32(run.notices));
  if (x.size() < 3) run.Refuse(" N < 3: No General Statistics! ");
  return {.name = column.header, .x = std::move(x)};
}

void RunOneSample(Run& run) {
  OneSample sample = TakeSample(run);
  const Sample& x = sample.x;
  sample.described = DescribeSample(run.messages, x);
  sample.median = AtPosition(x, MedianPosition(sample.N()));
  sample.skewness = Skewness(run.messages, x);
  sample.kurtosis = Kurtosis(x);
  sample.normality_P = AndersonDarling(run.messages, x);
  sample.outlier_limit = run.form.WholeNumber32(kOutlierLimit);
  sample.outliers = MarkOutliersBySD(run.messages, sample.outlier_limit, x);
  if (run.form.On(kPercentiles)) sample.percentiles = TakePercentiles(run, x);
  WriteOneSample(run, sample);
  DrawOneSample(run, sample);
}

// Each plot is printed by an entry of its own.
constexpr std::string_view kBitmap = " Chart2D1.bmp";
constexpr PlotWindow kDotPicture[] = {
    {.window = kDotPlotWindow, .caption = {}, .bitmap = kBitmap, .height = 350}};
constexpr PlotWindow kAbsolutePicture[] = {
    {.window = kAbsoluteHistogramWindow, .caption = {}, .bitmap = kBitmap, .height = 350}};
constexpr PlotWindow kRelativePicture[] = {
    {.window = kRelativeHistogramWindow, .caption = {}, .bitmap = kBitmap, .height = 350}};
constexpr PlotWindow kCumulativePicture[] = {
    {.window = kCumulativeWindow, .caption = {}, .bitmap = kBitmap, .height = 350}};
constexpr PlotJob kPlotJobs[] = {
    {.pictures = kDotPicture, .entry = "P&rint Dot Plot"},
    {.pictures = kAbsolutePicture, .entry = "Print &Histogram of Absolute Numbers"},
    {.pictures = kRelativePicture, .entry = "Print Histogram of Rel. &Frequencies"},
    {.pictures = kCumulativePicture, .entry = "Print &Cumulative Plot"},
};

constexpr Procedure frmGenOneResults[] = {{
    .window = "frmGenOneResults",
    .title = "General Statistics: One Sample",
    .menu = {.save = "&Save As"},
    .print_header = "/cGeneral Statistics - One sample/rPage #/p/n",
    .plot_jobs = kPlotJobs,
    .failure = {.fault = "Error", .second = "Error", .aftermath = Aftermath::kWindowNotShown},
    .run = RunOneSample,
}};

}  // namespace

constinit const Analysis kOneSample{
    .id = "one-sample",
    .dialog = &frmGenOneOptions,
    .procedures = frmGenOneResults,
    .manual = "one-sample.md",
};

}  // namespace quorval::general
