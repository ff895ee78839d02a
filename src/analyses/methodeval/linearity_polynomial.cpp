// Linearity by polynomial fit, on the principles of NCCLS guideline EP6-A (2003): one
// dilution series gets a polynomial and a straight line, whose difference at each level is held
// against a goal.
#include <algorithm>

#include "analyses/methodeval/linearity.h"
#include "analyses/methodeval/polynomial_linearity.h"

namespace quorval::methodeval::linearity {
namespace {

constexpr int kCurvePoints = 100;

// --- The goal

struct Goal {
  bool percent;
  Single limit;

  // A deviation at the limit does not exceed it.
  bool Exceeds(const Deviation& deviation) const {
    if (!percent) return Abs(deviation.D) > limit;
    return deviation.percent && Abs(*deviation.percent) > limit;
  }
};

Goal ReadGoal(const Form& form) {
  const bool percent = form.Holds(kByPercent);
  return {percent, form.WholeNumber32(percent ? kPercentGoal : kAbsoluteGoal)};
}

// --- The sheet: sections with an empty row before each

class Sections {
 public:
  Sections(ResultsSheet& sheet, int first_row) : sheet_(sheet), row_(first_row - 1) {}

  template <class... Values>
  void Row(const Values&... values) {
    sheet_.Row(++row_, values...);
  }
  // Of the row written last.
  template <class Value>
  void Put(int column, const Value& value) {
    sheet_.Put(row_, column, value);
  }
  void Put(int column, const std::optional<Real>& value) {
    if (value) sheet_.Put(row_, column, *value);
  }
  void Next() { ++row_; }

