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
    {[](const Form& form) { return form.Number32(kOutlierLimit) <= 0; },
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
  const Levels levels = PlaceLevels(form, RangeOfAbscissae(run, data, 3));
  const std::optional<LineFit> fit = FitLeastSquares(x, y);
  if (!fit) run.Refuse("  Regression result could not be computed ");
  const Estimates estimates = EstimateAt(*fit, levels);
  const Real df = data.Count() - 2;
  const Real r = PearsonR(run.messages, x, y);
  const Test slope = TestAgainst(1, fit->b, fit->se_b, df);

  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  WriteHead(run, "  Results of Ordinary Least-Squares Regression Analysis", data);
  WriteSlope(run, 11, slope);
  sheet.Row(16, "  Correlation coefficient", r, CorrelationPClass(df, r));

  Residuals residuals;
  for (std::size_t i = 0; i < x.size(); ++i) {
    residuals.estimate.push_back(fit->At(x[i]));
    residuals.e.push_back(y[i] - fit->At(x[i]));
  }
  // The SDyx shown, and the unit of z; the fit's own stays in the standard errors.
  const Real SDyx = ResidualSD(run, residuals.e);
  sheet.Row(17, "  SDyx", SDyx);
  sheet.Row(18, "  Test for dev. from linearity", RunsTestClass(run.messages, residuals.e));
  WriteIntercept(run, 19, TestAgainst(0, fit->a0, fit->se_a0, df));
  WriteCriticalValues(run, 24, levels, estimates);

  for (Real e : residuals.e) residuals.z.push_back(e / SDyx);
  // By the SD around the residuals' mean: not by z.
  const OutlierMarks outliers = MarkOutliers(run, residuals.e);
  WriteOutliers(run, {.count = 28, .first = 31, .more = 41}, outliers, data);

  const Bands bands = ComputeBands(levels, estimates, CriticalT05(df));
  if (form.On(kShowBands)) WriteBands(run, 42, "Estim y", bands);
  if (form.On(kShowResiduals))
    WriteResiduals(
        run, 55,
        {"x value", "y value", "Estim. y ", "Res. (y-(a0+bx)", "St. res.((y-(a0+bx))/SDy.x)"}, data,
        residuals);

  DrawXYPlot(run, "X-Y plot Ord. least-squares reg. analysis", data, outliers,
             {.a0 = fit->a0, .b = fit->b},
             form.On(kPlotBands) ? std::optional(bands) : std::nullopt);
  DrawResidualPlot(run, x, residuals.z, outliers);
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
