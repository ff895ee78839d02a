// Linearity by polynomial fit, on the principles of NCCLS guideline EP6-A (2003): one
// dilution series gets a polynomial and a straight line, whose difference at each level is held
// against a goal.
#include <algorithm>

#include "analyses/methodeval/linearity.h"
#include "analyses/methodeval/polynomial_linearity.h"
#include "core/steps.h"

namespace quorval::methodeval::linearity {
namespace {

// --- Input

struct Goal {
  bool percent;
  Single limit;

  // A deviation at the limit does not exceed it.
  bool Exceeds(const Deviation& deviation) const {
    if (!percent) return Abs(deviation.D) > limit;
    return deviation.percent && Abs(*deviation.percent) > limit;
  }
};

struct PolynomialInput {
  DilutionSeries series;
  Goal goal;
  int degree;
};

PolynomialInput ReadPolynomial(Run& run) {
  DilutionSeries series = ReadDilutionSeries(run);
  const bool percent = run.form.Holds(kByPercent);
  const Goal goal{percent, run.form.TextAsNumber32(percent ? kPercentGoal : kAbsoluteGoal)};
  return {.series = std::move(series), .goal = goal, .degree = run.form.TextAsInt16(kDegree)};
}

// --- Computation

struct PolynomialResult {
  Repeatability repeatability;
  PolynomialLinearity linearity;
  bool exceeds_goal;
};

PolynomialResult ComputePolynomial(Messages& messages, const PolynomialInput& input) {
  const std::vector<DilutionLevel>& levels = input.series.levels;
  PolynomialResult result{.repeatability = EvaluateRepeatability(levels),
                          .linearity = EvaluatePolynomial(messages, levels, input.degree),
                          .exceeds_goal = false};
  result.exceeds_goal = std::ranges::any_of(
      result.linearity.deviations,
      [&](const Deviation& deviation) { return input.goal.Exceeds(deviation); });
  return result;
}

// --- Report

// Sections with an empty row before each.
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
  ResultsSheet::Listing List(const NamedTable& table) { return {sheet_, table}; }

