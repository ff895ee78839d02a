// Weighted least-squares regression of y (test method) on x (reference method), where the
// scatter widens with the concentration.
//
// Reads two columns, or four whose pairwise means are taken.  Writes rows 2 to 50 of the sheet and
// two optional tables, and the plots frmXY1s and frmRes1s.  The analysis can be repeated without
// the points that it marked.
#include "analyses/registry.h"
#include "analyses/regression/fit_weighted_least_squares.h"
#include "analyses/regression/plots.h"

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

// --- Input

struct WlsInput : ParametricInput {
  Weighting weighting;
};

WlsInput ReadWls(Run& run) {
  Pairs data = ReadPairs(run);
  for (const Sample& values : {data.x, data.y})
    RefuseNegativeOrZero(run, values, " Negative or zero numbers: No regression analysis ");
  return {TakeParametricOptions(run, std::move(data), 3), TakeWeighting(run.form)};
}

// --- Computation

struct WlsResult {
  WeightedLineFit line;
  Estimates estimates;  // at the levels
  TTest slope;
  LeastSquaresResiduals residuals{};
  OutlierMarks outliers{};
  Bands bands{};
};

WlsResult ComputeWls(Messages& messages, const WlsInput& input) {
  const std::optional<WeightedLineFit> line =
      FitWeightedLeastSquares(input.data.x, input.data.y, input.weighting);
  if (!line) Refuse(messages, "  Weighted l-s regression analysis could not be computed ");
  return {.line = *line,
          .estimates = EstimateAt(*line, input.levels),
          .slope = TestAgainst(1, line->b, line->se_b, input.data.Count() - 2)};
}

// --- Report

constexpr WeightingRows kWeightingRows{
    .exponent = Captioned(quantity::kExponent, "  Weighting exponent = "),
    .limit = Captioned(quantity::kTruncationLimit, "  Truncation of weighting at lower limit = "),
    .square_root = "  (square root relationship)",
    .proportional = "  (proportional relationship)",
};
constexpr Quantity kCorrelation =
    Captioned(quantity::kWeightedCorrelation, "  Weighted correlation coefficient");
constexpr Quantity kSDyx = Captioned(quantity::kSDyxFactor, "  SDy.x prop. factor");
constexpr auto kQuantities =
    Joined(kHeadQuantities, kWeightingRows.All(), kSlopeRows.All(), std::array{kCorrelation, kSDyx},
           kInterceptRows.All(), kCriticalValueQuantities, kOutlierQuantities);

std::string_view Title(const WlsInput& input) {
  return input.repeated
             ? "  Results of Weighted Least-Squares Regression Analysis (Re-analysis after outlier "
               "rejection)"
             : "  Results of Weighted Least-Squares Regression Analysis";
}

void WriteWeighting(ResultsSheet& sheet, const Weighting& weighting) {
  sheet.Row(11, "  Display of weighting parameters");
  WriteExponent(sheet, 12, kWeightingRows, weighting);
  if (weighting.T > 0) sheet.Row(13, kWeightingRows.limit(Real(weighting.T)));
}

void ReportWls(Messages& messages, ResultsSheet& sheet, const WlsInput& input, WlsResult& result) {
  const auto& [line, estimates, slope, residuals, outliers, bands] = result;
  const Real df = input.data.Count() - 2;
  WriteHead(sheet, Title(input), input);
  WriteWeighting(sheet, input.weighting);
  WriteTest(sheet, 14, kSlopeRows, slope);
  sheet.Row(19, kCorrelation(line.rw), CorrelationPClass(df, line.rw));

  // The rows above remain where the residuals cannot be examined.
  result.residuals = ResidualsOf(line, input.data, line.w);
  result.residuals.SDyx = ResidualSD(messages, residuals.q);
  sheet.Row(20, kSDyx(residuals.SDyx));
  sheet.Row(21, kLinearityTest, RunsTestClass(messages, residuals.e));
  WriteTest(sheet, 23, kInterceptRows, TestAgainst(0, line.a0, line.se_a0, df));
  WriteCriticalValues(sheet, 29, input.levels, estimates);

  result.residuals.Standardise();
  // By the SD around the weighted residuals' mean: not by z.
  result.outliers = MarkOutliers(messages, input, residuals.q);
  WriteOutliers(sheet, {.count = 34, .first = 39, .more = 50}, input, outliers);

  result.bands = ComputeBands(input.levels, estimates, CriticalT05(df));
  if (input.show_bands) WriteBands(sheet, 52, "Estim. y value", bands);
  if (input.show_residuals)
    WriteResiduals(sheet, 64,
                   {"x value", "y value", "Estim. y", "Residuals: (y-(a0+bx)", "St. residuals"},
                   input.data, residuals);
}

// --- Plots

constexpr auto kPlots = PlotsCaptioned("X-Y plot Weighted least-squares reg. analysis");
constexpr PlotJob kPlotJobs[] = {{.pictures = kPlots}};

void DrawWls(Plots& plots, const WlsInput& input, const WlsResult& result) {
  const auto& [line, estimates, slope, residuals, outliers, bands] = result;
  DrawComparison(plots, kPlots, input, outliers, bands,
                 {{.a0 = line.a0, .b = line.b}, input.data.x, residuals.z});
}

// --- The analysis

std::optional<Rejection> KeepWls(const WlsInput& input, const WlsResult& result) {
  return KeepForReanalysis(input, result.outliers);
}

constexpr Procedure MCstatF2s[] = {Comparison({
    .window = "MCstatF2s",
    .title = "Quorval      Weighted Least-Squares Regression Analysis",
    .menu = {.back = "&Selection of Weighted L.-S.  Reg. options"},
    .print_header = "/cWeighted Linear Regression/rPage #/p/n",
    .plot_jobs = kPlotJobs,
    .plot_windows = kPlots,
    .run = Steps<ReadWls, ComputeWls, ReportWls, DrawWls, KeepWls>,
})};

}  // namespace

constinit const Analysis kWls{
    .id = "wls",
    .dialog = &MCstatF2so,
    .procedures = MCstatF2s,
    .quantities = kQuantities,
    .tables = kTables,
    .manual = "weighted-least-squares.md",
};

}  // namespace quorval::regression
