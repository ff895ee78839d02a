// Expected numbers come from tests/independent/general_statistics.py, or by hand.
#include <numbers>

#include "analyses/general/general_data.h"
#include "analyses/registry.h"

namespace quorval::test {
namespace {

using general::kOneSample;
using testing::ElementsAre;
using testing::IsEmpty;

Transcript RunGlucose(const Settings& settings = {}) {
  return RunTitled(kOneSample, {kGlucose}, settings);
}

TEST(OneSample, WritesItsSheet) {
  const Transcript told = RunGlucose();
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  EXPECT_EQ(LinesOf(told.sheet), SheetOf("OneSample, writes its sheet"));
  ExpectNumbers(told, {{6, 2, 4.400000095367432},
                       {8, 2, 5.299999952316284},
                       {9, 2, 5.599999984105428},
                       {10, 2, 0.9572688259587759},
                       {11, 2, 0.2763397071770682},
                       {12, 2, 1.131356146328647},
                       {12, 4, 0.7071067811865476},
                       {13, 2, 0.7831639637186165},
                       {13, 4, 1.4142135623730951}});
  EXPECT_EQ(RunAnalysis(kOneSample, {kGlucose}).Text(4, 2), " ");
}

TEST(OneSample, ListsFiveOutliersInOrderAndTellsOfMore) {
  EXPECT_THAT(
      LinesOf(RunGlucose({{"outlier-limit", "2.1"}}).sheet, 18),
      ElementsAre("18:  Number of outlier(s) detected: |1",
                  "19:  Number of SDs as outlier limit: |2.1000", "20:  Outliers: ", "21:7.9000"));
  const auto lines_of = [](const std::vector<std::string>& values, const char* limit) {
    return LinesOf(RunAnalysis(kOneSample, {values}, {{"outlier-limit", limit}}).sheet, 21);
  };
  EXPECT_THAT(lines_of({"6", "1", "5", "2", "0", "3", "3"}, "0.8"),  // mean 2.857, SD 2.116
              ElementsAre("21:0.0000", "22:1.0000", "23:5.0000", "24:6.0000"));
  EXPECT_THAT(lines_of({"6", "1", "5", "2", "0", "4"}, "-1"),  // no limit at all
              ElementsAre("21:0.0000", "22:1.0000", "23:2.0000", "24:4.0000", "25:5.0000",
                          "26:  More than 5 outliers that are not displayed "));
  EXPECT_EQ(lines_of({"6", "1", "5", "2", "3"}, "0").size(), 5U);
}

TEST(OneSample, WritesPercentilesWithTheirSE) {
  const Transcript told = RunGlucose({{"percentiles", "on"},
                                      {"percentile1", "75"},
                                      {"percentile1-se", "on"},
                                      {"percentile2", "12.3"},
                                      {"percentile2-se", "on"}});
  EXPECT_EQ(LinesOf(told.sheet, 27), SheetOf("OneSample, writes percentiles with their s e"));
  ExpectNumbers(told, {{28, 2, 4.680000162124633},
                       {29, 2, 4.890000104904175},
                       {34, 2, 5.880000066757201},
                       {36, 2, 6.989999961853028},
                       {39, 2, 6.049999952316284},
                       {40, 2, 0.4689226462233366},
                       {43, 2, 4.79040019760132},
                       {44, 2, 0.23960549812374943}});
}

TEST(OneSample, WritesTheUserPercentilesThatItCan) {
  struct Case {
    Settings settings;
    std::vector<int> rows;  // from 37 on
    std::size_t marks;      // in the histogram
  };
  const std::vector<Case> cases{
      {{}, {}, 0},
      {{{"percentile1-se", "on"}}, {}, 0},
      {{{"percentile1", "0"}, {"percentile2", "100"}}, {}, 0},  // positions 0.5 and 12.5
      {{{"percentile1", "97.5"}, {"percentile2", "50"}}, {41, 42, 43}, 1},
      {{{"percentile1", "-5"}, {"percentile1-se", "on"}}, {}, 0},
      {{{"percentile1", "5"}, {"percentile2", "95"}}, {37, 38, 39, 41, 42, 43}, 2},
  };
  for (const Case& c : cases) {
    Settings settings = c.settings;
    settings.emplace_back("percentiles", "on");
    const Transcript told = RunGlucose(settings);
    EXPECT_EQ(told.outcome, Outcome::kDone);
    std::vector<int> rows;
    for (int row = 37; row <= told.sheet.DataRowCnt(); ++row)
      if (!told.Text(row, 1).empty()) rows.push_back(row);
    EXPECT_EQ(rows, c.rows);
    EXPECT_EQ(told.PlotOf("frmHistoPlot").series.size(), 2 + c.marks);
  }
  const Transcript off = RunGlucose({{"percentile1", "50"}});
  EXPECT_EQ(off.sheet.DataRowCnt(), 19);
  EXPECT_EQ(off.PlotOf("frmHistoPlot").series.size(), 2U);
}

// --- Plots

TEST(OneSample, DrawsItsFourPlots) {
  const Transcript told = RunGlucose({{"percentiles", "on"}, {"percentile2", "75"}});
  std::vector<std::string> windows;
  for (const Plot& plot : told.plots) windows.push_back(plot.window);
  EXPECT_THAT(windows, ElementsAre("frmDotplot", "frmHistoAbsPlot", "frmHistoPlot", "frmCumGauss"));

  const Plot& dots = told.PlotOf("frmDotplot");
  EXPECT_EQ(PointsText(dots.series[0]).substr(0, 27),
            "1,4.400000095 1,4.800000191");  // by hand: 4.8F
  EXPECT_EQ(PointsText(dots.series[1]), "0.8,5.299999952 1.2,5.299999952");

  const Plot& numbers = told.PlotOf("frmHistoAbsPlot");
  EXPECT_EQ(PointsText(numbers.series.at(0)), "5.275000095,9 7.025000095,3");
  EXPECT_EQ(numbers.series.size(), 1U);

  const Plot& relative = told.PlotOf("frmHistoPlot");
  EXPECT_THAT(SizesOf(relative), ElementsAre(2, 100, 2));
  EXPECT_EQ(PointsText(relative.series[0]), "5.275000095,0.75 7.025000095,0.25");
  EXPECT_EQ(PointsText(relative.series[2]), "6.049999952,0 6.049999952,0.75");
  const Point& first = relative.series[1].points.front();
  const double z = (4.400000095367432 - 5.599999984105428) / 0.9572688259587759;
  const double density = std::exp(-z * z / 2) / std::sqrt(2 * std::numbers::pi);
  EXPECT_NEAR(Raw(first.y), 1.75 * density / 0.9572688259587759, 1e-9);

  const Plot& cumulative = told.PlotOf("frmCumGauss");
  EXPECT_THAT(SizesOf(cumulative), ElementsAre(12, 100));
  EXPECT_EQ(Raw(cumulative.series[0].points.back().y), 1);
  EXPECT_NEAR(Raw(cumulative.series[1].points.front().y), std::erfc(-z / std::sqrt(2)) / 2, 2.5e-7);
}

TEST(OneSample, TakesEachHistogramsClassesFromItsOwnGroup) {
  const Transcript told = RunGlucose({{"absolute-classes", "user"},
                                      {"absolute-class-count", "3"},
                                      {"relative-classes", "user"},
                                      {"relative-class-count", "5"}});
  EXPECT_EQ(told.PlotOf("frmHistoAbsPlot").series[0].points.size(), 3U);
  EXPECT_EQ(told.PlotOf("frmHistoPlot").series[0].points.size(), 5U);
  std::vector<double> counts;
  for (const Point& point : told.PlotOf("frmHistoAbsPlot").series[0].points)
    counts.push_back(Raw(point.y));
  EXPECT_THAT(counts, ElementsAre(7, 4, 1));
}

// One class can be asked for; fewer are one as well, and that is told.
TEST(OneSample, DrawsOneClassAtLeast) {
  const struct {
    const char* count;
    std::size_t notices;
  } cases[] = {{"1", 0}, {"0", 1}, {"-2", 1}};
  for (const auto& [count, notices] : cases) {
    const Transcript told =
        RunGlucose({{"absolute-classes", "user"}, {"absolute-class-count", count}});
    EXPECT_EQ(told.PlotOf("frmHistoAbsPlot").series[0].points.size(), 1U) << count;
    EXPECT_EQ(told.notices.size(), notices) << count;
  }
}

// --- Edges and early ends

TEST(OneSample, RunsOnThreeValues) {
  const Transcript told = RunAnalysis(kOneSample, {{"1", "2", "4"}});
  EXPECT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  EXPECT_EQ(told.Text(8, 2), "2.0000");
}

TEST(OneSample, GoesOnWithoutANormalityTest) {
  std::vector<std::string> values(200, "0");  // one value 14 SDs out: 1 - p rounds to 0
  values.back() = "1000";
  const Transcript told = RunAnalysis(kOneSample, {values});
  EXPECT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, ElementsAre("Error in Anderson-Darling test"));
  EXPECT_EQ(told.Text(16, 1), "  P ");
  EXPECT_EQ(told.Text(16, 2), "");
}

}  // namespace
}  // namespace quorval::test
