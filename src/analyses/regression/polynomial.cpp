// Polynomial regression of y on x, degree 1 to 5.
//
// Reads two columns and sorts the pairs by x.  Writes rows 2 to 36 of the sheet and an optional
// table, and the plots frmPolynRegPlot and frmPolynResPlot.  Everything is computed before the
// sheet is written.
#include "stats/polynomial.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <optional>
#include <string>

#include "analyses/method_comparison.h"
#include "analyses/registry.h"
#include "core/steps.h"
#include "stats/polynomial_tests.h"
#include "stats/significance.h"

namespace quorval::regression {
namespace {

// --- Options

constexpr Field kXColumn{.key = "x-column", .caption = "X values  Col no.: ", .initial = "2"};
constexpr Field kYColumn{.key = "y-column", .caption = "Y values  Col. no.:", .initial = "3"};
constexpr Field kLimit{
    .key = "outlier-limit", .caption = "No. of SD units for outlier:", .initial = "4"};
constexpr Field kXValue{
    .key = "x-value",
    .caption =
        "Optional entry of X value for computation of Yest (this does not influence the "
        "estimation of the polynomium)"};

constexpr Choice kDegrees[] = {
    {"1", "First degree (Y = b0 + b1 X)"},
    {"2", "Second degree (Y = b0 + b1 X + b2 X^2)"},
    {"3", "Third degree (Y = b0 + b1 X + b2 X^2 + b3 X^3)"},
    {"4", "Fourth degree (Y = b0 + b1 X + b2X^2 + b3  X^3 + b4 X^4)"},
    {"5", "Fifth degree (Y = b0 + b1 X + b2 X^2 + b3 X^3 + b4 X^4 + b5 X^5)"},
};
constexpr Field kDegree{.key = "degree",
                        .kind = FieldKind::kChoice,
                        .group = "Polynomium order:",
                        .initial = "2",
                        .choices = kDegrees};
constexpr Field kShowValues{.key = "show-values",
                            .kind = FieldKind::kCheck,
                            .caption = "Show X, Y, Y estimated (Yest) and (Y-Yest)",
                            .initial = "off"};
constexpr Field kShowLimits{.key = "show-limits",
                            .kind = FieldKind::kCheck,
                            .caption = "Show polynomium+/-t-95% SDy.x",
                            .initial = "off"};

constexpr Field kFields[] = {kXColumn, kYColumn,    kLimit,     kXValue,
                             kDegree,  kShowValues, kShowLimits};

constexpr Dialog kDialog{
    .window = "frmPolynRegO", .title = "Polynomial Regression Analysis", .fields = kFields};
static_assert(WellFormed(kDialog));

// --- Input

struct PolynomialInput {
  Sample x, y;  // by x; points of equal x in the order of the worksheet
  int degree;
  Single outlier_limit;
  std::optional<Single> x_value;  // where y is to be estimated
  bool show_values, show_limits;

