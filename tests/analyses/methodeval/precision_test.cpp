// Expected numbers come from tests/independent/precision.py, from the certified values of the NIST
// Statistical Reference Datasets, or are computed by hand.
#include "analyses/methodeval/variance_components.h"
#include "analyses/registry.h"
#include "support/analysis_cases.h"
#include "support/data_file.h"

namespace quorval::test {
namespace {

using methodeval::kPrecision;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kExample = "Precision profile example";

Settings Several(std::string start, std::string last, Settings more = {}) {
  more.insert(
      more.begin(),
      {{"mode", "several"}, {"start-column", std::move(start)}, {"last-column", std::move(last)}});
  return more;
}

// --- A single run

TEST(PrecisionOfASingleRun, WritesItsSheetOnTheExample) {
  const Transcript told = RunOnExample(kExample, kPrecision);
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  EXPECT_EQ(LinesOf(told.sheet), SheetOf("PrecisionOfASingleRun, writes its sheet on the example"));
  ExpectNumbers(told, {{7, 2, 1.0175}, {8, 2, 0.1740617706447915}, {9, 2, 17.106807925778032}});
}

TEST(PrecisionOfASingleRun, DrawsTheValuesAndTheirOutliersAgain) {
  const Transcript plain = RunOnExample(kExample, kPrecision);
  EXPECT_EQ(plain.PlotOf("frmPrecSPlot").series.size(), 6U);

  const Transcript told = RunOnExample(kExample, kPrecision, {{"outlier-limit", "1.5"}});
  EXPECT_THAT(LinesOf(told.sheet, 11),
              ElementsAre("11:  Outlier(s) present|1", "12:  Outlier Limit (no. of SDs):|1.5000",
                          "13:  Outlier:|1.3000|  No.:|3"));
  const Plot& plot = told.PlotOf("frmPrecSPlot");
  EXPECT_EQ(plot.label, "Plot of Sample Values with mean, +/- 2SD and +/-3SD");
  ASSERT_EQ(plot.series.size(), 7U);
  EXPECT_EQ(PointsText(plot.series[0]), "1,1 2,0.8 3,1.3 4,0.9 5,1.115 6,0.99");
  EXPECT_EQ(PointsText(plot.series[6]), "3,1.3");
  EXPECT_EQ(plot.series[6].mark, Mark::kCross);
  constexpr int kSds[] = {0, -2, 2, -3, 3};
  for (std::size_t i = 0; i < 5; ++i) {
    const Points& line = plot.series[i + 1].points;
    EXPECT_NEAR(Raw(line[0].y), 1.0175 + kSds[i] * 0.1740617706447915, 1e-12);
    EXPECT_EQ(Raw(line[0].x), 1);
    EXPECT_EQ(Raw(line[1].x), 6);
  }
}

TEST(PrecisionOfASingleRun, ListsFiveOutliersAndTellsOfMore) {
  const Transcript told =
      RunAnalysis(kPrecision, {{"-3", "3", "-3", "3", "-3", "3"}}, {{"outlier-limit", "0.5"}});
  EXPECT_EQ(LinesOf(told.sheet, 4),
            SheetOf("PrecisionOfASingleRun, lists five outliers and tells of more"));
}

// --- Several runs

TEST(PrecisionOfSeveralRuns, WritesItsSheetOnTheExample) {
  const Transcript told =
      RunOnExample(kExample, kPrecision,
                   Several("2", "4", {{"several-outlier-limit", "1.65"}, {"show-means", "on"}}));
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_EQ(LinesOf(told.sheet),
            SheetOf("PrecisionOfSeveralRuns, writes its sheet on the example"));
  ExpectNumbers(told, {{7, 2, 6.316052631578947},
                       {8, 2, 0.9950969644964254},
                       {10, 2, 5.2613068737588655},
                       {11, 2, 5.3545838296372095}});
  const Plot& values = told.PlotOf("frmPrecSPlot");
  EXPECT_EQ(values.label, "Plot of Total No. of Sample Values");
  ASSERT_EQ(values.series.size(), 1U);
  EXPECT_EQ(PointsText(values.series[0]).substr(0, 30), "1,1 2,0.8 3,1.3 4,0.9 5,1.115 ");
  EXPECT_EQ(values.series[0].points.size(), 19U);
  const Plot& means = told.PlotOf("frmPrecMPlot");
  EXPECT_EQ(means.label, "Plot of run mean values");
  EXPECT_EQ(PointsText(means.series.at(0)), "1,1.0175 2,5.26 3,10.95");
}

TEST(PrecisionOfSeveralRuns, EstimatesTheComponentsOfUnequalRuns) {
  const std::vector<Sample> runs{{3, 5}, {4, 9, 8}, {1, 2, 3, 4, 5}};
  EXPECT_DOUBLE_EQ(Raw(methodeval::EstimateComponents(runs).nav), 3.1);
  const Transcript told = RunAnalysis(
      kPrecision, {{"3", "5"}, {"4", "9", "8"}, {"1", "2", "3", "4", "5"}}, Several("2", "4"));
  ExpectNumbers(told, {{7, 2, 4.4},
                       {8, 2, 1.927248223318863},
                       {10, 2, 1.9248556113184083},
                       {11, 2, 2.723849268720587}});
  EXPECT_THAT(LinesOf(told.sheet, 13), ElementsAre("13:  Outlier limit (no. of SDs): |4.0000",
                                                   "14:  No outliers identified "));
}

TEST(PrecisionOfSeveralRuns, ReachesTheCertifiedComponents) {
  struct Set {
    std::string name;
    double ms_between, ms_within, n, relative_error;
  };
  // The certified values of SmLs04 carry an offset of a million, which leaves eight digits.
  for (const Set& set : {Set{"SiRstv", 1.27865654e-2, 1.0831828e-2, 5, 1e-11},
                         Set{"SmLs04", 0.21, 0.01, 21, 1e-8}}) {
    const Columns runs = ReadDataFile("nist_anova_" + set.name + ".csv");
    const Transcript told =
        RunAnalysis(kPrecision, runs, Several("2", std::to_string(runs.size() + 1)));
    const double between = (set.ms_between - set.ms_within) / set.n;
    ExpectNumbers(told,
                  {{8, 2, std::sqrt(set.ms_within)},
                   {10, 2, std::sqrt(between)},
                   {11, 2, std::sqrt(set.ms_within + between)}},
                  set.relative_error);
  }
}

TEST(PrecisionOfSeveralRuns, GivesNoNegativeEstimate) {
  struct Case {
    std::string what;
    Columns runs;
    std::string Sb, St;
  };
  const std::vector<Case> cases{
      {"identical means",
       {{"1", "2", "3", "4", "5"}, {"5", "4", "3", "2", "1"}},
       "  Negative estimate ",
       "  Can not be estimated "},
      {"mean square between equal to that within: 2",
       {{"-2", "0"}, {"-1", "1"}, {"0", "2"}},
       "0.0000",
       "1.4142"},
      {"no dispersion within", {{"1", "1"}, {"3", "3"}}, "1.4142", "1.4142"},
  };
  for (const Case& c : cases) {
    const Transcript told =
        RunAnalysis(kPrecision, c.runs, Several("2", std::to_string(c.runs.size() + 1)));
    EXPECT_EQ(told.outcome, Outcome::kDone) << c.what;
    EXPECT_EQ(told.Text(10, 2), c.Sb) << c.what;
    EXPECT_EQ(told.Text(11, 2), c.St) << c.what;
  }
}

TEST(PrecisionOfSeveralRuns, GoesOnAfterARunWithoutDispersion) {
  const Transcript told =
      RunAnalysis(kPrecision, {{"1", "1"}, {"2", "3"}, {"4", "4"}}, Several("2", "4"));
  EXPECT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes,
              ElementsAre("Error in outlier evaluation", "Error in outlier evaluation"));
}

TEST(Precision, LooksAtTheOptionsOfItsModeAlone) {
  const Columns runs{{"1", "2"}, {"3", "5"}};
  EXPECT_EQ(RunAnalysis(kPrecision, runs, {{"several-outlier-limit", "0"}}).outcome,
            Outcome::kDone);
  EXPECT_EQ(
      RunAnalysis(kPrecision, runs, Several("2", "3", {{"column", "0"}, {"outlier-limit", "0"}}))
          .outcome,
      Outcome::kDone);
}

}  // namespace
}  // namespace quorval::test