 private:
  ResultsSheet& sheet_;
  int row_;
};

void WriteDescription(Sections& rows, const DilutionSeries& series) {
  rows.Row("  Descriptive data");
  rows.Row("x level (dilution)", "Measured mean", Blank{}, "y replicates ");
  for (const DilutionLevel& level : series.levels) {
    rows.Row(level.x, level.mean);
    for (int column = 4; Real y : level.y) rows.Put(column++, y);
  }
}

void WriteRepeatability(Sections& rows, const DilutionSeries& series, const Repeatability& r) {
  rows.Row("Repeatability data");
  rows.Row("x level (dilution)", "Measured mean", "Difference (max)", "%Difference (max)");
  for (std::size_t j = 0; j < series.levels.size(); ++j) {
    rows.Row(series.levels[j].x, series.levels[j].mean, r.differences[j]);
    rows.Put(4, r.percent[j]);
  }
  rows.Row(" Pooled SD:", r.pooled_SD);
  if (r.pooled_CV) rows.Row(" Pooled CV%:", *r.pooled_CV);
}

void WriteCoefficients(Sections& rows, const Curve& curve) {
  constexpr std::array<std::string_view, 4> kLabels{" b0:", " b1:", " b2:", " b3:"};
  for (std::size_t i = 0; i < curve.fit.b.size(); ++i) rows.Row(kLabels[i], curve.fit.b[i]);
  rows.Row(" SDy.x:", curve.SDyx());
}

void WriteFits(Sections& rows, const PolynomialLinearity& result) {
  rows.Row(" Polynomial data");
  rows.Row(result.polynomial.sums.k == 3
               ? " Polynomial coefficients for 3. degree polynomium and residual SD (SDy.x)"
               : " Polynomial coefficients for 2. degree polynomium and residual SD (SDy.x)");
  WriteCoefficients(rows, result.polynomial);
  rows.Next();
  rows.Row(" t-test of last coefficient against zero:");
  rows.Row(" SE of last coef.:", result.last.SE, " t value:", result.last.t, " P:", result.last.P);
  rows.Next();
  rows.Row(" Linear regression (1.order) data:");
  rows.Row(" Coefficients and residual SD (SDy.x):");
  WriteCoefficients(rows, result.line);
}

void WriteDeviations(Sections& rows, const DilutionSeries& series,
                     const PolynomialLinearity& result) {
  rows.Row(" Estimated deviations from linearity ");
  rows.Row("x level ", "Measured mean  ", "Predic. 1.ord. ", "Predic. Polyn. ", "Difference ",
           "%Dif ");
  for (std::size_t j = 0; j < series.levels.size(); ++j) {
    const Deviation& deviation = result.deviations[j];
    rows.Row(series.levels[j].x, series.levels[j].mean, deviation.line, deviation.polynomial,
             deviation.D);
    rows.Put(6, deviation.percent);
  }
}

void WriteGoal(Sections& rows, const Goal& goal, const PolynomialLinearity& result) {
  const bool exceeds = std::ranges::any_of(
      result.deviations, [&](const Deviation& deviation) { return goal.Exceeds(deviation); });
  const Real limit = goal.limit;
  if (goal.percent) {
    rows.Row(exceeds ? " Maximum percent deviation exceeds user-set limit of "
                     : " Maximum percent deviation not exceeding user-set limit of ",
             limit, " percent ");
  } else {
    rows.Row(exceeds
                 ? " Estimated max. absolute deviation from linearity exceeds user-set limit of "
                 : " Estimated max. absolute deviation from linearity not exceeding user-set "
                   "limit of",
             limit);
  }
}

void WriteSheet(Run& run, const DilutionSeries& series, const Repeatability& repeatability,
                const PolynomialLinearity& result, const Goal& goal) {
  run.sheet.Clear();
  Sections rows(run.sheet, 2);
  rows.Row(Bold{"  Linearity evaluation using polynomial regression"});
  rows.Row("  (According to the principles of the NCCLS EP6-A 2003 Guideline)");
  rows.Row("  Project: ", run.context.ProjectName);
  rows.Next();
  WriteDescription(rows, series);
  rows.Next();
  WriteRepeatability(rows, series, repeatability);
  rows.Next();
  WriteFits(rows, result);
  rows.Next();
  WriteDeviations(rows, series, result);
  rows.Next();
  WriteGoal(rows, goal, result);
}

// --- The plots

void DrawFits(Run& run, const DilutionSeries& series, const PolynomialLinearity& result) {
  const Real first = series.levels.front().x, last = series.levels.back().x;
  Points means, curve;
  for (const DilutionLevel& level : series.levels) means.push_back({level.x, level.mean});
  for (int i = 0; i < kCurvePoints; ++i) {
    const Real x = first + i * (last - first) / (kCurvePoints - 1);
    curve.push_back({x, result.polynomial.fit.At(x)});
  }
  Plot& plot = run.AddPlot("frmLinPolynPlot", "Linearity: polynomial and line");
  plot.label = "Solid curve: Polynomial fit; Red dashed line: Linear regression fit";
  plot.x.title = "x values (dilutions)";
  plot.y.title = "Actual measured means";
  plot.AddPoints(std::move(means));
  plot.AddLine(std::move(curve));
  plot.AddLine({{first, result.line.fit.At(first)}, {last, result.line.fit.At(last)}},
               Pattern::kDashed)
      .colour = kRed;
}

void DrawDeviations(Run& run, const DilutionSeries& series, const PolynomialLinearity& result) {
  Points points;
  for (std::size_t j = 0; j < series.levels.size(); ++j)
    points.push_back({series.levels[j].mean, result.deviations[j].D});
  const auto [lowest, highest] = std::ranges::minmax(points, {}, &Point::x);
  Plot& plot = run.AddPlot("frmLinPolynDifPlot", "Linearity: deviations");
  plot.x.title = "Measured mean values";
  plot.y.title = "Difference";
  Points zero_line{{lowest.x, 0}, {highest.x, 0}};
  plot.AddPoints(std::move(points));
  plot.AddLine(std::move(zero_line));
}

}  // namespace

void RunPolynomial(Run& run) {
  const DilutionSeries series = ReadDilutionSeries(run, kStartColumn, kLastColumn);
  const Goal goal = ReadGoal(run.form);
  const Repeatability repeatability = EvaluateRepeatability(series.levels);
  const PolynomialLinearity result =
      EvaluatePolynomial(run, series.levels, run.form.Column(kDegree));
  WriteSheet(run, series, repeatability, result, goal);
  DrawFits(run, series, result);
  DrawDeviations(run, series, result);
}

}  // namespace quorval::methodeval::linearity
