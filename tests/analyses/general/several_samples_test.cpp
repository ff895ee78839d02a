// Expected numbers come from tests/independent/general_statistics.py, or by hand.
#include "analyses/general/general_data.h"
#include "analyses/registry.h"

namespace quorval::test {
namespace {

using general::kSeveralSamples;
using testing::ElementsAre;
using testing::IsEmpty;

Settings From(const char* start, const char* last, const char* limit = "4") {
  return {{"start-column", start}, {"last-column", last}, {"outlier-limit", limit}};
}

TEST(SeveralSamples, WriteTheirSheetAndListTheOutliers) {
  const Columns columns{kGlucose, {"1", "2"}, kAfter};
  const Transcript told = RunAnalysis(kSeveralSamples, columns, From("2", "4", "2"));
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  EXPECT_EQ(LinesOf(told.sheet),
            SheetOf("SeveralSamples, write their sheet and list the outliers"));
  ExpectNumbers(told, {{14, 3, 5.390909090909091},
                       {14, 4, 0.6564366617649344},
                       {16, 3, 5.890909090909091},
                       {16, 4, 0.47844444913604217},
                       {18, 4, 7.9}});
  const Plot& plot = told.PlotOf("frmDotplot");
  EXPECT_EQ(plot.caption, "General Statistics Plot");
  EXPECT_THAT(SizesOf(plot), ElementsAre(12, 2, 12, 3));
  EXPECT_EQ(PointsText(plot.series[1]), "2,1 2,2");
  EXPECT_EQ(PointsText(plot.series[3]), "1,5.390909091 2,1.5 3,5.890909091");
}

TEST(SeveralSamples, KeepAllValuesWithinTheLimit) {
  const Transcript told = RunAnalysis(kSeveralSamples, {kGlucose}, From("2", "2"));
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(LinesOf(told.sheet, 11),
              ElementsAre("11:Sample(s) from cols:||2|2",
                          "13:Sample no.:|No. of obs.:|Mean:|SD:", "14:1|12|5.6000|0.9573"));
}

TEST(SeveralSamples, GoOnAfterASampleWithoutFigures) {
  const auto rows_of = [](const Columns& columns, const char* limit,
                          const std::vector<std::string>& boxes) {
    const Transcript told = RunAnalysis(kSeveralSamples, columns, From("2", "3", limit));
    EXPECT_EQ(told.outcome, Outcome::kDone);
    EXPECT_EQ(told.boxes, boxes);
    return LinesOf(told.sheet, 14);
  };
  EXPECT_THAT(rows_of({{"3", "3"}, {"1", "2"}}, "4", {"Error in outlier evaluation"}),
              ElementsAre("14:1|2|3.0000|0.0000", "15:2|2|1.5000|0.7071"));
  // Two values lie 0.7 SD from their mean, and all of them are rejected.
  EXPECT_THAT(
      rows_of({{"3", "3"}, {"1", "2"}}, "0.5", {"Error in outlier evaluation", "Error occurred"}),
      ElementsAre("14:1|2|3.0000|0.0000", "15:2|0|0.0000|0.0000",
                  "17:Outlier(s) in sample no.:||2|1.0000|2.0000"));
  // Of 1 2 3 the mean alone stays.
  EXPECT_THAT(rows_of({{"1", "2", "3"}, {"5", "5"}}, "0.5",
                      {"Error occurred", "Error in outlier evaluation"}),
              ElementsAre("14:1|1|2.0000|0.0000", "15:2|2|5.0000|0.0000",
                          "17:Outlier(s) in sample no.:||1|1.0000|3.0000"));
}

TEST(SeveralSamples, ContinueAListOfOutliersThatIsWiderThanTheSheet) {
  std::vector<std::string> values;
  for (int i = 0; i < 500; ++i) values.push_back(i % 2 == 0 ? "1" : "3");
  const Transcript told = RunAnalysis(kSeveralSamples, {values, {"1", "2"}}, From("2", "3", "0.9"));
  EXPECT_EQ(told.outcome, Outcome::kDone);
  EXPECT_EQ(told.Value(17, 500), 1);  // the 497th
  EXPECT_THAT(LinesOf(told.sheet, 18), ElementsAre("18:|||3.0000|1.0000|3.0000"));
}

}  // namespace
}  // namespace quorval::test
