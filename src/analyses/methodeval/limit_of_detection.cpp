// The limit of detection at given errors of both kinds, by CLSI guideline EP17-A (2004): the
// limit of blank (LoB) as a percentile of blank measurements, and above it a multiple of the pooled
// SD of samples with little analyte.
#include "analyses/methodeval/detection_limit.h"
#include "analyses/methodeval/variance_components.h"
#include "core/steps.h"
#include "stats/percentile.h"
#include "stats/resampling.h"

namespace quorval::methodeval::detection {
namespace {

// --- Input

struct LodInput {
  ColumnSpan low_columns;
  Column blank_column;
  Sample blanks{};            // sorted
  Single alpha{};             // percent
  Real R{};                   // the rank of the LoB among the blanks
  std::vector<Sample> low{};  // one low sample for each column
  std::string_view beta{};    // percent
  Single outlier_limit{};

  Real LastSample() const { return low.size() + 1; }  // the blanks are the first
};

void ReadBlanks(Run& run, LodInput& input) {
  input.blanks = SortAscending(input.blank_column.Numbers(run.notices));
  const Real n = input.blanks.size();
  if (n < 2) run.Refuse(kFewerThanTwo);
  RefuseWithoutDispersion(run, input.blanks);
  if (run.form.Blank(kAlpha)) run.Refuse("Type I error (alpha) not specified");
  input.alpha = run.form.TextAsNumber32(kAlpha);
  const Real p = 100 - input.alpha;
  input.R = 0.5 + n * p / 100;  // EP17-A: halfway between the ranks that enclose p percent
  if (input.R < 1 || input.R > n)
    run.Refuse("Selected percentile as LoB too extreme at given sample size");
}

LodInput ReadLod(Run& run) {
  LodInput input{.low_columns = TakeColumns(run, kStartColumn, kLastColumn),
                 .blank_column = ReadColumn(run, kBlankColumn)};
  ReadBlanks(run, input);
  for (int column = input.low_columns.start; column <= input.low_columns.last; ++column) {
    input.low.push_back(ReadColumn(run, column).Numbers(run.notices));
    if (input.low.back().size() < 2) run.Refuse(kFewerThanTwo);
  }
  input.beta = run.form.Text(kBeta);
  input.outlier_limit = run.form.TextAsNumber32(kOutlierLimit);
  return input;
}

// --- Computation

struct Outlier {
  int sample;  // 1 is the start column
  Real value;
};

struct LodResult {
  Real LoB, LoB_SE;
  PooledVariance low;
  Real cbeta;
  Real LoD, LoD_SE;
  std::vector<Outlier> outliers;
};

// Those of each sample by itself; they are reported, and stay in the estimate.
std::vector<Outlier> FindOutliers(Messages& messages, const LodInput& input) {
  std::vector<Outlier> outliers;
  for (int sample = 1; const Sample& values : input.low) {
    const OutlierMarks marks = MarkOutliersBySD(messages, input.outlier_limit, values);
    for (std::size_t i : FirstMarked(marks, values.size())) outliers.push_back({sample, values[i]});
    ++sample;
  }
  return outliers;
}

// The points of the Gaussian distribution above which 1 and 5 percent lie (2.3263 and 1.6449), to
// the three decimals that the procedure works with.
Real GaussianPoint(std::string_view beta) { return beta == "1" ? 2.327 : 1.645; }

LodResult ComputeLod(Messages& messages, const LodInput& input) {
  // Enough for a standard error (Efron and Tibshirani, An Introduction to the Bootstrap, 1993,
  // section 6.4).
  constexpr int kReplications = 200;
  LodResult result{};
  result.LoB = AtPosition(input.blanks, input.R);
  result.LoB_SE = BootstrapPositions(input.blanks, {&input.R, 1}, kReplications)[0].sd;
  result.low = PoolWithin(input.low);
  const Real df = result.low.df;
  const Real SD = result.low.SD();
  // The mean of a sample SD is a little below sigma: by about 1 part in 4 df.
  result.cbeta = GaussianPoint(input.beta) / (1 - 1 / (4 * df));
  result.LoD = result.LoB + result.cbeta * SD;
  result.LoD_SE = Sqrt(Square(result.LoB_SE) + Square(result.cbeta) * Square(SD) / (2 * df));
  result.outliers = FindOutliers(messages, input);
  return result;
}

// --- Report

void ReportLod(ResultsSheet& sheet, const LodInput& input, const LodResult& result) {
  constexpr Blank _;
  sheet.Row(2, Bold{" Limit of Detection with spec. type I and II errors"});
  sheet.Put(2, 6, "(CLSI EP17)");
  sheet.Row(3, " Project: ", sheet.ProjectName());
  sheet.Row(4, kBlanksFrom(input.blank_column.number));
  sheet.Row(5, "Analyte (blank):", input.blank_column.header);
  sheet.Row(6, kBlankCount(static_cast<int>(input.blanks.size())));
  sheet.Row(7, kAlphaUsed.caption, _, kAlphaUsed(Real(input.alpha)));
  sheet.Row(8, kLoB.caption, _, kLoB(result.LoB), kLoBSE.caption, kLoBSE(result.LoB_SE));
  sheet.Row(10, kBetaUsed.caption, _, kBetaUsed(input.beta));
  sheet.Row(11, kLowColumns, _, kFirstLow(input.low_columns.start),
            kLastLow(input.low_columns.last));
  sheet.Row(13, kPooledSD.caption, _, kPooledSD(result.low.SD()), kPooledDf.caption,
            kPooledDf(result.low.df));
  sheet.Row(14, kCbeta.caption, _, kCbeta(result.cbeta));
  sheet.Row(15, kLoD.caption, _, "LoB+cbeta x SD");
  sheet.Row(16, kLoD.caption, _, kLoD(result.LoD), kLoDSE.caption, kLoDSE(result.LoD_SE));
  if (result.outliers.empty()) return;
  sheet.Row(17, "Outlier(s) in low sample");
  const ResultsSheet::Listing listing(sheet, kOutlierList);
  for (int row = 18; const Outlier& outlier : result.outliers)
    sheet.Row(row++, "Outlier(s) in low sample no.:", _, outlier.sample, outlier.value);
}

// --- Plots

// The blanks and each low sample as a column of dots, and the limit of detection across.
void DrawLod(Plots& plots, const LodInput& input, const LodResult& result) {
  Points blank_dots, low_dots;
  for (Real value : input.blanks) blank_dots.push_back({1, value});
  for (int x = 2; const Sample& values : input.low) {
    for (Real value : values) low_dots.push_back({x, value});
    ++x;
  }
  const Real end = input.LastSample() + 1;
  Plot& plot = AddPlot(plots, kByEp17Plots[0]);
  plot.label = "Blanks at 1, low samples from 2 on; line: limit of detection (LoD)";
  plot.x.min = 0;
  plot.x.max = end;
  plot.y.title = input.blank_column.header;
  plot.AddPoints(std::move(blank_dots));
  plot.AddLine({{0, result.LoD}, {end, result.LoD}}, Pattern::kDashed);
  plot.AddPoints(std::move(low_dots)).colour = kRed;
}

}  // namespace

void RunByEp17(Run& run) { Steps<ReadLod, ComputeLod, ReportLod, DrawLod>(run); }

}  // namespace quorval::methodeval::detection
