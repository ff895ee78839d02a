// Nonparametric regression of y (test method) on x (reference method) by Passing and Bablok.
//
// Reads two columns, or four whose pairwise means are taken.  Writes rows 2 to 27 of the sheet and
// an optional table, and the plots frmXY1s and frmRes1s.  There are no standard errors, no bands
// and no outliers.
#include "analyses/registry.h"
#include "analyses/regression/distance_residuals.h"
#include "analyses/regression/fit_passing_bablok.h"
#include "analyses/regression/plots.h"
#include "core/conversion.h"
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
    Captioned(kShowResiduals, "Display x, y and residuals (y-(a0+bx))"),
    {.kind = FieldKind::kNote,
     .caption = "Please, notice that the computation time increases exponentially with the sample "
                "size, implicating a computation time of several minutes or longer for N larger "
                "than 100"},
};

constexpr Rule kRules[] = {
    DemandsOf(kFirstColumn, kSecondColumn),
    DemandsOf(kThirdColumn, kFourthColumn),
};

constexpr Dialog MCstatF5so{
    .window = "MCstatF5so",
    .title = "  Nonparametric Regression Analysis (Bablok & Passing)",
    .heading = "Options for nonparametric regression analysis",
    .fields = kFields,
    .rules = kRules,
};
static_assert(WellFormed(MCstatF5so));

// --- Input

ComparisonInput ReadPassingBablok(Run& run) { return TakeOptions(run, ReadPairs(run), 5); }

// --- Computation

struct PassingBablokResult {
  Real rs;  // rank correlation
  PassingBablokLine line;
  Residuals residuals{};
};

PassingBablokResult ComputePassingBablok(Messages& messages, Notices& notices,
                                         const ComparisonInput& input) {
  const auto& [x, y, ids, columns, measured] = input.data;
  const Real rs = RankCorrelation(x, y);
  if (rs <= 0) {
    Note(notices, {"arithmetic", "the rank correlation of x and y is " + FixedText(rs, 4) +
                                     ", and the slopes want one above 0"});
    Refuse(messages, "Error occurred");
  }
  const std::optional<PassingBablokLine> line = PassingBablokFit(messages, x, y);
  if (!line) Refuse(messages, "  Regression result could not be computed ");
  return {.rs = rs, .line = *line};
}

Residuals VerticalResiduals(const Pairs& data, const PassingBablokLine& line) {
  Residuals residuals;
  for (std::size_t i = 0; i < data.x.size(); ++i) {
    residuals.estimate.push_back(line.At(data.x[i]));
    residuals.e.push_back(data.y[i] - line.At(data.x[i]));
  }
  return residuals;
}

// The points' distances from the line, from their vertical residuals.
Sample Distances(const Pairs& data, const PassingBablokLine& line, const Sample& e) {
  const DemingLine as_deming{
      .lambda = 1 / Square(line.b), .b = line.b, .a0 = line.a0, .mean_x = 0, .mean_y = 0};
  return DistancesFromLine<Real>(data, as_deming, e).r;
}

// --- Report

constexpr std::string_view kLimits = "  95%-Conf. Int.:";
constexpr Quantity kSlope = Captioned(kSlopeRows.estimate, "  Slope b:");
constexpr Quantity kSlopeLower = Captioned(kSlopeRows.lower, kLimits);
constexpr Quantity kSlopeUpper = Captioned(kSlopeRows.upper, kLimits);
constexpr Quantity kCorrelation{"correlation.rank", "Rank corr. coefficient:"};
constexpr Quantity kIntercept = kInterceptRows.estimate;
constexpr Quantity kInterceptLower = Captioned(kInterceptRows.lower, kLimits);
constexpr Quantity kInterceptUpper = Captioned(kInterceptRows.upper, kLimits);
constexpr Quantity kDifference1 = Captioned(quantity::kDifference1, "  Difference Yc1 - Xc1");
constexpr Quantity kDifference2 = Captioned(quantity::kDifference2, "  Difference Yc2 - Xc2 ");
constexpr auto kQuantities =
    Joined(kHeadQuantities,
           std::array{kSlope, kSlopeLower, kSlopeUpper, kCorrelation, kIntercept, kInterceptLower,
                      kInterceptUpper, quantity::kXc1, kDifference1, quantity::kXc2, kDifference2});
