// Expected numbers come from tests/independent/linearity.py or are computed by hand.
#include "analyses/methodeval/lack_of_fit.h"
#include "analyses/methodeval/polynomial_linearity.h"
#include "analyses/registry.h"
#include "support/analysis_cases.h"

namespace quorval::test {
namespace {

using methodeval::kLinearity;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::string_view kExample = "Evaluation of linearity example";

Settings Columns2To(std::string last, Settings more = {}) {
  more.insert(more.begin(), {{"start-column", "2"}, {"last-column", std::move(last)}});
  return more;
}

Settings Wlr(Settings more = {}) {
  more.insert(more.begin(), {"procedure", "wls"});
  return Columns2To("5", std::move(more));
}

// --- The lack-of-fit test

TEST(LinearityByLackOfFit, WritesItsSheetOnTheExample) {
  const Transcript told = RunOnExample(kExample, kLinearity, Columns2To("5"));
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  EXPECT_EQ(LinesOf(told.sheet), SheetOf("LinearityByLackOfFit, writes its sheet on the example"));
  ExpectNumbers(told,
                {{10, 2, 1.0109541410664475},
                 {10, 4, 0.03369553255221998},
                 {11, 2, 0.17539638185536902},
                 {11, 4, 0.1652281006519691},
                 {12, 3, 6.1823034172872635},
                 {12, 5, 0.02381528748556101},
                 {13, 3, 0.02460040625000004},
                 {14, 3, 0.1520871756260302},
                 {15, 3, 0.05009776012520607}},
                1e-11);
  EXPECT_TRUE(told.sheet.At(1, 5).look.overflow);
}

TEST(LinearityByLackOfFit, WeightsTheLevels) {
  const Transcript proportional = RunOnExample(kExample, kLinearity, Wlr());
  EXPECT_THAT(LinesOf(proportional.sheet, 1, 1), ElementsAre("1:* Linearity Evaluation (WLR)"));
  EXPECT_THAT(LinesOf(proportional.sheet, 36),
              ElementsAre("37:Weighting exponent = ||2.0000|(proportional relationship)"));
  ExpectNumbers(proportional,
                {{10, 2, 1.0633016941372053},
                 {10, 4, 0.051864126548877336},
                 {11, 2, -0.03820034195196217},
                 {11, 4, 0.18295685842240397},
                 {12, 3, 10.263243669888226},
                 {12, 5, 0.006185385311602041},
                 {13, 3, 0.001509241665066469},
                 {14, 3, 0.015489714965325004},
                 {15, 3, 0.004305336325118176}},
                1e-10);
  // x below the limit is weighted as the limit, and stays x in the regression.
  const Transcript truncated = RunOnExample(
      kExample, kLinearity, Wlr({{"weighting-exponent", "1"}, {"truncation-limit", "3"}}));
  EXPECT_THAT(LinesOf(truncated.sheet, 36),
              ElementsAre("37:Weighting exponent = ||1.0000|(square root relationship)",
                          "38:Truncation of weighting at lower limit = ||3.0000"));
  ExpectNumbers(
      truncated,
      {{10, 2, 1.0254528453581853}, {12, 3, 8.919365625057349}, {13, 3, 0.005172796672777474}},
      1e-10);
}

TEST(LinearityByLackOfFit, EqualsOlrWithAnExponentOf0) {
  const Transcript olr = RunOnExample(kExample, kLinearity, Columns2To("5"));
  const Transcript wlr = RunOnExample(kExample, kLinearity, Wlr({{"weighting-exponent", "0"}}));
  EXPECT_EQ(LinesOf(olr.sheet, 2, 36), LinesOf(wlr.sheet, 2, 36));
  EXPECT_THAT(LinesOf(wlr.sheet, 37), ElementsAre("37:Weighting exponent = ||0.0000"));
}

TEST(LinearityByLackOfFit, ReportsOutliersWithinSetsAndAroundTheLine) {
  const Transcript told =
      RunOnExample(kExample, kLinearity, Columns2To("5", {{"outlier-limit", "1.16"}}));
  EXPECT_EQ(LinesOf(told.sheet, 19),
            SheetOf("LinearityByLackOfFit, reports outliers within sets and around the line"));
  // Weighted, a deviation at the lowest level counts for more.
  const Transcript weighted = RunOnExample(kExample, kLinearity, Wlr({{"outlier-limit", "2"}}));
  EXPECT_THAT(LinesOf(weighted.sheet, 19, 20),
              ElementsAre("19:1|Outlier(s) identified within sets|||Outlier limit:|2.0000|SD",
                          "20:Outlier Y value:||2.6000"));
}

TEST(LinearityByLackOfFit, ListsFiveOutliersAndTellsOfMore) {
  const Columns levels{{"1", "0", "2.5"}, {"2", "0", "3"},   {"3", "2", "5"},
                       {"4", "2", "5"},   {"5", "4", "7.5"}, {"6", "4", "7"}};
  const Transcript told =
      RunAnalysis(kLinearity, levels, Columns2To("7", {{"outlier-limit", "0.01"}}));
  EXPECT_EQ(told.Text(19, 1), "12");
  EXPECT_EQ(told.Text(24, 1), "Outlier Y value:");
  EXPECT_THAT(LinesOf(told.sheet, 25, 27),
              ElementsAre("26:More than 5 outliers identified within sets that are not shown"));
  EXPECT_EQ(told.Text(28, 1), "6");
  EXPECT_THAT(LinesOf(told.sheet, 34),
              ElementsAre("35:More than 5 outliers identified around line that are not shown"));
}

TEST(LinearityByLackOfFit, DrawsValuesLineAndResiduals) {
  const Columns levels{{"1", "1", "2"}, {"2", "2", "4"}, {"4", "3", "5"}};
  const Transcript told = RunAnalysis(kLinearity, levels, Columns2To("4"));
  const double b = told.Value(10, 2), a0 = told.Value(11, 2);
  const Plot& values = told.PlotOf("frmMethLinPlot1");
  ASSERT_THAT(values.series, SizeIs(2));
  EXPECT_EQ(PointsText(values.series[0]), "1,1 1,2 2,2 2,4 4,3 4,5");
  EXPECT_NEAR(Raw(values.series[1].points[0].y), a0 + b, 1e-12);
  EXPECT_EQ(Raw(values.series[1].points[1].x), 4);
  EXPECT_EQ(PointsText(told.PlotOf("frmMethLinPlot2").series.at(0)),
            "1,-0.5 1,0.5 2,-1 2,1 4,-1 4,1");
  const Points& line = told.PlotOf("frmMethLinPlot3").series.at(0).points;
  ASSERT_THAT(line, SizeIs(3));
  EXPECT_NEAR(Raw(line[1].y), a0 + 2 * b - 3, 1e-12);
  EXPECT_EQ(told.Text(13, 5), "3");  // three levels of two: 3 and 1 degrees of freedom
  EXPECT_EQ(told.Text(14, 5), "1");
}

// --- The polynomial

Settings Polynomial(std::string last, Settings more = {}) {
  more.insert(more.begin(), {"procedure", "polynomial"});
  return Columns2To(std::move(last), std::move(more));
}

const Columns kCurved{{"1", "2.1", "1.9", "2.0"},
                      {"2", "4.4", "4.1"},
                      {"3", "7.0", "6.7", "6.9"},
                      {"4", "10.2", "9.9"},
                      {"5", "14.0", "13.6"}};

TEST(LinearityByPolynomial, WritesItsSheetOnTheExample) {
  const Transcript told = RunOnExample(kExample, kLinearity, Polynomial("5"));
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  EXPECT_EQ(LinesOf(told.sheet), SheetOf("LinearityByPolynomial, writes its sheet on the example"));
  ExpectNumbers(told,
                {{19, 2, 0.15684516648593297},
                 {20, 2, 3.7427458039893287},
                 {24, 2, -1.1768723749737429},
                 {25, 2, 1.6614835830832158},
                 {26, 2, -0.06586112271374533},
                 {27, 2, 0.18386917502739},
                 {30, 2, 0.02730413592607978},
                 {30, 4, -2.412129901933191},
                 {30, 6, 0.03911217820678062},
                 {36, 2, 0.22382528928878004},
                 {40, 5, -0.15085805826175136},
                 {42, 6, 5.0047080811122395}},
                1e-9);
}

TEST(LinearityByPolynomial, FitsTheThirdDegree) {
  const Transcript told = RunAnalysis(kLinearity, kCurved, Polynomial("6", {{"degree", "3"}}));
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_EQ(told.Text(25, 1),
            " Polynomial coefficients for 3. degree polynomium and residual SD (SDy.x)");
  EXPECT_EQ(told.Text(29, 1), " b3:");
  ExpectNumbers(told,
                {{26, 2, 0.07851637764935868},
                 {29, 2, 0.01676300578034584},
                 {30, 2, 0.17250143111857832},
                 {33, 2, 0.03160032458704802},
                 {33, 4, 0.53046941762163},
                 {33, 6, 0.6101911035867726}},
                1e-9);
}

TEST(LinearityByPolynomial, HoldsTheDeviationsAgainstTheGoal) {
  struct Case {
    Settings goal;
    std::string line;
  };
  // The largest deviations are 0.6025 and 27.14 %.
  const std::vector<Case> cases{
      {{{"percent-goal", "27"}},
       "48: Maximum percent deviation exceeds user-set limit of |27.0000| percent "},
      {{{"percent-goal", "28"}},
       "48: Maximum percent deviation not exceeding user-set limit of |28.0000| percent "},
      {{{"goal", "absolute"}, {"absolute-goal", "0.5"}},
       "48: Estimated max. absolute deviation from linearity exceeds user-set limit of |0.5000"},
      {{{"goal", "absolute"}, {"absolute-goal", "0.75"}},
       "48: Estimated max. absolute deviation from linearity not exceeding user-set limit "
       "of|0.7500"},
  };
  for (const Case& c : cases)
    EXPECT_THAT(LinesOf(RunAnalysis(kLinearity, kCurved, Polynomial("6", c.goal)).sheet, 48),
                ElementsAre(c.line));
}

TEST(LinearityByPolynomial, FindsNoDeviationOfALine) {
  const Columns line{{"0", "-1", "1"}, {"1", "0", "2"}, {"2", "1", "3"}, {"3", "2", "4"},
                     {"4", "3", "5"},  {"5", "4", "6"}, {"6", "5", "7"}};
  const Transcript told =
      RunAnalysis(kLinearity, line, Polynomial("8", {{"percent-goal", "0.001"}}));
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  // The lowest mean is 0: no %Difference there, and no pooled CV.
  EXPECT_THAT(LinesOf(told.sheet, 18, 19),
              ElementsAre("18:0.0000|0.0000|2.0000", "19:1.0000|1.0000|2.0000|200.0000"));
  EXPECT_THAT(LinesOf(told.sheet, 25, 27),
              ElementsAre("25: Pooled SD:|1.4142", "27: Polynomial data"));
  EXPECT_THAT(LinesOf(told.sheet, 35, 35),
              ElementsAre("35: SE of last coef.:|0.0000| t value:|0.0000| P:|1.0000"));
  EXPECT_NEAR(told.Value(48, 5), 0, 1e-12);
}

TEST(LinearityByPolynomial, LeavesOutTheTestWithoutResiduals) {
  const Columns zero{{"1", "0", "0"}, {"2", "0", "0"}, {"3", "0", "0"}};
  const Transcript told = RunAnalysis(kLinearity, zero, Polynomial("4"));
  EXPECT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, ElementsAre("zero residuals variation: no F-test"));
  EXPECT_EQ(told.Text(27, 6), "0.0000");
  EXPECT_EQ(told.Text(37, 6), "");  // no %Dif of a line at 0
}

TEST(LinearityByPolynomial, DrawsTheFitsAndTheDeviations) {
  const Transcript told = RunAnalysis(kLinearity, kCurved, Polynomial("6"));
  const Plot& fits = told.PlotOf("frmLinPolynPlot");
  EXPECT_EQ(fits.x.title, "x values (dilutions)");
  EXPECT_EQ(fits.y.title, "Actual measured means");
  EXPECT_THAT(fits.label, testing::HasSubstr("Solid curve: Polynomial fit"));
  EXPECT_THAT(fits.label, testing::HasSubstr("Red dashed line: Linear regression fit"));
  ASSERT_THAT(fits.series, SizeIs(3));
  EXPECT_EQ(PointsText(fits.series[0]), "1,2 2,4.25 3,6.866666667 4,10.05 5,13.8");
  ASSERT_THAT(fits.series[1].points, SizeIs(100));
  EXPECT_NEAR(Raw(fits.series[1].points[99].y), 13.782775119617213, 1e-9);
  EXPECT_EQ(fits.series[2].pattern, Pattern::kDashed);
  EXPECT_NEAR(Raw(fits.series[2].points[0].y), 1.5859154929577475, 1e-9);
  const Plot& deviations = told.PlotOf("frmLinPolynDifPlot");
  EXPECT_EQ(deviations.x.title, "Measured mean values");
  EXPECT_EQ(deviations.y.title, "Difference");
  ASSERT_THAT(deviations.series, SizeIs(2));
  EXPECT_EQ(PointsText(deviations.series[0]).substr(0, 13), "2,0.43035245 ");
  EXPECT_EQ(PointsText(deviations.series[1]), "2,0 13.8,0");
}

TEST(Linearity, GuardsItsRoutines) {
  RecordedMessages messages;
  const std::vector<methodeval::linearity::DilutionLevel> two{{1, {1, 2}, 1.5}, {2, {2, 3}, 2.5}};
  EXPECT_THROW(methodeval::linearity::FitLine(messages, two), Failure);
  EXPECT_THROW(methodeval::linearity::EvaluatePolynomial(messages, two, 4), Refusal);
  EXPECT_THAT(
      messages.boxes,
      ElementsAre("Less than three x levels: OLR not performed!",
                  "Degree of polynomium is higher than sample size minus one: No analysis"));
}

}  // namespace
}  // namespace quorval::test
