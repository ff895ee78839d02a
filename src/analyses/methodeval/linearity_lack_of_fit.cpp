// Linearity by the lack-of-fit F-test, by ordinary or weighted least squares on the level means.
// Outliers are reported, and the regression stands as computed.
#include "analyses/methodeval/lack_of_fit.h"
#include "analyses/methodeval/linearity.h"

namespace quorval::methodeval::linearity {
namespace {

constexpr int kMostOutliersListed = 5;

struct Weighting {
  Single e;  // exponent
  Single L;  // the x below which weights do not rise
};

// --- Outliers

// Residuals, the values that they belong to, and those of them that are marked.
struct OutlierPass {
  Sample residuals, values;
  OutlierMarks marks;
};

// The screen on 32-bit copies.  Residuals without dispersion end the run.
void MarkOutliers(Run& run, OutlierPass& pass) {
  const Real limit = run.form.WholeNumber32(kOutlierLimit);
  Insist(run.messages, "Error in linearity evaluation", [&] {
    const Singles residuals = ToSingles(pass.residuals);
    const Range range = RangeOf(ToReals(residuals));
    if (range.min == range.max) Raise(Fault::Kind::kDivisionByZero);
    pass.marks = MarkOutliersBySD(run.messages, limit, residuals);
  });
}

OutlierPass MarkWithinSets(Run& run, const DilutionSeries& series) {
  OutlierPass pass;
  for (const DilutionLevel& level : series.levels)
    for (Real y : level.y) {
      pass.residuals.push_back(level.w * (y - level.mean));
      pass.values.push_back(y);
    }
  MarkOutliers(run, pass);
  return pass;
}

OutlierPass MarkAroundLine(Run& run, const DilutionSeries& series, const LackOfFit& fit) {
  OutlierPass pass;
  for (const DilutionLevel& level : series.levels) {
    pass.residuals.push_back(fit.At(level.x) - level.mean);
    pass.values.push_back(level.mean);
  }
  MarkOutliers(run, pass);
  return pass;
}

// --- The sheet

void WriteFit(Run& run, const DilutionSeries& series, const LackOfFit& fit) {
  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  sheet.LetTextsOverflow();
  sheet.Row(1, Bold{run.form.Holds(kWlr) ? " Linearity Evaluation (WLR)"
                                         : " Linearity Evaluation (OLR)"});
  sheet.Row(3, " Project: ", run.context.ProjectName);
  sheet.Row(5, " x is the first value in each column, then y values follow");
  sheet.Row(6, "First Data Column: Col. no.:", Blank{}, series.columns.start);
  sheet.Row(7, "Last Data Column: Col. no.:", Blank{}, series.columns.last);
  sheet.Row(8, "No of x levels:", Blank{}, series.k());
  sheet.Row(10, "Slope b:", fit.b, "SE:", fit.SEb);
  sheet.Row(11, "Intercept a0:", fit.a0, "SE:", fit.SEa0);
  sheet.Row(12, "F-test for linearity:  F = ", Blank{}, fit.F, " P: ", fit.P);
  sheet.Row(13, "s1 squared:", Blank{}, fit.s1sq, "D. f.:", fit.df1);
  sheet.Row(14, "s2 squared:", Blank{}, fit.s2sq, "D. f.:", fit.df2);
  sheet.Row(15, "Pooled s squared:", Blank{}, fit.pooled_sq, "D. f.:", fit.pooled_df);
  sheet.Row(16, "(Pooled s squared, SEb and SEa0 are only meaningful");
  sheet.Row(17, "in case of n. s. F-test)");
}

// The words for one of the two passes.
struct OutlierWords {
  std::string_view none, some, value, more;
};

// The count and the limit in `row`, up to five values below it, and seven rows on that these are
// not all.
void WriteOutliers(Run& run, int row, const OutlierPass& pass, const OutlierWords& words) {
  ResultsSheet& sheet = run.sheet;
  const Real limit = run.form.WholeNumber32(kOutlierLimit);
  if (pass.marks.count == 0) {
    sheet.Row(row, words.none, Blank{}, Blank{}, "Outlier limit:", limit, "SD");
    return;
  }
  sheet.Row(row, pass.marks.count, words.some, Blank{}, Blank{}, "Outlier limit:", limit, "SD");
  int listed = 0;
  for (std::size_t i = 0; i < pass.values.size() && listed < kMostOutliersListed; ++i)
    if (pass.marks.flags[i]) sheet.Row(row + ++listed, words.value, Blank{}, pass.values[i]);
  if (pass.marks.count > kMostOutliersListed) sheet.Row(row + 7, words.more);
}

void WriteWeighting(ResultsSheet& sheet, const Weighting& weighting) {
  sheet.Row(37, "Weighting exponent = ", Blank{}, Real(weighting.e));
  if (weighting.e == 1) sheet.Put(37, 4, "(square root relationship)");
  if (weighting.e == 2) sheet.Put(37, 4, "(proportional relationship)");
  if (weighting.L > 0)
    sheet.Row(38, "Truncation of weighting at lower limit = ", Blank{}, Real(weighting.L));
}

// --- The plots

void DrawSeries(Run& run, const DilutionSeries& series, const LackOfFit& fit) {
  Points replicates, within_sets, around_line;
  for (const DilutionLevel& level : series.levels) {
    for (Real y : level.y) {
      replicates.push_back({level.x, y});
      within_sets.push_back({level.x, y - level.mean});
    }
    around_line.push_back({level.x, fit.At(level.x) - level.mean});
  }
  const auto add = [&](std::string_view window, std::string_view caption, std::string_view y,
                       Points points) -> Plot& {
    Plot& plot = run.AddPlot(window, caption);
    plot.x.title = "x";
    plot.y.title = y;
    plot.AddPoints(std::move(points));
    return plot;
  };
  const Real first = series.levels.front().x, last = series.levels.back().x;
  add("frmMethLinPlot1", "Linearity: measurements and line", "y", std::move(replicates))
      .AddLine({{first, fit.At(first)}, {last, fit.At(last)}});
  add("frmMethLinPlot2", "Linearity: residuals of single values", "y - level mean",
      std::move(within_sets));
  add("frmMethLinPlot3", "Linearity: residuals of level means", "Line - level mean",
      std::move(around_line));
}

}  // namespace

void RunLackOfFit(Run& run) {
  DilutionSeries series = ReadDilutionSeries(run, kStartColumn, kLastColumn);
  Weighting weighting;
  if (run.form.Holds(kWlr)) {
    RefuseNonPositiveLevels(run, series);
    weighting = {run.form.WholeNumber32(kExponent), run.form.WholeNumber32(kTruncation)};
    WeightLevels(series, weighting.e, weighting.L);
  }
  const LackOfFit fit = FitLine(run.messages, series.levels);
  WriteFit(run, series, fit);
  const OutlierPass within_sets = MarkWithinSets(run, series);
  const OutlierPass around_line = MarkAroundLine(run, series, fit);
  WriteOutliers(run, 19, within_sets,
                {.none = "No outliers identified within sets",
                 .some = "Outlier(s) identified within sets",
                 .value = "Outlier Y value:",
                 .more = "More than 5 outliers identified within sets that are not shown"});
  WriteOutliers(run, 28, around_line,
                {.none = "No outliers identified around line",
                 .some = "Outlier(s) identified around line",
                 .value = "Outlier Y (mean)value:",
                 .more = "More than 5 outliers identified around line that are not shown"});
  if (run.form.Holds(kWlr)) WriteWeighting(run.sheet, weighting);
  DrawSeries(run, series, fit);
}

}  // namespace quorval::methodeval::linearity
