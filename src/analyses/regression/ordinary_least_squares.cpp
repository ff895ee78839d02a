// Ordinary least-squares regression of y (test method) on x (reference method).
//
// Reads two columns, or four whose pairwise means are taken.  Writes rows 2 to 41 of the sheet
// and two optional tables, and the plots frmXY1s and frmRes1s.  Outliers are reported and drawn
// apart, and never removed from an estimate.
#include "analyses/registry.h"
#include "analyses/regression/fit_least_squares.h"
#include "analyses/regression/plots.h"
#include "analyses/regression/regression.h"
#include "stats/significance.h"

namespace quorval::regression {
namespace {

// --- Options

constexpr Field kFields[] = {
    kMode,
    kIdColumn,
    kFirstColumn,
    kSecondColumn,
    kThirdColumn,
    kFourthColumn,
    kXc1,
    kXc2,
    kOutlierLimit,
    Captioned(kShowResiduals, "Display x, y and residual values (y-(a0+bx))"),
    Captioned(kShowBands, "Display coordinates of 95%-confidence bands (at 11 positions)"),
    Captioned(kPlotBands, "Show 95%-confidence bands in plot"),
};

constexpr Rule kRules[] = {
    kFirstColumnsRule,
    kLastColumnsRule,
    {[](const Form& form) { return form.Number(kOutlierLimit) <= 0; },
     "Negative value for Outlier limit not allowed!"},
};

constexpr Dialog MCstatF1so{
    .window = "MCstatF1so",
    .title = "  Ordinary Least-Squares Regression Analysis",
    .heading = "Options for Ordinary Least-Squares regression analysis",
    .fields = kFields,
    .rules = kRules,
};
static_assert(WellFormed(MCstatF1so));

// --- The run

void RunOls(Run& run) {
  const Form& form = run.form;
  const Pairs data = ReadPairs(run);
  const auto& x = data.x;
  const auto& y = data.y;
  const Real n = data.Count();
  if (n < 3) run.Refuse(" n < 3: No regression analysis");
  const Range range = RangeOf(x);
  if (range.min == range.max) run.Refuse(" No dispersion of x values: no regression analysis ");

  const CriticalValue Xc1 = TakeCriticalValue(form, kXc1, range, 0.25);
  const CriticalValue Xc2 = TakeCriticalValue(form, kXc2, range, 0.75);
  const std::optional<LineFit> fit = FitLeastSquares(x, y);
  if (!fit) run.Refuse("  Regression result could not be computed ");
  const Real df = n - 2;
  const Real r = PearsonR(run.messages, x, y);
  const Test slope = TestAgainst(1, fit->b, fit->se_b, df);

  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  WriteHead(run, "  Results of Ordinary Least-Squares Regression Analysis", data);
  sheet.Row(11, "  Slope b", slope.estimate);
  sheet.Row(12, "  SE b", slope.se);
  sheet.Row(13, "  95%-Conf. Int.", slope.lower, slope.upper);
  sheet.Row(14, "  Test for slope deviation from 1");
  sheet.Row(15, "  t  and  P", slope.t, slope.P);
  sheet.Row(16, "  Correlation coefficient", r, CorrelationPClass(df, r));

  Sample e;
  for (std::size_t i = 0; i < x.size(); ++i) e.push_back(y[i] - fit->At(x[i]));
  // The SDyx shown, and the unit of z; the fit's own stays in the standard errors.
  const Real SDyx = DescribeSample(run.messages, e).sd * Sqrt((n - 1) / (n - 2));
  sheet.Row(17, "  SDyx", SDyx);
  sheet.Row(18, "  Test for dev. from linearity", RunsTestClass(run.messages, e));

  const Test intercept = TestAgainst(0, fit->a0, fit->se_a0, df);
  sheet.Row(19, "  Intercept  a0", intercept.estimate);
  sheet.Row(20, "  SE a0", intercept.se);
  sheet.Row(21, "  95%-Conf. Int.", intercept.lower, intercept.upper);
  sheet.Row(22, "  Test for intercept deviation from 0");
  sheet.Row(23, "  t  and  P", intercept.t, intercept.P);
  if (Xc1.shown) {
    sheet.Row(24, "  Critical value Xc1", Xc1.x);
    sheet.Row(25, "  Difference Yc1 - Xc1 with SE", fit->At(Xc1.x) - Xc1.x, fit->SeAt(Xc1.x));
  }
  if (Xc2.shown) {
    sheet.Row(26, "  Critical value Xc2", Xc2.x);
    sheet.Row(27, "  Difference Yc2 - Xc2 with SE", fit->At(Xc2.x) - Xc2.x, fit->SeAt(Xc2.x));
  }

  Sample z;
  for (Real residual : e) z.push_back(residual / SDyx);
  // On a 32-bit copy, and by the SD around the residuals' mean: not by z.
  const OutlierMarks outliers =
      MarkOutliersBySD(run.messages, form.Number32(kOutlierLimit), ToSingles(e));
  WriteOutliers(run, 28, outliers, data);

  const Bands bands = ComputeBands(*fit, PlaceBands(range), CriticalT05(df));
  if (form.On(kShowBands)) WriteBands(run, 42, "Estim y", bands);
  if (form.On(kShowResiduals)) {
    sheet.Row(55, "x value", "y value", "Estim. y ", "Res. (y-(a0+bx)",
              "St. res.((y-(a0+bx))/SDy.x)");
    for (std::size_t i = 0; i < x.size(); ++i)
      sheet.Row(56 + static_cast<int>(i), x[i], y[i], fit->At(x[i]), e[i], z[i]);
  }

  DrawXYPlot(run, "X-Y plot Ord. least-squares reg. analysis", data, outliers,
             {.a0 = fit->a0, .b = fit->b},
             form.On(kPlotBands) ? std::optional(bands) : std::nullopt);
  DrawResidualPlot(run, x, z, outliers);
}

constexpr Procedure MCstatF1s[] = {{
    .window = "MCstatF1s",
    .title =
        [](const Form& form) {
          return WindowTitle("Ordinary Least-Squares Regression Analysis", form);
        },
    .menu = {.back = "&Selection of Ord. L.-S.  Reg. options"},
    .print_header = "/cOrd. Linear regression/rPage #/p/n",
    .plot_jobs = kPlotJobs,
    .plot_windows = kPlotWindows,
    .failure = {.fault = "Error occurred", .second = "Error occurred"},
    .run = RunOls,
}};

}  // namespace

constinit const Analysis kOls{
    .id = "ols",
    .dialog = &MCstatF1so,
    .procedures = MCstatF1s,
    .manual = "ordinary-least-squares.md",
};

}  // namespace quorval::regression