constexpr NamedTable kPointTables[] = {kResidualsTable};

bool Holds(Real lower, Real expected, Real upper) { return lower <= expected && expected <= upper; }

void WriteDifferences(ResultsSheet& sheet, const PassingBablokLine& line, const Levels& levels) {
  const auto& [Xc1, Xc2, u] = levels;
  if (Xc1.shown) {
    sheet.Row(24, quantity::kXc1(Xc1.x));
    sheet.Row(25, kDifference1(line.a0 + line.b * Xc1.x - Xc1.x));
  }
  if (Xc2.shown) {
    sheet.Row(26, quantity::kXc2(Xc2.x));
    sheet.Row(27, kDifference2(line.a0 + line.b * Xc2.x - Xc2.x));
  }
}

void ReportPassingBablok(Messages& messages, ResultsSheet& sheet, const ComparisonInput& input,
                         PassingBablokResult& result) {
  const auto& [rs, line, residuals] = result;
  const Pairs& data = input.data;
  WriteHead(sheet, "  Results of (Passing-Bablok) Regression Analysis", input);
  sheet.Row(11, kSlope(line.b));
  sheet.Row(12, kSlopeLower(line.bL), kSlopeUpper(line.bU));
  sheet.Row(13, "  Test for slope deviation from 1:",
            Holds(line.bL, 1, line.bU) ? "Slope not significantly different from 1"
                                       : "Slope significantly different from 1");
  sheet.Row(16, kCorrelation(rs), CorrelationPClass(data.Count() - 2, rs));
  sheet.Row(20, kIntercept(line.a0));
  sheet.Row(21, kInterceptLower(line.aL), kInterceptUpper(line.aU));
  sheet.Row(22, "  Test for intercept deviation from 0:",
            Holds(line.aL, 0, line.aU) ? "Intercept not significantly different from zero"
                                       : "Intercept significantly different from zero");
  sheet.Row(23, "  ");
  WriteDifferences(sheet, line, input.levels);

  // The rows above remain where the residuals cannot be examined.
  result.residuals = VerticalResiduals(data, line);
  const Sample distances = Distances(data, line, residuals.e);
  sheet.Row(18, kLinearityTest, RunsTestClass(messages, distances));
  if (DescribeSample(messages, distances).sd == 0) Raise(Fault::Kind::kDivisionByZero);
  result.residuals.z = Standardise<Real>(messages, residuals.e);
  // The last heading says otherwise, but the residuals are the vertical ones.
  if (input.show_residuals)
    WriteResiduals(sheet, 30,
                   {"  x value", "  y value", "  Estim. y", "  Res.(vertical: y - (a0+bx))",
                    "  St. res. at an angle to the line"},
                   data, residuals);
}

// --- Plots

constexpr auto kPlots = PlotsCaptioned("XY Plot Nonparametric Regression");
constexpr PlotJob kPlotJobs[] = {{.pictures = kPlots}};

void DrawPassingBablok(Plots& plots, const ComparisonInput& input,
                       const PassingBablokResult& result) {
  const auto& [rs, line, residuals] = result;
  DrawUnmarked(plots, kPlots, input.data,
               {{.a0 = line.a0, .b = line.b}, input.data.x, residuals.z});
}

// --- The analysis

constexpr Procedure MCstatF5s[] = {Comparison({
    .window = "MCstatF5s",
    .title = "Quorval      Nonparametric Regression Analysis",
    .menu = {.back = "&Selection of Nonpar.  Reg. options"},
    .print_header = "/cPassing-Bablok Regression/rPage #/p/n",
    .plot_jobs = kPlotJobs,
    .plot_windows = kPlots,
    .run = Steps<ReadPassingBablok, ComputePassingBablok, ReportPassingBablok, DrawPassingBablok>,
})};

}  // namespace

constinit const Analysis kPassingBablok{
    .id = "passing-bablok",
    .dialog = &MCstatF5so,
    .procedures = MCstatF5s,
    .quantities = kQuantities,
    .tables = kPointTables,
    .manual = "passing-bablok.md",
};

}  // namespace quorval::regression