 private:
  ResultsSheet& sheet_;
  int row_;
};

void WriteDescription(Sections& rows, const DilutionSeries& series) {
  rows.Row("  Descriptive data");
  rows.Row("x level (dilution)", "Measured mean", Blank{}, "y replicates ");
  const auto listing = rows.List(kReplicates);
  for (const DilutionLevel& level : series.levels) {
    rows.Row(level.x, level.mean);
    for (int column = 4; Real y : level.y) rows.Put(column++, y);
  }
}

void WriteRepeatability(Sections& rows, const DilutionSeries& series, const Repeatability& r) {
  rows.Row("Repeatability data");
  rows.Row("x level (dilution)", "Measured mean", "Difference (max)", "%Difference (max)");
  for (std::size_t j = 0; j < series.levels.size(); ++j) {
    const auto listing = rows.List(kRepeatability);
    rows.Row(series.levels[j].x, series.levels[j].mean, r.differences[j]);
    rows.Put(4, r.percent[j]);
  }
  rows.Row(kPooledSD(r.pooled_SD));
  if (r.pooled_CV) rows.Row(kPooledCV(*r.pooled_CV));
}

void WriteCoefficients(Sections& rows, const Curve& curve, std::span<const Quantity> coefficients,
                       const Quantity& SDyx) {
  for (std::size_t i = 0; i < curve.fit.b.size(); ++i) rows.Row(coefficients[i](curve.fit.b[i]));
  rows.Row(SDyx(curve.SDyx()));
}

void WriteFits(Sections& rows, const PolynomialLinearity& result) {
  rows.Row(" Polynomial data");
  rows.Row(result.polynomial.sums.k == 3
               ? " Polynomial coefficients for 3. degree polynomium and residual SD (SDy.x)"
               : " Polynomial coefficients for 2. degree polynomium and residual SD (SDy.x)");
  WriteCoefficients(rows, result.polynomial, kCoefficients, kSDyx);
  rows.Next();
  rows.Row(" t-test of last coefficient against zero:");
  rows.Row(kLastSE(result.last.SE), kLastT.caption, kLastT(result.last.t), kLastP.caption,
           kLastP(result.last.P));
  rows.Next();
  rows.Row(" Linear regression (1.order) data:");
  rows.Row(" Coefficients and residual SD (SDy.x):");
  WriteCoefficients(rows, result.line, kLineCoefficients, kLineSDyx);
}

void WriteDeviations(Sections& rows, const DilutionSeries& series,
                     const PolynomialLinearity& result) {
  rows.Row(" Estimated deviations from linearity ");
  rows.Row("x level ", "Measured mean  ", "Predic. 1.ord. ", "Predic. Polyn. ", "Difference ",
           "%Dif ");
  const auto listing = rows.List(kDeviations);
  for (std::size_t j = 0; j < series.levels.size(); ++j) {
    const Deviation& deviation = result.deviations[j];
    rows.Row(series.levels[j].x, series.levels[j].mean, deviation.line, deviation.polynomial,
             deviation.D);
    rows.Put(6, deviation.percent);
  }
}

void WriteGoal(Sections& rows, const Goal& goal, bool exceeds) {
  const Real limit = goal.limit;
  if (goal.percent) {
    rows.Row(exceeds ? kGoalExceeded.caption
                     : " Maximum percent deviation not exceeding user-set limit of ",
             kGoalExceeded(limit), " percent ");
  } else {
    rows.Row(exceeds ? kAbsoluteGoalExceeded.caption
                     : " Estimated max. absolute deviation from linearity not exceeding user-set "
                       "limit of",
             kAbsoluteGoalExceeded(limit));
  }
}

void ReportPolynomial(ResultsSheet& sheet, const PolynomialInput& input,
                      const PolynomialResult& result) {
  Sections rows(sheet, 2);
  rows.Row(Bold{"  Linearity evaluation using polynomial regression"});
  rows.Row("  (According to the principles of the NCCLS EP6-A 2003 Guideline)");
  rows.Row("  Project: ", sheet.ProjectName());
  rows.Next();
  WriteDescription(rows, input.series);
  rows.Next();
  WriteRepeatability(rows, input.series, result.repeatability);
  rows.Next();
  WriteFits(rows, result.linearity);
  rows.Next();
  WriteDeviations(rows, input.series, result.linearity);
  rows.Next();
  WriteGoal(rows, input.goal, result.exceeds_goal);
}

// --- Plots

void DrawFits(Plot& plot, const DilutionSeries& series, const PolynomialLinearity& result) {
  const Real first = series.levels.front().x, last = series.levels.back().x;
  Points means;
  for (const DilutionLevel& level : series.levels) means.push_back({level.x, level.mean});
  plot.label = "Solid curve: Polynomial fit; Red dashed line: Linear regression fit";
  plot.AddPoints(std::move(means));
  plot.AddLine(quorval::Curve(first, last, [&](Real x) { return result.polynomial.fit.At(x); }));
  plot.AddLine({{first, result.line.fit.At(first)}, {last, result.line.fit.At(last)}},
               Pattern::kDashed)
      .colour = kRed;
}

void DrawDeviations(Plot& plot, const DilutionSeries& series, const PolynomialLinearity& result) {
  Points points;
  for (std::size_t j = 0; j < series.levels.size(); ++j)
    points.push_back({series.levels[j].mean, result.deviations[j].D});
  const auto [lowest, highest] = std::ranges::minmax(points, {}, &Point::x);
  Points zero_line{{lowest.x, 0}, {highest.x, 0}};
  plot.AddPoints(std::move(points));
  plot.AddLine(std::move(zero_line));
}

void DrawPolynomial(Plots& plots, const PolynomialInput& input, const PolynomialResult& result) {
  DrawFits(AddPlot(plots, kPolynomialPlots[0]), input.series, result.linearity);
  DrawDeviations(AddPlot(plots, kPolynomialPlots[1]), input.series, result.linearity);
}

}  // namespace

void RunPolynomial(Run& run) {
  Steps<ReadPolynomial, ComputePolynomial, ReportPolynomial, DrawPolynomial>(run);
}

}  // namespace quorval::methodeval::linearity
