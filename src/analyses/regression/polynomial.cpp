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

// --- The data

struct OrderedPairs {
  Sample x, y;  // by x; points of equal x in the order of the worksheet

  int Count() const { return static_cast<int>(x.size()); }
};

OrderedPairs Sort(std::span<const Real> x, std::span<const Real> y) {
  std::vector<std::size_t> order(x.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, [&](std::size_t i, std::size_t j) { return x[i] < x[j]; });
  OrderedPairs points;
  for (std::size_t i : order) {
    points.x.push_back(x[i]);
    points.y.push_back(y[i]);
  }
  return points;
}

OrderedPairs ReadPairs(Run& run) {
  const Column x_column = ReadColumn(run, kXColumn);
  const Sample x = x_column.Numbers(run.notices);
  const Column y_column = ReadColumn(run, kYColumn);
  const Sample y = y_column.Numbers(run.notices);
  NoteLengths(run.notices, {{x_column.number, x.size()}, {y_column.number, y.size()}});
  if (x.size() != y.size()) run.Refuse(" Unequal numbers of x and y values: No analysis");
  if (x.size() < 3) run.Refuse(" N < 3: No analysis ");
  return Sort(x, y);
}

// --- The computation

struct Results {
  Polynomial polynomial{};
  Sample estimate{}, e{};
  PolynomialSums sums{};
  PolynomialTests tests{};
  Real SDyx{}, R{};
  OutlierMarks outliers{};
  Real t95{};
};

int TakeDegree(const Run& run, const OrderedPairs& points) {
  const int degree = run.form.Column(kDegree);
  if (degree > points.Count() - 2)
    run.Refuse("Degree of polynomium is higher than sample size minus two: No analysis");
  return degree;
}

Results Compute(Run& run, const OrderedPairs& points, int degree, Single limit) {
  const auto& [x, y] = points;
  const int n = points.Count();
  const int df = n - degree - 1;
  Results results{.polynomial = PolynomialFit(x, y, degree)};
  for (std::size_t i = 0; i < x.size(); ++i) {
    results.estimate.push_back(results.polynomial.At(x[i]));
    results.e.push_back(y[i] - results.estimate[i]);
  }
  const PolynomialSums& sums = results.sums = SumsOf(x, y, results.polynomial);
  results.SDyx = sums.SDyx();
  results.tests = TestPolynomial(run.messages, x, y, sums);
  results.R = Sqrt(sums.SSreg / (sums.SSreg + sums.SSres));
  // The limit counts in SDy.x, the marking in SDs with n - 1 in the denominator.
  const Real in_sds = limit * Sqrt(n - 1) / Sqrt(df);
  results.outliers = MarkOutliersBySD(run.messages, in_sds, ToSingles(results.e));
  results.t95 = CriticalT05(df);
  return results;
}

// --- The sheet

void WriteFit(Run& run, const Results& results) {
  ResultsSheet& sheet = run.sheet;
  const PolynomialSums& sums = results.sums;
  sheet.Row(2, Bold{"  Polynomial regression"});
  sheet.Row(3, "  Degree", sums.k, "  Project: ", run.context.ProjectName);
  sheet.Row(4, "  Number of obs.:", sums.n);
  sheet.Row(5, "  Coefficients:");
  for (std::size_t j = 0; j < results.polynomial.b.size(); ++j)
    sheet.Row(6 + static_cast<int>(j), "  b" + std::to_string(j) + ":", results.polynomial.b[j]);

  constexpr Blank _;
  constexpr std::string_view kDf = "D. f.: ";
  sheet.Row(14, "  Sum of squares and mean squares:");
  sheet.Row(15, "  Sum of Squares Regression: ", _, _, sums.SSreg);
  sheet.Row(16, "  Mean square Regression (m2sq): ", _, _, sums.m2sq, kDf, sums.k);
  sheet.Row(17, "  Sum of Squares Residual: ", _, _, sums.SSres);
  sheet.Row(18, "  Mean square Residuals (m1sq): ", _, _, sums.m1sq, kDf, sums.n - sums.k - 1);
  sheet.Row(19, "  Residuals SD (SDy.x): ", _, _, results.SDyx);
  sheet.Row(21, "  Generel F-test for the significance of polynomial regression: ");
  constexpr std::string_view kRatio = "  F-Ratio: (m2sq/m1sq): ";
  constexpr std::string_view kP = "  P:";
  if (const auto& test = results.tests.overall) {
    sheet.Row(23, kRatio, _, _, test->F, kP, test->P);
  } else {
    sheet.Row(23, kRatio, _, _, _, kP);
  }
  if (const auto& test = results.tests.last) {
    sheet.Row(25, Italic{"  Supplementary F-test for the significance of the last coefficient:"});
    sheet.Row(27, "  F-ratio last coef.:", _, test->F, kP, test->P);
  }
  sheet.Row(29, "  Correlation coefficient (R):", _, _, results.R);
}

