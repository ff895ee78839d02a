// Weighted least-squares regression of y (test method) on x (reference method), where the
// scatter widens with the concentration.
//
// Reads two columns, or four whose pairwise means are taken.  Writes rows 2 to 50 of the sheet and
// two optional tables, and the plots frmXY1s and frmRes1s.  The analysis can be repeated without
// the points that it marked.
#include "analyses/registry.h"
#include "analyses/regression/fit_weighted_least_squares.h"
#include "analyses/regression/least_squares_report.h"
#include "stats/significance.h"

namespace quorval::regression {
namespace {

// --- Options

constexpr std::string_view kWeightingGroup = "Weighting function:";

constexpr Field kFields[] = {
    kMode,
    kIdColumn,
    kFirstColumn,
    kSecondColumn,
    kThirdColumn,
    kFourthColumn,
    kXc1,
    kXc2,
    InGroup(Captioned(RefusedWith(kWeightingExponent,
                                  "Weighting exponent should be between zero and 2 incl."),
                      "Weighting exponent (0 - 2): (2 corresponds to proportional weighting)"),
            kWeightingGroup),
    InGroup(Captioned(RefusedWith(kTruncationLimit,
                                  "Negative value for Lower limit of truncation not allowed"),
                      "Lower limit of truncation:"),
            kWeightingGroup),
    kOutlierLimit,
    Captioned(kShowResiduals, "Display x, y ,estim. y and residuals"),
    Captioned(kShowBands, "Display coordinates of 95%-confidence band (at 11 positions)"),
    Captioned(kPlotBands, "Show 95%-confidence bands"),
};

constexpr Rule kRules[] = {
    DemandsOf(kIdColumn),
    DemandsOf(kFirstColumn, kSecondColumn),
    DemandsOf(kThirdColumn, kFourthColumn),
    DemandsOf(kOutlierLimit),
    DemandsOf(kTruncationLimit),
    DemandsOf(kWeightingExponent),
};

constexpr Dialog MCstatF2so{
    .window = "MCstatF2so",
    .title = "  Weighted Least-Squares Regression Analysis",
    .heading = "Options for Weighted Least-Squares regression analysis",
    .fields = kFields,
    .rules = kRules,
};
static_assert(WellFormed(MCstatF2so));

constexpr auto kPlots = PlotsCaptioned("X-Y plot Weighted least-squares reg. analysis");

// --- The run

std::string_view Title(const Run& run) {
  return run.repeated == nullptr
             ? "  Results of Weighted Least-Squares Regression Analysis"
             : "  Results of Weighted Least-Squares Regression Analysis (Re-analysis after outlier "
               "rejection)";
}

void WriteWeighting(Run& run, const Weighting& weighting) {
  std::string_view relationship;
  if (weighting.P == 1) relationship = "  (square root relationship)";
  if (weighting.P == 2) relationship = "  (proportional relationship)";
  run.sheet.Row(11, "  Display of weighting parameters");
  run.sheet.Row(12, "  Weighting exponent = ", Real(weighting.P), relationship);
  if (weighting.T > 0)
    run.sheet.Row(13, "  Truncation of weighting at lower limit = ", Real(weighting.T));
}

constexpr LeastSquaresRows kRows{
    .sd = 20,
    .sd_label = "  SDy.x prop. factor",
    .intercept = 23,
    .critical_values = 29,
    .outliers = {.count = 34, .first = 39, .more = 50},
    .bands = 52,
    .estimate_heading = "Estim. y value",
    .residuals = 64,
    .residual_headings = {"x value", "y value", "Estim. y", "Residuals: (y-(a0+bx)",
                          "St. residuals"},
};

void RunWls(Run& run) {
  const Pairs data = ReadPairs(run);
  for (const Sample& values : {data.x, data.y})
    RefuseNegativeOrZero(run, values, " Negative or zero numbers: No regression analysis ");
  const Levels levels = PlaceLevels(run.form, RangeOfAbscissae(run, data, 3));
  const Weighting weighting = TakeWeighting(run.form);
  const std::optional<WeightedLineFit> fit = FitWeightedLeastSquares(data.x, data.y, weighting);
  if (!fit) run.Refuse("  Weighted l-s regression analysis could not be computed ");
  const Estimates estimates = EstimateAt(*fit, levels);
  const Real df = data.Count() - 2;
  const TTest slope = TestAgainst(1, fit->b, fit->se_b, df);

  run.sheet.Clear();
  WriteHead(run, Title(run), data);
  WriteWeighting(run, weighting);
  WriteSlope(run, 14, slope);
  run.sheet.Row(19, "  Weighted correlation coefficient", fit->rw, CorrelationPClass(df, fit->rw));
  const OutlierMarks outliers =
      ReportLeastSquares(run, kRows, {data, levels, *fit, estimates, fit->w}, kPlots);
  KeepForReanalysis(run, data, outliers);
}

constexpr Procedure MCstatF2s[] = {Comparison({
    .window = "MCstatF2s",
    .title = "Quorval      Weighted Least-Squares Regression Analysis",
    .menu = {.back = "&Selection of Weighted L.-S.  Reg. options"},
    .print_header = "/cWeighted Linear Regression/rPage #/p/n",
    .plot_windows = kPlots,
    .run = RunWls,
})};

}  // namespace

constinit const Analysis kWls{
    .id = "wls",
    .dialog = &MCstatF2so,
    .procedures = MCstatF2s,
    .manual = "weighted-least-squares.md",
};

}  // namespace quorval::regression
