// Expected numbers come from tests/independent/general_statistics.py.  The rank tests' tables are
// tested in rank_tests_test.cpp.
#include "analyses/general/general_data.h"
#include "analyses/registry.h"

namespace quorval::test {
namespace {

using general::kTwoSamples;
using testing::ElementsAre;
using testing::IsEmpty;

Transcript RunTest(const std::string& test, const Columns& columns) {
  return RunTitled(kTwoSamples, columns, {{"test", test}});
}

// The second group two values shorter, for the tests of independent samples.
Columns Unequal() { return {kGlucose, {kAfter.begin(), kAfter.end() - 2}}; }

TEST(TwoSamples, WriteTheSheetOfTheUnpairedTTest) {
  const Transcript told = RunTest("t", Unequal());
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  EXPECT_EQ(LinesOf(told.sheet), SheetOf("TwoSamples, write the sheet of the unpaired t test"));
  constexpr double kT = 2.086;  // 20 degrees of freedom
  ExpectNumbers(told, {{9, 2, 5.599999984105428},
                       {10, 2, 0.9572688259587759},
                       {11, 2, 0.2763397071770682},
                       {17, 2, 0.8920013503143948},
                       {19, 2, 0.5699999968210863},
                       {20, 2, 0.39754556417132797},
                       {22, 2, 1.4337979044219356},
                       {23, 2, 0.5699999968210863 - kT * 0.39754556417132797},
                       {23, 3, 0.5699999968210863 + kT * 0.39754556417132797}});
}

TEST(TwoSamples, WriteTheSheetOfThePairedTTest) {
  const Transcript told = RunTest("paired-t", {kGlucose, kAfter});
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_EQ(LinesOf(told.sheet), SheetOf("TwoSamples, write the sheet of the paired t test"));
  ExpectNumbers(told, {{13, 2, 0.3464102315907308},
                       {14, 2, 0.10000002022947452},
                       {16, 2, 4.999998988526479},
                       {17, 2, 0.5 - 2.201 * 0.10000002022947452}});
}

TEST(TwoSamples, WriteTheSheetOfTheFTest) {
  const Transcript told = RunTest("f", Unequal());
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_EQ(LinesOf(told.sheet), SheetOf("TwoSamples, write the sheet of the f test"));
  ExpectNumbers(
      told,
      {{11, 2, 0.9163636051524933}, {18, 2, 0.7956664089627036}, {19, 2, 1.1516932156871378}});
  ExpectNumbers(told, {{19, 4, 0.8456778787602217}}, 1e-7);  // a fraction of fixed depth

  // The ratio is above 1 whichever sample varies more, and P no more than 1.
  Columns swapped = Unequal();
  std::swap(swapped[0], swapped[1]);
  EXPECT_EQ(RunTest("f", swapped).Value(19, 2), told.Value(19, 2));
  // Both variances are 1: the first counts as the larger.  P = 2 (1 + 2 / 4)^-2 of 2 and 4 degrees
  // of freedom; of 4 and 2 it would be 2 (1 - 4 / 9).
  const std::vector<std::string> three{"1", "2", "3"}, five{"2", "0", "2", "0", "1"};
  ExpectNumbers(RunTest("f", {three, five}), {{19, 2, 1}, {19, 4, 8.0 / 9}});
  ExpectNumbers(RunTest("f", {five, three}), {{19, 2, 1}, {19, 4, 1}});
}

TEST(TwoSamples, WriteTheSheetOfTheMannWhitneyTest) {
  const Transcript told = RunTest("mann-whitney", Unequal());
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_EQ(LinesOf(told.sheet), SheetOf("TwoSamples, write the sheet of the mann whitney test"));
  ExpectNumbers(told, {{9, 2, 5.299999952316284}, {15, 2, 6.049999952316284}});
}

TEST(TwoSamples, WriteTheSheetOfTheWilcoxonTest) {
  const Transcript told = RunTest("wilcoxon", {kGlucose, kAfter});
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_EQ(LinesOf(told.sheet), SheetOf("TwoSamples, write the sheet of the wilcoxon test"));
}

TEST(TwoSamples, NameNoPForFewerThanSevenPairs) {
  const Transcript told =
      RunTest("wilcoxon", {{"1", "2", "3", "4", "5", "6"}, {"2", "4", "6", "8", "10", "12"}});
  EXPECT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes,
              ElementsAre("Less than 7 paired observations: No probability estimation"));
  EXPECT_THAT(LinesOf(told.sheet, 11),
              ElementsAre("11:  Number of paired observations:|6",
                          "12:  Median Difference(see plot):|3.5000",
                          "15:  Result of paired Wilcoxon rank test:", "16:  P: "));
}

TEST(TwoSamples, StandForAnEmptyTitleByBlanksInTheUnpairedTTestAlone) {
  const Columns columns{kGlucose, kAfter};
  const auto name_of = [&](const char* test, int row) {
    return RunAnalysis(kTwoSamples, columns, {{"test", test}}).Text(row, 2);
  };
  EXPECT_EQ(name_of("t", 7), "  ");
  EXPECT_EQ(name_of("t", 14), "  ");
  for (const char* test : {"paired-t", "f", "mann-whitney", "wilcoxon"})
    EXPECT_EQ(name_of(test, 7), "") << test;
}

TEST(TwoSamples, DrawGroupsOrDifferencesInRowOrder) {
  const Columns columns{{"3", "1", "8", "2", "6"}, {"5", "4", "7", "9", "0"}};  // means 4 and 5
  struct Case {
    const char *test, *bar1, *bar2;
  };
  for (const auto& [test, bar1, bar2] :
       {Case{"t", "0.8,4 1.2,4", "1.8,5 2.2,5"}, Case{"f", "0.8,4 1.2,4", "1.8,5 2.2,5"},
        Case{"mann-whitney", "0.8,3 1.2,3", "1.8,5 2.2,5"}}) {
    const Plot plot = RunTest(test, columns).PlotOf("frmDotplot");
    ASSERT_EQ(plot.series.size(), 4U) << test;
    EXPECT_EQ(PointsText(plot.series[0]), "1,3 1,1 1,8 1,2 1,6");
    EXPECT_EQ(PointsText(plot.series[1]), "2,5 2,4 2,7 2,9 2,0");
    EXPECT_EQ(PointsText(plot.series[2]), bar1) << test;
    EXPECT_EQ(PointsText(plot.series[3]), bar2) << test;
    EXPECT_EQ(plot.series[3].draw, Draw::kLine);
  }
  for (const auto& [test, bar, none] :
       {Case{"paired-t", "0.8,1 1.2,1", ""}, Case{"wilcoxon", "0.8,2 1.2,2", ""}}) {
    const Plot plot = RunTest(test, columns).PlotOf("frmDotplot");
    ASSERT_EQ(plot.series.size(), 2U) << test;
    EXPECT_EQ(PointsText(plot.series[0]), "1,2 1,3 1,-1 1,7 1,-6");
    EXPECT_EQ(PointsText(plot.series[1]), bar) << test;
  }
}

}  // namespace
}  // namespace quorval::test