  int Count() const { return static_cast<int>(x.size()); }
};

void SortByX(Sample& x, Sample& y) {
  std::vector<std::size_t> order(x.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, [&](std::size_t i, std::size_t j) { return x[i] < x[j]; });
  const Sample unordered_x = x, unordered_y = y;
  for (std::size_t i = 0; i < order.size(); ++i) {
    x[i] = unordered_x[order[i]];
    y[i] = unordered_y[order[i]];
  }
}

PolynomialInput ReadPolynomial(Run& run) {
  const Form& form = run.form;
  PolynomialInput input;
  const Column x_column = ReadColumn(run, kXColumn);
  input.x = x_column.Numbers(run.notices);
  const Column y_column = ReadColumn(run, kYColumn);
  input.y = y_column.Numbers(run.notices);
  NoteLengths(run.notices, {{x_column.number, input.x.size()}, {y_column.number, input.y.size()}});
  if (input.x.size() != input.y.size())
    run.Refuse(" Unequal numbers of x and y values: No analysis");
  if (input.x.size() < 3) run.Refuse(" N < 3: No analysis ");
  SortByX(input.x, input.y);

  input.degree = form.TextAsInt16(kDegree);
  if (input.degree > input.Count() - 2)
    run.Refuse("Degree of polynomium is higher than sample size minus two: No analysis");
  input.outlier_limit = form.TextAsNumber32(kLimit);
  if (!form.Blank(kXValue)) input.x_value = form.TextAsNumber32(kXValue);
  input.show_values = form.On(kShowValues);
  input.show_limits = form.On(kShowLimits);
  return input;
}

// --- Computation

struct PolynomialResult {
  Polynomial polynomial{};
  Sample estimate{}, e{};
  PolynomialSums sums{};
  PolynomialTests tests{};
  Real SDyx{}, R{};
  OutlierMarks outliers{};
  Real t95{};
};

PolynomialResult ComputePolynomial(Messages& messages, const PolynomialInput& input) {
  const auto& [x, y, degree, limit, x_value, show_values, show_limits] = input;
  const int n = input.Count();
  const int df = n - degree - 1;
  PolynomialResult result{.polynomial = PolynomialFit(x, y, degree)};
  for (std::size_t i = 0; i < x.size(); ++i) {
    result.estimate.push_back(result.polynomial.At(x[i]));
    result.e.push_back(y[i] - result.estimate[i]);
  }
  const PolynomialSums& sums = result.sums = SumsOf(x, y, result.polynomial);
  result.SDyx = sums.SDyx();
  result.tests = TestPolynomial(messages, x, y, sums);
  result.R = Sqrt(sums.SSreg / (sums.SSreg + sums.SSres));
  // The limit counts in SDy.x, the marking in SDs with n - 1 in the denominator.
  const Real in_sds = limit * Sqrt(n - 1) / Sqrt(df);
  result.outliers = MarkOutliersBySD(messages, in_sds, ToSingles(result.e));
  result.t95 = CriticalT05(df);
  return result;
}

// --- Report

constexpr std::string_view kDf = "D. f.: ";
constexpr std::string_view kP = "  P:";

constexpr Quantity kDegreeUsed{"degree", "  Degree", Unit::kNone, Width::kWhole};
constexpr Quantity kPoints = Captioned(quantity::kCount, "  Number of obs.:");
constexpr std::array kCoefficients{
    Quantity{"b0", "  b0:"}, Quantity{"b1", "  b1:"}, Quantity{"b2", "  b2:"},
    Quantity{"b3", "  b3:"}, Quantity{"b4", "  b4:"}, Quantity{"b5", "  b5:"},
};
constexpr Quantity kSSreg{"ss.regression", "  Sum of Squares Regression: "};
constexpr Quantity kMSreg{"ms.regression", "  Mean square Regression (m2sq): "};
constexpr Quantity kDfReg{"df.regression", kDf, Unit::kNone, Width::kWhole};
constexpr Quantity kSSres{"ss.residual", "  Sum of Squares Residual: "};
constexpr Quantity kMSres{"ms.residual", "  Mean square Residuals (m1sq): "};
constexpr Quantity kDfRes{"df.residual", kDf, Unit::kNone, Width::kWhole};
constexpr Quantity kSDyx{"sd_yx", "  Residuals SD (SDy.x): ", Unit::kMeasurand};
constexpr Quantity kF{"f", "  F-Ratio: (m2sq/m1sq): "};
constexpr Quantity kFP{"f.p", kP};
constexpr Quantity kLastF{"last_coefficient.f", "  F-ratio last coef.:"};
constexpr Quantity kLastFP{"last_coefficient.p", kP};
constexpr Quantity kR{"correlation", "  Correlation coefficient (R):"};
constexpr Quantity kOutliers = Captioned(quantity::kOutliers, " Number of outliers identified");
constexpr Quantity kOutlierLimit =
    Captioned(quantity::kOutlierLimit, "Outlier limit (no. of SDs):");
constexpr Quantity kEnteredX{"x_value", "Entered X value:", Unit::kNone, Width::k32};
constexpr Quantity kEstimate{"x_value.estimate", "Computed Yest:", Unit::kMeasurand};
constexpr Quantity kT95{"t95", "t95:"};
constexpr auto kQuantities =
    Joined(std::array{kDegreeUsed, kPoints}, kCoefficients,
           std::array{kSSreg, kMSreg, kDfReg, kSSres, kMSres, kDfRes, kSDyx, kF, kFP, kLastF,
                      kLastFP, kR, kOutliers, kOutlierLimit, kEnteredX, kEstimate, kT95});
constexpr NamedTable kValues{"values", "x in order, y, its estimate and the residual"};
constexpr NamedTable kLimits{"limits", "The estimate of y less and plus t95 SDy.x"};
constexpr NamedTable kTables[] = {kValues, kLimits};

void WriteFit(ResultsSheet& sheet, const PolynomialResult& result) {
  const PolynomialSums& sums = result.sums;
  sheet.Row(2, Bold{"  Polynomial regression"});
  sheet.Row(3, kDegreeUsed(sums.k), "  Project: ", sheet.ProjectName());
  sheet.Row(4, kPoints(sums.n));
  sheet.Row(5, "  Coefficients:");
  for (std::size_t j = 0; j < result.polynomial.b.size(); ++j)
    sheet.Row(6 + static_cast<int>(j), kCoefficients[j](result.polynomial.b[j]));

  constexpr Blank _;
  sheet.Row(14, "  Sum of squares and mean squares:");
  sheet.Row(15, kSSreg.caption, _, _, kSSreg(sums.SSreg));
  sheet.Row(16, kMSreg.caption, _, _, kMSreg(sums.m2sq), kDf, kDfReg(sums.k));
  sheet.Row(17, kSSres.caption, _, _, kSSres(sums.SSres));
  sheet.Row(18, kMSres.caption, _, _, kMSres(sums.m1sq), kDf, kDfRes(sums.n - sums.k - 1));
  sheet.Row(19, kSDyx.caption, _, _, kSDyx(result.SDyx));
  sheet.Row(21, "  Generel F-test for the significance of polynomial regression: ");
  if (const auto& test = result.tests.overall) {
    sheet.Row(23, kF.caption, _, _, kF(test->F), kP, kFP(test->P));
  } else {
    sheet.Row(23, kF.caption, _, _, _, kP);
  }
  if (const auto& test = result.tests.last) {
    sheet.Row(25, Italic{"  Supplementary F-test for the significance of the last coefficient:"});
    sheet.Row(27, kLastF.caption, _, kLastF(test->F), kP, kLastFP(test->P));
  }
  sheet.Row(29, kR.caption, _, _, kR(result.R));
}

// Returns the last row.
int WriteOutliersAndEstimate(ResultsSheet& sheet, const PolynomialInput& input,
                             const PolynomialResult& result) {
  constexpr Blank _;
  if (result.outliers.count > 0) {
    sheet.Row(31, kOutliers.caption, _, _, kOutliers(result.outliers.count));
  } else {
    sheet.Row(31, "  No outliers identified");
  }
  sheet.Row(32, kOutlierLimit.caption, _, _, kOutlierLimit(Real(input.outlier_limit)));
  if (!input.x_value) return 32;
  sheet.Row(34, "Computed Y-value for entered X-value:");
  sheet.Row(35, kEnteredX.caption, _, _, kEnteredX(Real(*input.x_value)));
  sheet.Row(36, kEstimate.caption, _, _, kEstimate(result.polynomial.At(*input.x_value)));
  return 36;
}

void WriteValues(ResultsSheet& sheet, int row, const PolynomialInput& input,
                 const PolynomialResult& result) {
  const ResultsSheet::Listing listing(sheet, kValues);
  sheet.Row(row, "X values ordered", "Y values ordered", "Estim. Y values", "(Y-Yest)");
  for (std::size_t i = 0; i < input.x.size(); ++i) {
    sheet.Row(++row, input.x[i], input.y[i], result.estimate[i], result.e[i]);
    for (int column = 1; column <= 4; ++column)
      sheet.grid().Edit(column, row).look.bold = result.outliers.flags[i];
  }
  sheet.Row(row + 1, "Outliers in bold");
}

void WriteLimits(ResultsSheet& sheet, int row, const PolynomialResult& result) {
  sheet.Put(row, 6, "(Yest-t95 SDy.x)");
  sheet.Put(row, 7, "(Yest+t95 SDy.x)");
  const Real margin = result.t95 * result.SDyx;
  {
    const ResultsSheet::Listing listing(sheet, kLimits);
    for (Real estimate : result.estimate) {
      ++row;
      sheet.Put(row, 6, estimate - margin);
      sheet.Put(row, 7, estimate + margin);
    }
  }
  sheet.Put(row + 1, 6, kT95.caption);
  sheet.Put(row + 1, 7, kT95(result.t95));
}

void ReportPolynomial(ResultsSheet& sheet, const PolynomialInput& input,
                      const PolynomialResult& result) {
  WriteFit(sheet, result);
  const int row = WriteOutliersAndEstimate(sheet, input, result) + 2;
  if (input.show_values || input.show_limits) sheet.Row(row, "Optional output of values:");
  if (input.show_values) WriteValues(sheet, row + 1, input, result);
  if (input.show_limits) WriteLimits(sheet, row + 1, result);
}

// --- Plots

constexpr PlotWindow kPlots[] = {{.window = "frmPolynRegPlot",
                                  .caption = "Polynomial regression plot",
                                  .x_title = "X",
                                  .y_title = "Y",
                                  .bitmap = " Chart2D1.bmp",
                                  .height = 350,
                                  .opens_empty = true},
                                 {.window = "frmPolynResPlot",
                                  .caption = "Standardized residuals plot",
                                  .x_title = "Estimated Y ",
                                  .y_title = "Stand. residual",
                                  .bitmap = " Chart2D1Res.bmp",
                                  .height = 150,
                                  .opens_empty = true}};
constexpr PlotJob kPlotJobs[] = {{.pictures = kPlots}};

void DrawMarked(Plot& plot, const Sample& x, const Sample& y, const OutlierMarks& outliers) {
  plot.AddPoints(Select(x, y, outliers, false));
  if (outliers.count > 0) plot.AddPoints(Select(x, y, outliers, true), Mark::kCross);
}

void DrawPolynomial(Plots& plots, const PolynomialInput& input, const PolynomialResult& result) {
  Plot& regression = AddPlot(plots, kPlots[0]);
  DrawMarked(regression, input.x, input.y, result.outliers);
  const auto add_curve = [&](Real above) {
    const auto& [min, max] = RangeOf(input.x);
    regression.AddLine(Curve(min, max, [&](Real x) { return result.polynomial.At(x) + above; }));
  };
  add_curve(0);
  if (input.show_limits) {
    const Real margin = result.t95 * result.SDyx;
    add_curve(-margin);
    add_curve(margin);
  }

  Sample z;
  for (Real e : result.e) z.push_back(result.SDyx == 0 ? e : e / result.SDyx);
  DrawMarked(AddPlot(plots, kPlots[1]), result.estimate, z, result.outliers);
}

// --- The analysis

constexpr Procedure kProcedures[] = {{
    .window = "frmPolynReg",
    .title = "Polynomial Regression Analysis",
    .menu = {.back = "&Select Options"},
    .print_header = "/cPolynomial regression/rPage #/p/n",
    .plot_jobs = kPlotJobs,
    .plot_windows = kPlots,
    .offers_tutorial = true,
    .failure = {.fault = "Error", .aftermath = Aftermath::kWindowNotShown},
    .run = Steps<ReadPolynomial, ComputePolynomial, ReportPolynomial, DrawPolynomial>,
}};

}  // namespace

constinit const Analysis kPolynomial{
    .id = "polynomial",
    .dialog = &kDialog,
    .procedures = kProcedures,
    .quantities = kQuantities,
    .tables = kTables,
    .manual = "polynomial.md",
};

}  // namespace quorval::regression
