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

constexpr auto kPlots = PlotsCaptioned("XY Plot Nonparametric Regression");

// --- The run

bool Holds(Real lower, Real expected, Real upper) { return lower <= expected && expected <= upper; }

// Rows 11 to 16 and 20 to 27.
void WriteEstimates(Run& run, const Pairs& data, const PassingBablokLine& line, Real rs) {
  ResultsSheet& sheet = run.sheet;
  sheet.Row(11, "  Slope b:", line.b);
  sheet.Row(12, "  95%-Conf. Int.:", line.bL, line.bU);
  sheet.Row(13, "  Test for slope deviation from 1:",
            Holds(line.bL, 1, line.bU) ? "Slope not significantly different from 1"
                                       : "Slope significantly different from 1");
  sheet.Row(16, "Rank corr. coefficient:", rs, CorrelationPClass(data.Count() - 2, rs));
  sheet.Row(20, "  Intercept  a0", line.a0);
  sheet.Row(21, "  95%-Conf. Int.:", line.aL, line.aU);
  sheet.Row(22, "  Test for intercept deviation from 0:",
            Holds(line.aL, 0, line.aU) ? "Intercept not significantly different from zero"
                                       : "Intercept significantly different from zero");
  sheet.Row(23, "  ");
}

void WriteDifferences(Run& run, const PassingBablokLine& line, const Levels& levels) {
  const auto& [Xc1, Xc2, u] = levels;
  if (Xc1.shown) {
    run.sheet.Row(24, "  Critical value Xc1", Xc1.x);
    run.sheet.Row(25, "  Difference Yc1 - Xc1", line.a0 + line.b * Xc1.x - Xc1.x);
  }
  if (Xc2.shown) {
    run.sheet.Row(26, "  Critical value Xc2", Xc2.x);
    run.sheet.Row(27, "  Difference Yc2 - Xc2 ", line.a0 + line.b * Xc2.x - Xc2.x);
  }
}

// The runs test on the points' distances from the line, which must not be all alike.
void TestLinearity(Run& run, const Pairs& data, const PassingBablokLine& line, const Sample& d) {
  const DemingLine as_deming{
      .lambda = 1 / Square(line.b), .b = line.b, .a0 = line.a0, .mean_x = 0, .mean_y = 0};
  const Sample r = DistancesFromLine<Real>(data, as_deming, d).r;
  run.sheet.Row(18, "  Test for dev. from linearity", RunsTestClass(run.messages, r));
  if (DescribeSample(run.messages, r).sd == 0) Raise(Fault::Kind::kDivisionByZero);
}

void RunPassingBablok(Run& run) {
  const Pairs data = ReadPairs(run);
  const auto& x = data.x;
  const auto& y = data.y;
  const Levels levels = PlaceLevels(run.form, RangeOfAbscissae(run, data, 5));
  const Real rs = RankCorrelation(x, y);
  if (rs <= 0) {
    Note(run.notices, {"arithmetic", "the rank correlation of x and y is " + FixedText(rs, 4) +
                                         ", and the slopes want one above 0"});
    run.Refuse("Error occurred");
  }
  const std::optional<PassingBablokLine> line = PassingBablokFit(run.messages, x, y);
  if (!line) run.Refuse("  Regression result could not be computed ");

  run.sheet.Clear();
  WriteHead(run, "  Results of (Passing-Bablok) Regression Analysis", data);
  WriteEstimates(run, data, *line, rs);
  WriteDifferences(run, *line, levels);

  Residuals residuals;
  for (std::size_t i = 0; i < x.size(); ++i) {
    residuals.estimate.push_back(line->At(x[i]));
    residuals.e.push_back(y[i] - line->At(x[i]));
  }
  TestLinearity(run, data, *line, residuals.e);
  residuals.z = Standardise<Real>(run, residuals.e);
  // The last heading says otherwise, but the residuals are the vertical ones.
  if (run.form.On(kShowResiduals))
    WriteResiduals(run, 30,
                   {"  x value", "  y value", "  Estim. y", "  Res.(vertical: y - (a0+bx))",
                    "  St. res. at an angle to the line"},
                   data, residuals);
  DrawUnmarkedXYPlot(run, kPlots[0], data, {.a0 = line->a0, .b = line->b});
  DrawUnmarkedResidualPlot(run, kPlots[1], x, residuals.z);
}

constexpr Procedure MCstatF5s[] = {Comparison({
    .window = "MCstatF5s",
    .title = "Quorval      Nonparametric Regression Analysis",
    .menu = {.back = "&Selection of Nonpar.  Reg. options"},
    .print_header = "/cPassing-Bablok Regression/rPage #/p/n",
    .plot_windows = kPlots,
    .run = RunPassingBablok,
})};

}  // namespace

constinit const Analysis kPassingBablok{
    .id = "passing-bablok",
    .dialog = &MCstatF5so,
    .procedures = MCstatF5s,
    .manual = "passing-bablok.md",
};

}  // namespace quorval::regression
