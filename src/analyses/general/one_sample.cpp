// Location, spread, shape, normality, outliers and percentiles of one column of numbers.
#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "analyses/class_options.h"
#include "analyses/distribution_plots.h"
#include "analyses/general/dot_plot.h"
#include "analyses/outlier_list.h"
#include "analyses/quantities.h"
#include "analyses/registry.h"
#include "core/intake.h"
#include "core/steps.h"
#include "stats/gaussian.h"
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

constexpr Field kRelativeClasses =
    ClassChoiceField("relative-classes", "No. of class divisions in rel. freq. histogram: ");
constexpr Field kRelativeClassCount = ClassCountField("relative-class-count", kRelativeClasses);
constexpr Field kAbsoluteClasses =
    ClassChoiceField("absolute-classes", "No. of class divisions in abs. no. histogram:");
constexpr Field kAbsoluteClassCount = ClassCountField("absolute-class-count", kAbsoluteClasses);

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

// --- Input

// A percentile that the user asked for and the sample can give.
struct AskedPercentile {
  std::string text;  // as typed
  Real t;            // its position among the ordered values
  bool with_se;      // by bootstrap
};

struct OneSampleInput {
  std::string name;        // the column's title
  Sample x;                // 32-bit values, ascending
  Single outlier_limit{};  // in SDs
  bool percentiles;        // are asked for
  std::array<std::optional<AskedPercentile>, 2> asked{};
  ClassOptions absolute_classes, relative_classes;

  Real N() const { return x.size(); }
};

std::optional<AskedPercentile> TakePercentile(const Form& form, const Sample& x, const Field& field,
                                              const Field& with_se) {
  if (form.Blank(field)) return std::nullopt;
  const Single p = form.TextAsNumber32(field);
  const Real t = p / 100 * x.size() + 0.5;
  if (t < 1 || t > x.size()) {
    form.Note(field,
              ", which is too extreme for " + Counted(x.size(), "value") + " and is left out");
    return std::nullopt;
  }
  return AskedPercentile{form.Text(field), t, form.On(with_se)};
}

OneSampleInput ReadOneSample(Run& run) {
  const Form& form = run.form;
  const Column column = ReadDialogColumn(run);
  OneSampleInput input{.name = column.header,
                       .x = SortAscending(column.Numbers32(run.notices)),
                       .percentiles = form.On(kPercentiles),
                       .absolute_classes = {form, kAbsoluteClasses, kAbsoluteClassCount},
                       .relative_classes = {form, kRelativeClasses, kRelativeClassCount}};
  if (input.x.size() < 3) run.Refuse(" N < 3: No General Statistics! ");
  input.outlier_limit = form.TextAsNumber32(kOutlierLimit);
  if (input.percentiles)
    input.asked = {TakePercentile(form, input.x, kPercentile1, kPercentile1Se),
                   TakePercentile(form, input.x, kPercentile2, kPercentile2Se)};
  return input;
}

// --- Computation

struct Percentile {
  Real value;
  std::optional<Real> se{};
};

struct OneSampleResult {
  Description described;
  Real median;
  Real skewness, kurtosis;
  std::string normality_P;
  OutlierMarks outliers;
  std::array<Real, 9> tens{};  // the 10th to the 90th percentile
  std::array<std::optional<Percentile>, 2> asked{};
};

Percentile EstimatePercentile(const Sample& x, const AskedPercentile& asked) {
  constexpr int kReplications = 200;
  Percentile percentile{AtPosition(x, asked.t)};
  if (asked.with_se) percentile.se = BootstrapPositions(x, {{asked.t}}, kReplications).front().sd;
  return percentile;
}

void EstimatePercentiles(const OneSampleInput& input, OneSampleResult& result) {
  constexpr std::array<double, 9> kTens{0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9};
  for (std::size_t i = 0; i < kTens.size(); ++i)
    result.tens[i] = AtPosition(input.x, kTens[i] * input.N() + 0.5);
  for (std::size_t k = 0; k < input.asked.size(); ++k)
    if (input.asked[k]) result.asked[k] = EstimatePercentile(input.x, *input.asked[k]);
}

OneSampleResult ComputeOneSample(Messages& messages, const OneSampleInput& input) {
  const Sample& x = input.x;
  OneSampleResult result{.described = DescribeSample(messages, x),
                         .median = AtPosition(x, MedianPosition(input.N())),
                         .skewness = Skewness(messages, x),
                         .kurtosis = Kurtosis(x),
                         .normality_P = std::string(AndersonDarling(messages, x)),
                         .outliers = MarkOutliersBySD(messages, input.outlier_limit, x)};
  if (input.percentiles) EstimatePercentiles(input, result);
  return result;
}

// --- Report

