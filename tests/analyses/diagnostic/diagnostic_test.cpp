// Expected numbers: tests/independent/diagnostic_tests.py.
#include "analyses/registry.h"
#include "support/analysis_cases.h"

namespace quorval::test {
namespace {

using diagnostic::kDiagnostic;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::string_view kExample = "Evaluation of a single diagnostic test";
const Settings kRoc{{"evaluation", "roc"}};
const Settings kRocWithSE{{"evaluation", "roc"}, {"area-se", "on"}};

Settings CutOffValue(std::string value) {
  return {{"cut-off-by", "value"}, {"cut-off-value", std::move(value)}};
}
Settings Percentile(std::string p) { return {{"cut-off-percentile", std::move(p)}}; }
Settings Classes(std::string count) {
  return {{"classes", "user"}, {"class-count", std::move(count)}};
}

// first, first + 1, ...
std::vector<std::string> CountUp(int first, int n) {
  std::vector<std::string> values;
  for (int i = 0; i < n; ++i) values.push_back(std::to_string(first + i));
  return values;
}

TEST(DiagnosticCutOff, WritesItsSheetOnTheExample) {
  const Transcript told = RunOnExample(kExample, kDiagnostic);
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  EXPECT_EQ(LinesOf(told.sheet), SheetOf("DiagnosticCutOff, writes its sheet on the example"));
  ExpectNumbers(told, {{12, 2, 19.25},  // t = 23, the 23rd smallest
                       {14, 2, 0.92},
                       {14, 3, 0.05425863986500213},
                       {15, 2, 0.8136530658645958},
                       {15, 3, 1},
                       {16, 3, 0.09991996797437437},
                       {17, 2, 0.2841568627702262}});
  const Transcript nameless = RunAnalysis(kDiagnostic, {CountUp(1, 10), CountUp(4, 10)});
  EXPECT_EQ(nameless.Text(7, 2), "  ");
  EXPECT_EQ(nameless.Text(10, 2), "  ");
}

TEST(DiagnosticCutOff, ChoosesTheCutOff) {
  const Columns ten{CountUp(1, 10), CountUp(4, 12)};
  const struct {
    Settings settings;
    double CutOff;
    std::string label;
    double specificity, sensitivity;
  } cases[] = {
      {Percentile("90"), 9.5, "(User-specified percentile as cut-off)", 0.9, 0.5},
      {Percentile("95"), 10, "(User-specified percentile as cut-off)", 1, 5 / 12.0},  // t = N
      {Percentile("5"), 1, "(User-specified percentile as cut-off)", 0.1, 1},         // t = 1
      {CutOffValue("5"), 5, "(User-selected cut-off)", 0.5, 10 / 12.0},
      {CutOffValue("-1e3"), -1000, "(User-selected cut-off)", 0, 1},
      {{{"cut-off-by", "max-sum"}}, 10, "(Cut-off corresponding to max Spec+Sens)", 1, 5 / 12.0},
      {{{"cut-off-by", "max-correct"}}, 3.5, "(Cut-off corr. to max no classifications)", 0.3, 1},
  };
  for (const auto& [settings, CutOff, label, specificity, sensitivity] : cases) {
    const Transcript told = RunAnalysis(kDiagnostic, ten, settings);
    ASSERT_EQ(told.outcome, Outcome::kDone) << CutOff;
    EXPECT_EQ(told.Text(13, 1), label);
    EXPECT_EQ(told.Value(12, 2), CutOff);
    ExpectNumbers(told, {{14, 2, specificity}, {16, 2, sensitivity}});
  }
  const Transcript all = RunAnalysis(kDiagnostic, ten, Percentile("95"));
  ExpectNumbers(all, {{14, 3, 0}, {15, 2, 1}, {15, 3, 1}});
}

// 13.496 is halfway between 13.444 and 13.548; rounded to 32 bits, 0.1 lies a little above 0.1.
TEST(DiagnosticCutOff, ShowsAndUsesTheCutOffIn32Bits) {
  for (const char* rule : {"max-sum", "max-correct"})
    EXPECT_EQ(RunOnExample(kExample, kDiagnostic, {{"cut-off-by", rule}}).Value(12, 2),
              13.496000289916992);
  std::vector<std::string> first = CountUp(1, 10);
  first[0] = "0.1";
  const Transcript told = RunAnalysis(kDiagnostic, {first, CountUp(1, 10)}, CutOffValue("0.1"));
  EXPECT_EQ(told.Value(12, 2), static_cast<double>(0.1F));
  EXPECT_EQ(told.Value(14, 2), 0.1);
}

TEST(DiagnosticRoc, WritesTheSEOnlyWhereItIsAskedFor) {
  const Transcript told = RunOnExample(kExample, kDiagnostic, kRocWithSE);
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  EXPECT_EQ(LinesOf(told.sheet),
            SheetOf("DiagnosticRoc, writes the s e only where it is asked for"));
  constexpr double kArea = 0.8879999924898145, kSE = 0.04408091165899918;
  constexpr double kT = 2.014 - 0.006 * 3 / 5;  // 48 degrees of freedom
  ExpectNumbers(told, {{12, 2, kArea}});
  ExpectNumbers(told, {{13, 2, kSE}, {14, 2, kArea - kT * kSE}, {14, 3, kArea + kT * kSE}}, 1e-10);
  EXPECT_EQ(LinesOf(RunOnExample(kExample, kDiagnostic, kRocWithSE).sheet), LinesOf(told.sheet));
  EXPECT_EQ(RunOnExample(kExample, kDiagnostic, kRoc).sheet.DataRowCnt(), 12);
}

TEST(DiagnosticRoc, GoesToTheEndsOfTheScale) {
  for (const auto& [first, second, area] : {std::tuple{1, 11, 1.0}, {11, 1, 0.0}}) {
    const Transcript told =
        RunAnalysis(kDiagnostic, {CountUp(first, 10), CountUp(second, 10)}, kRocWithSE);
    ExpectNumbers(told, {{12, 2, area}, {13, 2, 0}, {14, 2, area}, {14, 3, area}});
  }
  // 55 of the 100 pairs in order, 9 equal.
  const Transcript overlapping = RunAnalysis(kDiagnostic, {CountUp(1, 10), CountUp(2, 10)}, kRoc);
  EXPECT_NEAR(overlapping.Value(12, 2), 0.595, 1e-7);
  const Transcript wide = RunAnalysis(kDiagnostic, {CountUp(1, 10), CountUp(9, 10)}, kRocWithSE);
  EXPECT_EQ(wide.Value(14, 3), 1);
}

TEST(Diagnostic, FailsAtBadDecimals) {
  Context context;
  context.NDec = "x";
  const auto ten = CountUp(1, 10);
  for (const auto& [settings, words] :
       {std::pair{Settings{}, "Error in Specificity/Sensitivity routine"},
        std::pair{kRoc, "Error ROC-Curve routine"}})
    EXPECT_THAT(RunAnalysis(kDiagnostic, {ten, ten}, settings, context).boxes,
                ElementsAre(words, "Error"));
}

TEST(Diagnostic, DrawsBothGroupsInClassesOfOneWidth) {
  const Transcript told = RunOnExample(kExample, kDiagnostic);
  ASSERT_THAT(told.plots, SizeIs(1));
  const Plot& plot = told.PlotOf("frmDiaPlot");
  ASSERT_THAT(plot.series, SizeIs(3));
  // 3 classes of (23.409 - 2.521) / 3, and 4 of the same width from 12.362 on.
  const double h = 20.888 / 3;
  const struct {
    double smallest;
    std::vector<int> counts;
    Colour colour;
  } groups[] = {{2.521, {14, 7, 4}, 0x0000FF}, {12.362, {13, 7, 4, 1}, 0xFF0000}};
  for (std::size_t i = 0; i < 2; ++i) {
    const Series& bars = plot.series[i];
    EXPECT_EQ(bars.draw, Draw::kBars);
    EXPECT_EQ(bars.colour, groups[i].colour);
    EXPECT_NEAR(Raw(bars.bar_width), h, 1e-6);
    ASSERT_THAT(bars.points, SizeIs(groups[i].counts.size()));
    for (std::size_t k = 0; k < bars.points.size(); ++k) {
      EXPECT_NEAR(Raw(bars.points[k].x), groups[i].smallest + (static_cast<double>(k) + 0.5) * h,
                  1e-5);
      EXPECT_EQ(bars.points[k].y, groups[i].counts[k] / 25.0);
    }
  }
  EXPECT_EQ(plot.series[2].pattern, Pattern::kDotted);
  EXPECT_EQ(PointsText(plot.series[2]), "19.25,0 19.25,0.56");
}

TEST(Diagnostic, DividesTheFirstGroupAsSpecified) {
  const struct {
    std::string count;
    std::size_t first, second;
  } cases[] = {{"9", 9, 99}, {"1", 1, 11}, {"0", 1, 11}, {"-3", 1, 11}, {"", 2, 22}};
  for (const auto& [count, first, second] : cases) {
    const Transcript told =
        RunAnalysis(kDiagnostic, {CountUp(1, 10), CountUp(11, 100)}, Classes(count));
    const Plot& plot = told.PlotOf("frmDiaPlot");
    EXPECT_THAT(plot.series[0].points, SizeIs(first)) << count;
    EXPECT_THAT(plot.series[1].points, SizeIs(second)) << count;
  }
  const Columns no_spread{CountUp(1, 10), std::vector<std::string>(10, "5")};
  for (const char* count : {"", "3"})
    EXPECT_THAT(RunAnalysis(kDiagnostic, no_spread, Classes(count)).plots.at(0).series[1].points,
                SizeIs(1));
}

TEST(DiagnosticRoc, DrawsTheCurve) {
  const std::vector<std::string> first{"1", "1", "1", "1", "1", "2", "2", "2", "2", "2"};
  const std::vector<std::string> second{"2", "2", "2", "2", "2", "2", "2", "3", "3", "3"};
  const Transcript told = RunAnalysis(kDiagnostic, {first, second}, kRoc);
  ASSERT_THAT(told.plots, SizeIs(1));
  const Plot& plot = told.PlotOf("frmDiaPlot");
  EXPECT_EQ(plot.header, "ROC-curve");
  EXPECT_EQ(plot.x.title, "1-Specificity");
  EXPECT_EQ(plot.y.title, "Sensitivity");
  ASSERT_THAT(plot.series, SizeIs(1));
  EXPECT_EQ(plot.series[0].draw, Draw::kLine);
  Points points = plot.series[0].points;
  EXPECT_THAT(points, SizeIs(21));
  points.erase(std::ranges::unique(points).begin(), points.end());
  EXPECT_EQ(PointsText({.points = points}), "1,1 0.5,1 0,0.300000012 0,0");  // by hand: 0.3F
}

}  // namespace
}  // namespace quorval::test
