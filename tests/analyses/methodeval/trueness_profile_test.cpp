// Expected numbers come from tests/independent/profiles.py or are computed by hand.
#include "analyses/registry.h"
#include "support/analysis_cases.h"

namespace quorval::test {
namespace {

using methodeval::kTruenessProfile;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::string_view kExample = "Evaluation of linearity example";

Settings Raw(std::string start, std::string last, Settings more = {}) {
  more.insert(more.begin(), {{"start-column", std::move(start)}, {"last-column", std::move(last)}});
  return more;
}

Settings Pairs(Settings more = {}) {
  more.insert(more.begin(), {{"mode", "pairs"}, {"true-column", "2"}, {"mean-column", "3"}});
  return more;
}

TEST(TruenessProfile, WritesItsSheetOnTheLinearityExample) {
  const Transcript told = RunOnExample(kExample, kTruenessProfile, Raw("2", "5"));
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  EXPECT_EQ(LinesOf(told.sheet),
            SheetOf("TruenessProfile, writes its sheet on the linearity example"));
  ExpectNumbers(told, {{11, 4, 0.07710598766200545},
                       {11, 5, 99.47132980886538},
                       {11, 6, 3.1356644026842395},
                       {14, 2, 7.30625},
                       {14, 6, 1.3863807832823978}});
  EXPECT_TRUE(told.sheet.At(1, 3).look.overflow);
}

TEST(TruenessProfile, NamesTheColumnsWithOutliers) {
  // The largest standardised values are 1.153, 1.143, 0.707 and 1.302.
  const Transcript told =
      RunOnExample(kExample, kTruenessProfile, Raw("2", "5", {{"outlier-limit", "1.15"}}));
  EXPECT_THAT(LinesOf(told.sheet, 16),
              ElementsAre("16:Outlier limit|1.1500|SD", "17:Outlier(s) identified in Col. no.:|2",
                          "18:Outlier(s) identified in Col. no.:|5"));
}

TEST(TruenessProfile, DrawsColumnsAndDots) {
  const Columns levels{{"10", "8", "12"}, {"0", "1", "3"}, {"20", "22", "26"}};
  const Transcript told = RunAnalysis(kTruenessProfile, levels, Raw("2", "4"));
  EXPECT_THAT(LinesOf(told.sheet, 11, 13),
              ElementsAre("11:10.0000|10.0000|2|2.0000|100.0000|20.0000",
                          "12:0.0000|2.0000|2|1.0000|n.d.|n.d.",
                          "13:20.0000|24.0000|2|2.0000|120.0000|10.0000"));
  const Plot& percent = told.PlotOf("frmMethTruenessPlot2");
  EXPECT_EQ(percent.header,
            "True values (100%, red cols) and means (%, blue) with SEM (dot) of measured values");
  EXPECT_EQ(percent.y.title, "%");
  ASSERT_THAT(percent.series, SizeIs(3));
  EXPECT_EQ(PointsText(percent.series[0]), "1,100 3,100");
  EXPECT_EQ(PointsText(percent.series[1]), "1,100 3,120");
  EXPECT_EQ(PointsText(percent.series[2]), "1,80 1,120 3,110 3,130");
  EXPECT_EQ(percent.series[0].draw, Draw::kBars);
  EXPECT_EQ(percent.series[2].draw, Draw::kPoints);
  EXPECT_EQ(percent.series[2].offset, percent.series[1].offset);
  const Plot& absolute = told.PlotOf("frmMethTruenessPlot1a");
  EXPECT_EQ(absolute.header,
            "True values (red cols) and means of measured values (blue cols) with SEM (dot)");
  EXPECT_EQ(PointsText(absolute.series[0]), "1,10 2,0 3,20");
  EXPECT_EQ(PointsText(absolute.series[1]), "1,10 2,2 3,24");
  EXPECT_EQ(PointsText(absolute.series[2]), "1,8 1,12 2,1 2,3 3,22 3,26");
  EXPECT_EQ(absolute.y.min, Real(0));
  EXPECT_GT(*absolute.y.max, 26);
}

TEST(TruenessProfile, TakesPairsWithAndWithoutSEMs) {
  const Columns pairs{{"10", "0"}, {"11", "1"}, {"0.5", "0.25", "surplus"}};
  const Transcript with = RunAnalysis(kTruenessProfile, pairs, Pairs({{"sem-column", "4"}}));
  ASSERT_EQ(with.outcome, Outcome::kDone);
  EXPECT_EQ(LinesOf(with.sheet), SheetOf("TruenessProfile, takes pairs with and without s e ms"));
  EXPECT_THAT(with.PlotOf("frmMethTruenessPlot1a").series, SizeIs(3));

  const Transcript without = RunAnalysis(kTruenessProfile, pairs, Pairs());
  EXPECT_THAT(LinesOf(without.sheet, 7),
              ElementsAre("7:SEMs of measured values: Col. no.:", "8:No of levels:|2",
                          "10:True values|Mean|SEM|%Mean|%SEM", "11:10.0000|11.0000||110.0000",
                          "12:0.0000|1.0000||n.d."));
  for (const Plot& plot : without.plots) EXPECT_THAT(plot.series, SizeIs(2)) << plot.window;
}

TEST(TruenessProfile, GoesOnAfterALevelWithoutDispersion) {
  const Transcript told = RunAnalysis(kTruenessProfile, {{"10", "8", "8"}}, Raw("2", "2"));
  EXPECT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, ElementsAre("Error in outlier evaluation"));
  EXPECT_EQ(told.Value(11, 4), 0);
}

}  // namespace
}  // namespace quorval::test
