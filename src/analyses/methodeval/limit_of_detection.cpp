// The limit of detection at given errors of both kinds, by CLSI guideline EP17-A (2004): the
// limit of blank (LoB) as a percentile of blank measurements, and above it a multiple of the pooled
// SD of samples with little analyte.
#include "analyses/methodeval/detection_limit.h"
#include "analyses/methodeval/variance_components.h"
#include "stats/percentile.h"
#include "stats/resampling.h"

namespace quorval::methodeval::detection {
namespace {

constexpr std::string_view kTooFew = " Sample size < 2: No analysis ";
constexpr int kReplications = 200;

// --- Limit of blank

struct Blanks {
  Column column;
  Sample sorted{};
  Single alpha{};  // percent
  Real LoB{}, se{};
};

Blanks EstimateLoB(Run& run) {
  Blanks blanks{.column = ReadColumn(run, kBlankColumn)};
  blanks.sorted = SortAscending(blanks.column.Numbers(run.notices));
  const Real n = blanks.sorted.size();
  if (n < 2) run.Refuse(kTooFew);
  if (blanks.sorted.front() == blanks.sorted.back())
    run.Refuse(" No dispersion in variables: No analysis ");
  if (run.form.Blank(kAlpha)) run.Refuse("Type I error (alpha) not specified");
  blanks.alpha = run.form.WholeNumber32(kAlpha);
  const Real p = 100 - blanks.alpha;
  const Real R = 0.5 + n * p / 100;
  if (R < 1 || R > n) run.Refuse("Selected percentile as LoB too extreme at given sample size");
  blanks.LoB = AtPosition(blanks.sorted, R);
  blanks.se = BootstrapPositions(blanks.sorted, {&R, 1}, kReplications)[0].sd;
  return blanks;
}

// --- Low samples

struct LowSamples {
  ColumnSpan columns;
  std::vector<Sample> values{};  // one sample for each column

  int Count() const { return static_cast<int>(values.size()); }
};

LowSamples ReadLowSamples(Run& run, const ColumnSpan& columns) {
  LowSamples samples{columns};
  for (int column = columns.start; column <= columns.last; ++column) {
    samples.values.push_back(ReadColumn(run, column).Numbers(run.notices));
    if (samples.values.back().size() < 2) run.Refuse(kTooFew);
  }
  return samples;
}

struct Outlier {
  int sample;  // 1 is the start column
  Real value;
};

// Those of each sample by itself; they are reported, and stay in the estimate.
std::vector<Outlier> FindOutliers(Run& run, const LowSamples& samples) {
  const Real limit = run.form.WholeNumber32(kOutlierLimit);
  std::vector<Outlier> outliers;
  for (int sample = 1; const Sample& values : samples.values) {
    const OutlierMarks marks = MarkOutliersBySD(run.messages, limit, values);
    for (std::size_t i = 0; i < values.size(); ++i)
      if (marks.flags[i]) outliers.push_back({sample, values[i]});
    ++sample;
  }
  return outliers;
}

// --- Limit of detection

struct DetectionLimit {
  Real cbeta;
  Real LoD, se;
};

DetectionLimit EstimateLoD(const Blanks& blanks, const PooledVariance& low, Real z) {
  const Real df = low.df;
  const Real SD = low.SD();
  DetectionLimit limit;
  limit.cbeta = z / (1 - 1 / (4 * df));  // the mean of a sample SD is a little below sigma
  limit.LoD = blanks.LoB + limit.cbeta * SD;
  limit.se = Sqrt(Square(blanks.se) + Square(limit.cbeta) * Square(SD) / (2 * df));
  return limit;
}

// The point of the Gaussian distribution above which beta percent lie.
Real GaussianPoint(const Form& form) { return form.Is(kBeta, "1") ? 2.327 : 1.645; }

// --- The sheet and the plot

void WriteSheet(Run& run, const Blanks& blanks, const LowSamples& samples,
                const PooledVariance& low, const DetectionLimit& limit) {
  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  sheet.Row(2, Bold{" Limit of Detection with spec. type I and II errors"});
  sheet.Put(2, 6, "(CLSI EP17)");
  sheet.Row(3, " Project: ", run.context.ProjectName);
  sheet.Row(4, " Selected Col. for blanks:", blanks.column.number);
  sheet.Row(5, "Analyte (blank):", blanks.column.header);
  sheet.Row(6, "No of blank obs:", static_cast<int>(blanks.sorted.size()));
  sheet.Row(7, "Type I error (alpha, % ):", Blank{}, Real(blanks.alpha));
  sheet.Row(8, "Limit of blank (LoB):", Blank{}, blanks.LoB, "SE of LoB:", blanks.se);
  sheet.Row(10, "Type II error (beta, %):", Blank{}, run.form.Text(kBeta));
  sheet.Row(11, "Low sample(s) from cols:", Blank{}, samples.columns.start, samples.columns.last);
  sheet.Row(13, "Pooled low sample SD:", Blank{}, low.SD(), "D. of freedom:", low.df);
  sheet.Row(14, "cbeta:", Blank{}, limit.cbeta);
  sheet.Row(15, "Limit of detection (LoD):", Blank{}, "LoB+cbeta x SD");
  sheet.Row(16, "Limit of detection (LoD):", Blank{}, limit.LoD, "SE of LoD:", limit.se);
}

void WriteOutliers(ResultsSheet& sheet, std::span<const Outlier> outliers) {
  if (!outliers.empty()) sheet.Row(17, "Outlier(s) in low sample");
  for (int row = 18; const Outlier& outlier : outliers)
    sheet.Row(row++, "Outlier(s) in low sample no.:", Blank{}, outlier.sample, outlier.value);
}

// The blanks and each low sample as a column of dots, and the limit of detection across.
void DrawDots(Run& run, const Blanks& blanks, const LowSamples& samples, Real LoD) {
  Points blank_dots, low_dots;
  for (Real value : blanks.sorted) blank_dots.push_back({1, value});
  for (int x = 2; const Sample& values : samples.values) {
    for (Real value : values) low_dots.push_back({x, value});
    ++x;
  }
  const Real end = samples.Count() + 2;
  Plot& plot = run.AddPlot(kDotPlot, "Limit of detection");
  plot.label = "Blanks at 1, low samples from 2 on; line: limit of detection (LoD)";
  plot.x = {.title = "Sample no.", .min = 0, .max = end};
  plot.y.title = blanks.column.header;
  plot.AddPoints(std::move(blank_dots));
  plot.AddLine({{0, LoD}, {end, LoD}}, Pattern::kDashed);
  plot.AddPoints(std::move(low_dots)).colour = kRed;
}

}  // namespace

void RunByEp17(Run& run) {
  const ColumnSpan columns = TakeColumns(run, kStartColumn, kLastColumn);
  const Blanks blanks = EstimateLoB(run);
  const LowSamples samples = ReadLowSamples(run, columns);
  const PooledVariance low = PoolWithin(samples.values);
  const DetectionLimit limit = EstimateLoD(blanks, low, GaussianPoint(run.form));
  const std::vector<Outlier> outliers = FindOutliers(run, samples);
  WriteSheet(run, blanks, samples, low, limit);
  WriteOutliers(run.sheet, outliers);
  DrawDots(run, blanks, samples, limit.LoD);
}

}  // namespace quorval::methodeval::detection
