// Ordinary least-squares regression of y (test method) on x (reference method).
//
// Reads two columns, or four whose pairwise means are taken.  Writes rows 2 to 41 of the sheet
// and two optional tables, and the plots frmXY1s and frmRes1s.  Outliers are listed and have
// marks of their own; every estimate keeps them.
#include "analyses/registry.h"
#include "analyses/regression/least_squares_report.h"
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
    RefusedWith(kOutlierLimit, "Negative value for Outlier limit not allowed!"),
    Captioned(kShowResiduals, "Display x, y and residual values (y-(a0+bx))"),
    Captioned(kShowBands, "Display coordinates of 95%-confidence bands (at 11 positions)"),
    Captioned(kPlotBands, "Show 95%-confidence bands in plot"),
};

constexpr Rule kRules[] = {
    DemandsOf(kFirstColumn, kSecondColumn),
    DemandsOf(kThirdColumn, kFourthColumn),
    DemandsOf(kOutlierLimit),
};

constexpr Dialog MCstatF1so{
    .window = "MCstatF1so",
    .title = "  Ordinary Least-Squares Regression Analysis",
    .heading = "Options for Ordinary Least-Squares regression analysis",
    .fields = kFields,
    .rules = kRules,
};
static_assert(WellFormed(MCstatF1so));

constexpr auto kPlots = PlotsCaptioned("X-Y plot Ord. least-squares reg. analysis");

// --- The run

constexpr LeastSquaresRows kRows{
    .sd = 17,
    .sd_label = "  SDyx",
    .intercept = 19,
    .critical_values = 24,
    .outliers = {.count = 28, .first = 31, .more = 41},
    .bands = 42,
    .estimate_heading = "Estim y",
    .residuals = 55,
    .residual_headings = {"x value", "y value", "Estim. y ", "Res. (y-(a0+bx)",
                          "St. res.((y-(a0+bx))/SDy.x)"},
};

void RunOls(Run& run) {
  const Pairs data = ReadPairs(run);
  const Levels levels = PlaceLevels(run.form, RangeOfAbscissae(run, data, 3));
  const std::optional<LineFit> fit = FitLeastSquares(data.x, data.y);
  if (!fit) run.Refuse("  Regression result could not be computed ");
  const Estimates estimates = EstimateAt(*fit, levels);
  const Real df = data.Count() - 2;
  const Real r = PearsonR(run.messages, data.x, data.y);
  const TTest slope = TestAgainst(1, fit->b, fit->se_b, df);

  run.sheet.Clear();
  WriteHead(run, "  Results of Ordinary Least-Squares Regression Analysis", data);
  WriteSlope(run, 11, slope);
  run.sheet.Row(16, "  Correlation coefficient", r, CorrelationPClass(df, r));
  const Sample w(data.x.size(), 1);
  ReportLeastSquares(run, kRows, {data, levels, *fit, estimates, w}, kPlots);
}

constexpr Procedure MCstatF1s[] = {Comparison({
    .window = "MCstatF1s",
    .title = "Quorval      Ordinary Least-Squares Regression Analysis",
    .menu = {.back = "&Selection of Ord. L.-S.  Reg. options"},
    .print_header = "/cOrd. Linear regression/rPage #/p/n",
    .plot_windows = kPlots,
    .run = RunOls,
})};

}  // namespace

constinit const Analysis kOls{
    .id = "ols",
    .dialog = &MCstatF1so,
    .procedures = MCstatF1s,
    .manual = "ordinary-least-squares.md",
};

}  // namespace quorval::regression
