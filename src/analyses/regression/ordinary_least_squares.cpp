// Ordinary least-squares regression of y (test method) on x (reference method).
//
// Reads two columns, or four whose pairwise means are taken.  Writes rows 2 to 41 of the sheet
// and two optional tables, and the plots frmXY1s and frmRes1s.  Outliers are listed and have
// marks of their own; every estimate keeps them.
#include "analyses/registry.h"
#include "analyses/regression/fit_least_squares.h"
#include "analyses/regression/plots.h"

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

// --- Input

struct OlsInput : ParametricInput {};

OlsInput ReadOls(Run& run) { return {TakeParametricOptions(run, ReadPairs(run), 3)}; }

// --- Computation

struct OlsResult {
  LineFit line;
  Estimates estimates;  // at the levels
  Real r;               // Pearson
  TTest slope;
  LeastSquaresResiduals residuals{};
  OutlierMarks outliers{};
  Bands bands{};
};

OlsResult ComputeOls(Messages& messages, const OlsInput& input) {
  const auto& [x, y, ids, columns, measured] = input.data;
  const std::optional<LineFit> line = FitLeastSquares(x, y);
  if (!line) Refuse(messages, "  Regression result could not be computed ");
  return {.line = *line,
          .estimates = EstimateAt(*line, input.levels),
          .r = PearsonR(messages, x, y),
          .slope = TestAgainst(1, line->b, line->se_b, input.data.Count() - 2)};
}

// --- Report

constexpr Quantity kCorrelation{"correlation", "  Correlation coefficient"};
constexpr Quantity kSDyx{"sd_yx", "  SDyx", Unit::kMeasurand};
constexpr auto kQuantities =
    Joined(kHeadQuantities, kSlopeRows.All(), std::array{kCorrelation, kSDyx}, kInterceptRows.All(),
           kCriticalValueQuantities, kOutlierQuantities);

void ReportOls(Messages& messages, ResultsSheet& sheet, const OlsInput& input, OlsResult& result) {
  const auto& [line, estimates, r, slope, residuals, outliers, bands] = result;
  const Real df = input.data.Count() - 2;
  WriteHead(sheet, "  Results of Ordinary Least-Squares Regression Analysis", input);
  WriteTest(sheet, 11, kSlopeRows, slope);
  sheet.Row(16, kCorrelation(r), CorrelationPClass(df, r));

  // The rows above remain where the residuals cannot be examined.
  const Sample w(input.data.x.size(), 1);
  result.residuals = ResidualsOf(line, input.data, w);
  result.residuals.SDyx = ResidualSD(messages, residuals.q);
  sheet.Row(17, kSDyx(residuals.SDyx));
  sheet.Row(18, kLinearityTest, RunsTestClass(messages, residuals.e));
  WriteTest(sheet, 19, kInterceptRows, TestAgainst(0, line.a0, line.se_a0, df));
  WriteCriticalValues(sheet, 24, input.levels, estimates);

  result.residuals.Standardise();
  // By the SD around the residuals' mean: not by z.
  result.outliers = MarkOutliers(messages, input, residuals.q);
  WriteOutliers(sheet, {.count = 28, .first = 31, .more = 41}, input, outliers);

  result.bands = ComputeBands(input.levels, estimates, CriticalT05(df));
  if (input.show_bands) WriteBands(sheet, 42, "Estim y", bands);
  if (input.show_residuals)
    WriteResiduals(
        sheet, 55,
        {"x value", "y value", "Estim. y ", "Res. (y-(a0+bx)", "St. res.((y-(a0+bx))/SDy.x)"},
        input.data, residuals);
}

// --- Plots

constexpr auto kPlots = PlotsCaptioned("X-Y plot Ord. least-squares reg. analysis");
constexpr PlotJob kPlotJobs[] = {{.pictures = kPlots}};

void DrawOls(Plots& plots, const OlsInput& input, const OlsResult& result) {
  const auto& [line, estimates, r, slope, residuals, outliers, bands] = result;
  DrawComparison(plots, kPlots, input, outliers, bands,
                 {{.a0 = line.a0, .b = line.b}, input.data.x, residuals.z});
}

// --- The analysis

constexpr Procedure MCstatF1s[] = {Comparison({
    .window = "MCstatF1s",
    .title = "Quorval      Ordinary Least-Squares Regression Analysis",
    .menu = {.back = "&Selection of Ord. L.-S.  Reg. options"},
    .print_header = "/cOrd. Linear regression/rPage #/p/n",
    .plot_jobs = kPlotJobs,
    .plot_windows = kPlots,
    .run = Steps<ReadOls, ComputeOls, ReportOls, DrawOls>,
})};

}  // namespace

constinit const Analysis kOls{
    .id = "ols",
    .dialog = &MCstatF1so,
    .procedures = MCstatF1s,
    .quantities = kQuantities,
    .tables = kTables,
    .manual = "ordinary-least-squares.md",
};

}  // namespace quorval::regression