// Returns the last row.
int WriteOutliersAndEstimate(Run& run, const Results& results, Single limit,
                             std::optional<Single> x) {
  ResultsSheet& sheet = run.sheet;
  constexpr Blank _;
  if (results.outliers.count > 0) {
    sheet.Row(31, " Number of outliers identified", _, _, results.outliers.count);
  } else {
    sheet.Row(31, "  No outliers identified");
  }
  sheet.Row(32, "Outlier limit (no. of SDs):", _, _, Real(limit));
  if (!x) return 32;
  sheet.Row(34, "Computed Y-value for entered X-value:");
  sheet.Row(35, "Entered X value:", _, _, Real(*x));
  sheet.Row(36, "Computed Yest:", _, _, results.polynomial.At(*x));
  return 36;
}

void WriteValues(ResultsSheet& sheet, int row, const Results& results, const OrderedPairs& points) {
  sheet.Row(row, "X values ordered", "Y values ordered", "Estim. Y values", "(Y-Yest)");
  for (std::size_t i = 0; i < points.x.size(); ++i) {
    sheet.Row(++row, points.x[i], points.y[i], results.estimate[i], results.e[i]);
    for (int column = 1; column <= 4; ++column)
      sheet.grid().Edit(column, row).look.bold = results.outliers.flags[i];
  }
  sheet.Row(row + 1, "Outliers in bold");
}

void WriteLimits(ResultsSheet& sheet, int row, const Results& results) {
  sheet.Put(row, 6, "(Yest-t95 SDy.x)");
  sheet.Put(row, 7, "(Yest+t95 SDy.x)");
  const Real margin = results.t95 * results.SDyx;
  for (Real estimate : results.estimate) {
    ++row;
    sheet.Put(row, 6, estimate - margin);
    sheet.Put(row, 7, estimate + margin);
  }
  sheet.Put(row + 1, 6, "t95:");
  sheet.Put(row + 1, 7, results.t95);
}

// --- The plots

constexpr PlotWindow kPlots[] = {{"frmPolynRegPlot", "Polynomial regression plot"},
                                 {"frmPolynResPlot", "Standardized residuals plot"}};

void DrawMarked(Plot& plot, const Sample& x, const Sample& y, const OutlierMarks& outliers) {
  plot.AddPoints(Select(x, y, outliers, false));
  if (outliers.count > 0) plot.AddPoints(Select(x, y, outliers, true), Mark::kCross);
}

void DrawRegression(Run& run, const Results& results, const OrderedPairs& points) {
  constexpr int kCurvePoints = 100;
  Plot& plot = run.AddPlot(kPlots[0]);
  plot.x.title = "X";
  plot.y.title = "Y";
  DrawMarked(plot, points.x, points.y, results.outliers);
  const auto add_curve = [&](Real above) {
    const auto& [min, max] = RangeOf(points.x);
    Points curve;
    for (int i = 0; i < kCurvePoints; ++i) {
      const Real x = min + i * (max - min) / (kCurvePoints - 1);
      curve.push_back({x, results.polynomial.At(x) + above});
    }
    plot.AddLine(std::move(curve));
  };
  add_curve(0);
  if (!run.form.On(kShowLimits)) return;
  const Real margin = results.t95 * results.SDyx;
  add_curve(-margin);
  add_curve(margin);
}

void DrawResiduals(Run& run, const Results& results) {
  Plot& plot = run.AddPlot(kPlots[1]);
  plot.x.title = "Estimated Y ";
  plot.y.title = "Stand. residual";
  Sample z;
  for (Real e : results.e) z.push_back(results.SDyx == 0 ? e : e / results.SDyx);
  DrawMarked(plot, results.estimate, z, results.outliers);
}

// --- The run

void RunPolynomial(Run& run) {
  const Form& form = run.form;
  const OrderedPairs points = ReadPairs(run);
  const int degree = TakeDegree(run, points);
  const Single limit = form.WholeNumber32(kLimit);
  std::optional<Single> x;
  if (!form.Blank(kXValue)) x = form.WholeNumber32(kXValue);
  const Results results = Compute(run, points, degree, limit);

  run.sheet.Clear();
  WriteFit(run, results);
  const int row = WriteOutliersAndEstimate(run, results, limit, x) + 2;
  if (form.On(kShowValues) || form.On(kShowLimits))
    run.sheet.Row(row, "Optional output of values:");
  if (form.On(kShowValues)) WriteValues(run.sheet, row + 1, results, points);
  if (form.On(kShowLimits)) WriteLimits(run.sheet, row + 1, results);
  DrawRegression(run, results, points);
  DrawResiduals(run, results);
}

constexpr std::array<PlotPicture, 2> kPictures{{
    {"frmPolynRegPlot", " Chart2D1.bmp", 350},
    {"frmPolynResPlot", " Chart2D1Res.bmp", 150},
}};
constexpr PlotJob kPlotJobs[] = {{.pictures = kPictures}};

constexpr Procedure kProcedures[] = {{
    .window = "frmPolynReg",
    .title = "Polynomial Regression Analysis",
    .menu = {.back = "&Select Options"},
    .print_header = "/cPolynomial regression/rPage #/p/n",
    .plot_jobs = kPlotJobs,
    .plot_windows = kPlots,
    .offers_tutorial = true,
    .failure = {.fault = "Error", .aftermath = Aftermath::kWindowNotShown},
    .run = RunPolynomial,
}};

}  // namespace

constinit const Analysis kPolynomial{
    .id = "polynomial",
    .dialog = &kDialog,
    .procedures = kProcedures,
    .manual = "polynomial.md",
};

}  // namespace quorval::regression