constexpr Quantity kCount = Captioned(quantity::kCount, "  Number of observations: ");
constexpr Quantity kMedian = Captioned(quantity::kMedian, "  Median(see dot plot): ");
constexpr Quantity kSkewnessSd{"skewness.sd", "  SD of skewness: "};
constexpr Quantity kKurtosisSd{"kurtosis.sd", "  SD of kurtosis: "};
constexpr Quantity kOutliers = Captioned(quantity::kOutliers, "  Number of outlier(s) detected: ");
constexpr Quantity kLimit =
    Captioned(quantity::kOutlierLimit, "  Number of SDs as outlier limit: ");
constexpr auto kTenPercentiles = std::to_array<Quantity>({
    {"percentile10", "  10-percentile:", Unit::kMeasurand},
    {"percentile20", "  20-percentile:", Unit::kMeasurand},
    {"percentile30", "  30-percentile:", Unit::kMeasurand},
    {"percentile40", "  40-percentile:", Unit::kMeasurand},
    {"percentile50", "  50-percentile:", Unit::kMeasurand},
    {"percentile60", "  60-percentile:", Unit::kMeasurand},
    {"percentile70", "  70-percentile:", Unit::kMeasurand},
    {"percentile80", "  80-percentile:", Unit::kMeasurand},
    {"percentile90", "  90-percentile:", Unit::kMeasurand},
});
struct AskedRows {
  std::string_view heading;
  Quantity percentile, value, se;
};
constexpr std::string_view kSeCaption = "  Bootstrap SE of User-specified percentile:";
constexpr AskedRows kAsked1{"  User-specified percentile(s):",
                            {"user1.percentile", "  Percentile:", Unit::kPercent},
                            {"user1.value", "  Value:", Unit::kMeasurand},
                            {"user1.value.se", kSeCaption, Unit::kMeasurand}};
constexpr AskedRows kAsked2{"  User-specified percentile:",
                            {"user2.percentile", "  Percentile:", Unit::kPercent},
                            {"user2.value", "  Value:", Unit::kMeasurand},
                            {"user2.value.se", kSeCaption, Unit::kMeasurand}};
constexpr auto kQuantities =
    Joined(std::array{kCount, quantity::kMin, quantity::kMax, kMedian, quantity::kMean,
                      quantity::kSd, quantity::kMeanSe, quantity::kSkewness, kSkewnessSd,
                      quantity::kKurtosis, kKurtosisSd, quantity::kNormalityP, kOutliers, kLimit},
           kTenPercentiles,
           std::array{kAsked1.percentile, kAsked1.value, kAsked1.se, kAsked2.percentile,
                      kAsked2.value, kAsked2.se});
constexpr NamedTable kTables[] = {kOutlierValues};

void WriteOutliers(ResultsSheet& sheet, const OneSampleInput& input, const OutlierMarks& outliers) {
  const Real limit = input.outlier_limit;
  if (outliers.count == 0) {
    sheet.Row(18, "  No outliers  ");
    sheet.Row(19, "  No. of SDs as outlier limit: ", kLimit(limit));
    return;
  }
  sheet.Row(18, kOutliers(outliers.count));
  sheet.Row(19, kLimit(limit));
  sheet.Row(20, "  Outliers: ");
  ListOutliers(sheet, 21, outliers, input.x);
}

void WriteAsked(ResultsSheet& sheet, int row, const AskedRows& rows, const AskedPercentile& asked,
                const Percentile& percentile) {
  sheet.Row(row, rows.heading);
  sheet.Row(row + 1, rows.percentile(std::string_view(asked.text)));
  sheet.Row(row + 2, rows.value(percentile.value));
  if (percentile.se) sheet.Row(row + 3, rows.se(*percentile.se));
}

void WritePercentiles(ResultsSheet& sheet, const OneSampleInput& input,
                      const OneSampleResult& result) {
  sheet.Row(27, "  Display of percentiles (nonparametric)");
  for (std::size_t i = 0; i < kTenPercentiles.size(); ++i)
    sheet.Row(28 + static_cast<int>(i), kTenPercentiles[i](result.tens[i]));
  if (input.asked[0]) WriteAsked(sheet, 37, kAsked1, *input.asked[0], *result.asked[0]);
  if (input.asked[1]) WriteAsked(sheet, 41, kAsked2, *input.asked[1], *result.asked[1]);
}

