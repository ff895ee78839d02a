// Expected numbers come from tests/independent/profiles.py or are computed by hand.
#include "analyses/registry.h"
#include "support/analysis_cases.h"

namespace quorval::test {
namespace {

using methodeval::kPrecisionProfile;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::string_view kExample = "Precision profile example";

Settings Raw(std::string start, std::string last, Settings more = {}) {
  more.insert(more.begin(), {{"start-column", std::move(start)}, {"last-column", std::move(last)}});
  return more;
}

Settings Pairs(Settings more = {}) {
  more.insert(more.begin(), {{"mode", "pairs"}, {"level-column", "2"}, {"sd-column", "3"}});
  return more;
}

void ExpectPoint(const Points& points, std::size_t i, double x, double y) {
  EXPECT_NEAR(Raw(points.at(i).x), x, 1e-12 * std::abs(x));
  EXPECT_NEAR(Raw(points.at(i).y), y, 1e-11 * std::abs(y));
}

TEST(PrecisionProfile, WritesItsSheetOnTheExample) {
  const Transcript told =
      RunOnExample(kExample, kPrecisionProfile, Raw("2", "4", {{"outlier-limit", "1.65"}}));
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  EXPECT_EQ(LinesOf(told.sheet), SheetOf("PrecisionProfile, writes its sheet on the example"));
  ExpectNumbers(told, {{8, 2, 0.1740617706447915},
                       {8, 3, 17.106807925778032},
                       {10, 2, 1.4061091199273468},
                       {10, 3, 12.841179177418693}});
}

TEST(PrecisionProfile, DrawsTheNaturalSpline) {
  const Transcript told = RunOnExample(kExample, kPrecisionProfile, Raw("2", "4"));
  ASSERT_THAT(told.plots, SizeIs(2));
  const Plot& sd = told.PlotOf("frmPrecPlot1");
  EXPECT_EQ(sd.label, "Precision Profile: SD against level");
  EXPECT_EQ(sd.x.title, "Level");
  EXPECT_EQ(sd.y.title, "SD");
  ASSERT_THAT(sd.series, SizeIs(2));
  EXPECT_THAT(sd.series[0].points, SizeIs(3));
  EXPECT_EQ(sd.series[1].draw, Draw::kLine);
  const Points& curve = sd.series[1].points;
  ASSERT_THAT(curve, SizeIs(100));
  ExpectPoint(curve, 0, 1.0175, 0.1740617706447915);
  ExpectPoint(curve, 1, 1.1178282828282828, 0.18586175254191623);
  ExpectPoint(curve, 49, 5.933585858585858, 0.7637295321245497);
  ExpectPoint(curve, 98, 10.849671717171717, 1.3930789974189994);
  ExpectPoint(curve, 99, 10.95, 1.4061091199273468);
  const Plot& cv = told.PlotOf("frmPrecPlot2");
  EXPECT_EQ(cv.label, "Precision Profile: CV against level");
  EXPECT_EQ(cv.y.title, "CV%");
  ExpectPoint(cv.series[1].points, 49, 5.933585858585858, 12.615601749273877);
}

TEST(PrecisionProfile, TakesPairsInAnyOrder) {
  const Columns pairs{{"4", "1", "7", "2"}, {"0.4", "0.5", "1.0", "0.3", "surplus"}};
  const Transcript told = RunAnalysis(kPrecisionProfile, pairs, Pairs());
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_EQ(LinesOf(told.sheet), SheetOf("PrecisionProfile, takes pairs in any order"));
  const Plot& plot = told.PlotOf("frmPrecPlot1");
  EXPECT_EQ(PointsText(plot.series[0]), "1,0.5 2,0.3 4,0.4 7,1");
  ExpectPoint(plot.series[1].points, 1, 1.0606060606060606, 0.4855065809611264);
  ExpectPoint(plot.series[1].points, 49, 3.9696969696969697, 0.39525821974169084);
  ExpectPoint(plot.series[1].points, 98, 6.9393939393939394, 0.9865806166081649);

  const Transcript lines = RunAnalysis(kPrecisionProfile, pairs, Pairs({{"curve", "lines"}}));
  EXPECT_EQ(PointsText(lines.PlotOf("frmPrecPlot1").series[1]), "1,0.5 2,0.3 4,0.4 7,1");
  // 100 SD / mean, by hand.
  EXPECT_EQ(PointsText(lines.PlotOf("frmPrecPlot2").series[1]), "1,50 2,15 4,10 7,14.285714286");
}

TEST(PrecisionProfile, IsAStraightLineThroughTwoLevels) {
  const Transcript told = RunAnalysis(kPrecisionProfile, {{"1", "3"}, {"2", "4"}}, Pairs());
  const Points& curve = told.PlotOf("frmPrecPlot1").series[1].points;
  for (const Point& point : curve) EXPECT_NEAR(Raw(point.y), Raw(point.x) + 1, 1e-12);
}

TEST(PrecisionProfile, LeavesOutThePlotOfUndefinedCVs) {
  const Transcript raw = RunAnalysis(kPrecisionProfile, {{"-1", "1"}, {"-2", "-4"}}, Raw("2", "3"));
  EXPECT_THAT(LinesOf(raw.sheet, 8),
              ElementsAre("8:0.0000|1.4142|n.d.|2", "9:-3.0000|1.4142|47.1405|2",
                          "11:Outlier limit (SDs)|4.0000", "12:No outliers identified",
                          "13:No CV% Precision Plot because of occurrence of n. d. values"));
  EXPECT_THAT(raw.plots, SizeIs(1));
  const Transcript pairs = RunAnalysis(kPrecisionProfile, {{"0", "2"}, {"1", "1"}}, Pairs());
  EXPECT_THAT(LinesOf(pairs.sheet, 8),
              ElementsAre("8:0.0000|1.0000|n.d.", "9:2.0000|1.0000|50.0000",
                          "11:No CV% Precision Plot because of occurrence of n.d. CV%"));
  EXPECT_THAT(pairs.plots, SizeIs(1));
}

TEST(PrecisionProfile, ShowsALevelOfASingleValue) {
  const Transcript told =
      RunAnalysis(kPrecisionProfile, {{"1", "2"}, {"5"}, {"7", "7"}}, Raw("2", "4"));
  EXPECT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, ElementsAre("Error occurred", "Error in outlier evaluation",
                                      "Error in outlier evaluation"));
  EXPECT_THAT(LinesOf(told.sheet, 9, 10),
              ElementsAre("9:5.0000|0.0000|0.0000|1", "10:7.0000|0.0000|0.0000|2"));
}

TEST(PrecisionProfile, JoinsWhatTheSplineCannot) {
  const Settings lines{{"curve", "lines"}};
  EXPECT_EQ(RunAnalysis(kPrecisionProfile, {{"1", "2"}}, Raw("2", "2", lines)).outcome,
            Outcome::kDone);
  EXPECT_EQ(RunAnalysis(kPrecisionProfile, {{"1", "1"}, {"1", "2"}}, Pairs(lines)).outcome,
            Outcome::kDone);
  // The limit of the other mode is not looked at.
  EXPECT_EQ(
      RunAnalysis(kPrecisionProfile, {{"1", "2"}, {"1", "2"}}, Pairs({{"outlier-limit", "0"}}))
          .outcome,
      Outcome::kDone);
}

}  // namespace
}  // namespace quorval::test
