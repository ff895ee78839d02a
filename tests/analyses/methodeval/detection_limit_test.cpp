// Expected numbers come from tests/independent/detection_limit.py or are computed by hand.
#include "analyses/registry.h"
#include "support/analysis_cases.h"

namespace quorval::test {
namespace {

using methodeval::kDetectionLimit;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::string_view kExample = "Detection Limit Example";
const std::string kRunColumn = " Selected column no. < 1 or > 30: No analysis ";
const std::string kTooFew = " Sample size < 2: No analysis ";
const std::string kNoDispersion = " No dispersion in variables: No analysis ";
const std::string kFailure = "Error occurred in DL/LOQ analysis";

Settings Joined(Settings first, const Settings& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

// --- A: multiples of an SD

Settings DlAndLoq(const Settings& more = {}) {
  return Joined({{"dl-column", "2"}, {"loq-column", "3"}}, more);
}
const Settings kDlAlone{{"loq", "off"}, {"dl-column", "2"}};
const Settings kLoqAlone{{"dl", "off"}, {"loq-column", "3"}};

TEST(DetectionLimitBySd, WritesBothBlocksOnTheExample) {
  const Transcript told = RunOnExample(kExample, kDetectionLimit, DlAndLoq());
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  EXPECT_EQ(LinesOf(told.sheet), SheetOf("DetectionLimitBySd, writes both blocks on the example"));
  ExpectNumbers(told, {{8, 2, 3.471},
                       {8, 4, 1.2575494130712277},
                       {10, 3, 3 * 1.2575494130712277},
                       {25, 2, 14.9425},
                       {25, 4, 3.5759975298276334},
                       {27, 3, 5 * 3.5759975298276334}});
  const Plot& dl = told.PlotOf("frmPrecPlot1");
  EXPECT_EQ(dl.label, "Plot of values for estimation of the detection limit");
  EXPECT_THAT(dl.series.at(0).points, SizeIs(20));
  const Plot& loq = told.PlotOf("frmPrecPlot2");
  EXPECT_EQ(loq.label, "Plot of values for estimation of the LoQ");
  EXPECT_EQ(PointsText(loq.series.at(0)), "1,15.47 2,15.08 3,10.26 4,18.96");
  EXPECT_EQ(loq.series[0].draw, Draw::kPoints);
}

TEST(DetectionLimitBySd, LeavesTheOtherBlockEmpty) {
  const Transcript dl = RunOnExample(kExample, kDetectionLimit, kDlAlone);
  EXPECT_EQ(dl.outcome, Outcome::kDone);
  EXPECT_EQ(dl.sheet.DataRowCnt(), 13);
  EXPECT_THAT(dl.plots, SizeIs(1));
  // A column for the limit that is not asked for is not looked at.
  for (const Settings& extra : {Settings{}, Settings{{"dl-column", "501"}, {"dl-sds", "word"}}}) {
    const Transcript loq = RunOnExample(kExample, kDetectionLimit, Joined(kLoqAlone, extra));
    EXPECT_EQ(loq.outcome, Outcome::kDone);
    EXPECT_THAT(LinesOf(loq.sheet, 1, 21),
                ElementsAre("3: Project: |Demo Detection Limit Project",
                            "20:*Determination of Lower Limit of Quantitation (LOQ)"));
    EXPECT_THAT(loq.plots, SizeIs(1));
  }
}

TEST(DetectionLimitBySd, ListsThreeOutliersAndTellsOfMore) {
  const Transcript one =
      RunOnExample(kExample, kDetectionLimit, Joined(kDlAlone, {{"outlier-limit", "3"}}));
  EXPECT_THAT(
      LinesOf(one.sheet, 13),
      ElementsAre("13:1|outlier(s) present||Outlier limit|3.0000|SD", "16:No.:|1|Outlier:|7.3300"));
  const Columns four{{"1", "9", "1", "9"}, {"9", "1", "1", "9"}};
  const Transcript told =
      RunAnalysis(kDetectionLimit, four, DlAndLoq({{"outlier-limit", "0.5"}, {"dl-sds", "0"}}));
  EXPECT_EQ(told.Value(10, 3), 0);  // no SDs give a limit of 0
  EXPECT_EQ(LinesOf(told.sheet, 13, 19),
            SheetOf("DetectionLimitBySd, lists three outliers and tells of more"));
  EXPECT_EQ(LinesOf(told.sheet, 29),
            SheetOf("DetectionLimitBySd, lists three outliers and tells of more (2)"));
}

// --- B: type I and II errors

Settings Ep17(const Settings& more = {}) {
  return Joined(
      {{"procedure", "b"}, {"blank-column", "2"}, {"start-column", "3"}, {"last-column", "7"}},
      more);
}

TEST(LimitOfDetection, WritesItsSheetOnTheExample) {
  const Transcript told = RunOnExample(kExample, kDetectionLimit, Ep17());
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  EXPECT_EQ(LinesOf(told.sheet), SheetOf("LimitOfDetection, writes its sheet on the example"));
  ExpectNumbers(told, {{8, 3, 6.43},
                       {8, 5, 1.0413667466387742},
                       {13, 3, 3.783670616390033},
                       {14, 3, 1.6728813559322036},
                       {16, 3, 12.759632031147394},
                       {16, 5, 1.5556090198576873}});
}

TEST(LimitOfDetection, TakesItsOptions) {
  const Transcript told =
      RunOnExample(kExample, kDetectionLimit, Ep17({{"alpha", "10"}, {"beta", "1"}}));
  EXPECT_EQ(told.Text(10, 3), "1");
  ExpectNumbers(told, {{7, 3, 10},
                       {8, 3, 5.015},
                       {8, 5, 1.026379389287299},
                       {14, 3, 2.366440677966102},
                       {16, 3, 13.968832058650449},
                       {16, 5, 1.930239605654607}});
}

TEST(LimitOfDetection, RunsOnOneLowSampleOfTwo) {
  const Columns columns{{"10", "9", "8", "7", "6", "5", "4", "3", "2", "1"}, {"20", "22"}};
  const Transcript told = RunAnalysis(kDetectionLimit, columns, Ep17({{"last-column", "3"}}));
  EXPECT_EQ(told.Text(13, 5), "1");
  ExpectNumbers(told, {{8, 3, 10},  // rank 10 of 10
                       {8, 5, 0.8841996636654702},
                       {14, 3, 1.645 / 0.75},
                       {16, 3, 13.10184174680499},
                       {16, 5, 2.3648509797315436}});
}

TEST(LimitOfDetection, DrawsBlanksLowSamplesAndTheLimit) {
  const Columns columns{
      {"3", "1", "2", "5", "4", "6", "7", "8", "9", "10"}, {"20", "18"}, {"19", "21", "20"}};
  const Transcript told = RunAnalysis(kDetectionLimit, columns, Ep17({{"last-column", "4"}}));
  const Plot& plot = told.PlotOf("frmDotDetplot");
  EXPECT_EQ(plot.x.min, Real(0));
  EXPECT_EQ(plot.x.max, Real(4));
  ASSERT_THAT(plot.series, SizeIs(3));
  EXPECT_EQ(PointsText(plot.series[0]), "1,1 1,2 1,3 1,4 1,5 1,6 1,7 1,8 1,9 1,10");
  EXPECT_EQ(plot.series[1].draw, Draw::kLine);
  EXPECT_EQ(Raw(plot.series[1].points[1].x), 4);
  EXPECT_EQ(Raw(plot.series[1].points[0].y), told.Value(16, 3));
  EXPECT_EQ(PointsText(plot.series[2]), "2,20 2,18 3,19 3,21 3,20");
}

TEST(LimitOfDetection, ReportsOutliersOfEachLowSample) {
  const Columns columns{{"3", "1", "2", "5", "4", "6", "7", "8", "9", "10"},
                        {"20", "20", "20", "30"},
                        {"20", "20"},
                        {"9", "20", "20", "20"}};
  const Transcript told =
      RunAnalysis(kDetectionLimit, columns, Ep17({{"last-column", "5"}, {"outlier-limit", "1.4"}}));
  EXPECT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, ElementsAre("Error in outlier evaluation"));  // of the second sample
  EXPECT_THAT(LinesOf(told.sheet, 17), ElementsAre("17:Outlier(s) in low sample",
                                                   "18:Outlier(s) in low sample no.:||1|30.0000",
                                                   "19:Outlier(s) in low sample no.:||3|9.0000"));
}

}  // namespace
}  // namespace quorval::test