void ReportOneSample(ResultsSheet& sheet, const OneSampleInput& input,
                     const OneSampleResult& result) {
  const auto& [mean, sd, min, max] = result.described;
  const Real skewness_sd = Sqrt(6 / input.N());
  sheet.Row(2, Bold{"  General statistics - one sample"});
  sheet.Row(3, "  Project:", sheet.ProjectName());
  sheet.Row(4, "  Analyte: ", input.name.empty() ? " " : input.name, "  Analyst: ", Blank{},
            "  Date: ");
  sheet.Row(5, kCount(static_cast<int>(input.x.size())));
  sheet.Row(6, quantity::kMin(min));
  sheet.Row(7, quantity::kMax(max));
  sheet.Row(8, kMedian(result.median));
  sheet.Row(9, quantity::kMean(mean));
  sheet.Row(10, quantity::kSd(sd));
  sheet.Row(11, quantity::kMeanSe(sd / Sqrt(input.N())));
  sheet.Row(12, quantity::kSkewness(result.skewness), kSkewnessSd.caption,
            kSkewnessSd(skewness_sd));
  sheet.Row(13, quantity::kKurtosis(result.kurtosis), kKurtosisSd.caption,
            kKurtosisSd(2 * skewness_sd));
  sheet.Row(15, "  Result of Normality test (Anderson-Darling): ");
  sheet.Row(16, quantity::kNormalityP(std::string_view(result.normality_P)));
  WriteOutliers(sheet, input, result.outliers);
  if (input.percentiles) WritePercentiles(sheet, input, result);
}

// --- Plots

constexpr PlotWindow kPlots[] = {
    DotPlot("Dot plot with median (bar)"),
    {.window = "frmHistoAbsPlot",
     .caption = "Histogram of absolute numbers",
     .y_title = "Number",
     .bitmap = " Chart2D1.bmp",
     .height = 350},
    {.window = "frmHistoPlot",
     .caption = "Histogram of rel. frequencies",
     .y_title = kRelativeFrequency,
     .bitmap = " Chart2D1.bmp",
     .height = 350},
    {.window = "frmCumGauss",
     .caption = "Cumulative distribution with Gauss",
     .y_title = kCumulativeFrequency,
     .bitmap = " Chart2D1.bmp",
     .height = 350},
};
// Each plot is printed by an entry of its own.
constexpr PlotJob kPlotJobs[] = {
    {.pictures = {&kPlots[0], 1}, .entry = "P&rint Dot Plot"},
    {.pictures = {&kPlots[1], 1}, .entry = "Print &Histogram of Absolute Numbers"},
    {.pictures = {&kPlots[2], 1}, .entry = "Print Histogram of Rel. &Frequencies"},
    {.pictures = {&kPlots[3], 1}, .entry = "Print &Cumulative Plot"},
};

void DrawDots(Plots& plots, const OneSampleInput& input, Real median) {
  Plot& plot = AddDotPlot(plots, kPlots[0], 1);
  plot.y.title = input.name;
  plot.AddPoints(DotsAt(1, input.x));
  AddBar(plot, 1, median);
}

Plot& AddPlotOfValues(Plots& plots, const PlotWindow& window, const OneSampleInput& input) {
  Plot& plot = AddPlot(plots, window);
  plot.x.title = input.name;
  return plot;
}

// A vertical line at each percentile that was asked for, as high as the highest bar.
void MarkPercentiles(Plot& plot, const OneSampleResult& result) {
  const Real height = std::ranges::max_element(plot.series.front().points, {}, &Point::y)->y;
  for (const auto& percentile : result.asked)
    if (percentile)
      plot.AddLine({{percentile->value, 0}, {percentile->value, height}}, Pattern::kDashed);
}

void DrawOneSample(Messages& messages, Plots& plots, const OneSampleInput& input,
                   const OneSampleResult& result) {
  const Sample& x = input.x;
  DrawDots(plots, input, result.median);
  Insist(messages, kHistogramFault, [&] {
    Plot& plot = AddPlotOfValues(plots, kPlots[1], input);
    AddBars(plot, input.absolute_classes.Of(result.described, input.N()), x, 1);
  });
  Insist(messages, kGaussianHistogramFault, [&] {
    Plot& plot = AddPlotOfValues(plots, kPlots[2], input);
    const HistogramClasses classes = input.relative_classes.Of(result.described, input.N());
    AddBars(plot, classes, x, input.N());
    plot.AddLine(DensityCurve(result.described, classes.h));
    MarkPercentiles(plot, result);
  });
  Insist(messages, kCumulativeFault,
         [&] { AddCumulative(messages, AddPlotOfValues(plots, kPlots[3], input), x); });
}

// --- The analysis

constexpr Procedure frmGenOneResults[] = {{
    .window = "frmGenOneResults",
    .title = "General Statistics: One Sample",
    .menu = {.save = "&Save As"},
    .print_header = "/cGeneral Statistics - One sample/rPage #/p/n",
    .plot_jobs = kPlotJobs,
    .plot_windows = kPlots,
    .failure = {.fault = "Error", .second = "Error", .aftermath = Aftermath::kWindowNotShown},
    .run = Steps<ReadOneSample, ComputeOneSample, ReportOneSample, DrawOneSample>,
}};

}  // namespace

constinit const Analysis kOneSample{
    .id = "one-sample",
    .dialog = &frmGenOneOptions,
    .procedures = frmGenOneResults,
    .quantities = kQuantities,
    .tables = kTables,
    .manual = "one-sample.md",
};

}  // namespace quorval::general
