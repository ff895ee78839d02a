// Proportions of the made pairs come from tests/independent/difference_plots.py; the other numbers
// are by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analyses/difference/user_limits.h"
#include "difference_runs.h"
#include "support/sheet_lines.h"

namespace quorval::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Settings kA{{"limits", "a"}, {"a-constant", "2"}};
const Settings kB{{"limits", "b"}, {"b-percent", "5"}};
const Settings kC{{"limits", "c"}, {"c-constant", "3"}, {"c-division", "150"}, {"c-percent", "10"}};

Settings With(Settings settings, const Settings& more) {
  settings.insert(settings.end(), more.begin(), more.end());
  return settings;
}

// --- The sheet below its head

struct Sheet {
  std::string_view name;
  Settings settings;
  Lines lines;  // the title, and rows 10 to the second pair of the listing
};

class UserLimits : public testing::TestWithParam<Sheet> {};

TEST_P(UserLimits, WriteTheirRows) {
  const auto& [name, settings, expected] = GetParam();
  const Transcript told = RunDifference(MadeColumns(), With(settings, {{"show-data", "on"}}));
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  Lines lines = LinesOf(told.sheet, 10, told.sheet.DataRowCnt() - 22);
  lines.insert(lines.begin(), LinesOf(told.sheet, 2, 2).front());
  EXPECT_EQ(lines, expected);

  const Transcript plain = RunDifference(MadeColumns(), settings);
  for (const std::string& line : LinesOf(plain.sheet, 21))
    EXPECT_EQ(line.find("Display"), std::string::npos);
}

const std::string kTitle = "2:*  Results of Difference plots (single)";
const std::string kTitleWithRows = kTitle + "(row 1 - 80)";

INSTANTIATE_TEST_SUITE_P(
    , UserLimits,
    testing::Values(Sheet{"AFraction",
                          kA,
                          {
                              kTitle,
                              "10:  User set limits for differences (y-x)(+/-):|2.000000",
                              "11:  Proportion (%) differences outside the limits: |29.166667",
                              "13:  Obs. distribution does not agree with null",
                              "14:  hypothesis of 95% observations within limits",
                              "20:*Relative Y-X difference plot",
                              "25:Display of x, y, diffs and rel. diffs",
                              "26:X|Y|Y-X|Rel. Y-X",
                              "28:10.000000|16.000000|6.000000|0.461538",
                              "29:20.000000|19.000000|-1.000000|-0.051282",
                          }},
                    Sheet{"APercent",
                          With(kA, {{"scale", "percent"}, {"a-constant", "20"}}),
                          {
                              kTitleWithRows,
                              "10:  User set limits for differences (y-x)(+/-):|20.000000",
                              "11:  Proportion (%) differences outside the limits: |0.000000",
                              "13:  Obs. distribution agrees with null hypothesis",
                              "14:  of at least 95% observations within limits",
                              "20:*Percentage Y-X difference plot",
                              "25:Display of x, y, diffs and perc. diffs",
                              "26:X|Y|Y-X|Perc. Y-X",
                              "28:10.000000|16.000000|6.000000|46.153846",
                              "29:20.000000|19.000000|-1.000000|-5.128205",
                          }},
                    Sheet{"BFraction",
                          kB,
                          {
                              kTitleWithRows,
                              "10:  User set limits (percent) for differences (y-x)(+/-):|5.000000",
                              "12:*Relative Y-X difference plot",
                              "16:  User set percent limits for differences (y-x)(+/-):|5.000000",
                              "17:Proportion (%) differences outside the limits: |41.666667",
                              "18:  Obs. distribution does not agree with null",
                              "19:  hypothesis of 95% observations within limits",
                              "21:Display of x, y, diffs and rel. diffs",
                              "22:X|Y|Y-X|Rel. Y-X",
                              "24:10.000000|16.000000|6.000000|0.461538",
                              "25:20.000000|19.000000|-1.000000|-0.051282",
                          }},
                    Sheet{"BPercent",
                          With(kB, {{"scale", "percent"}}),
                          {
                              kTitleWithRows,
                              "10:  User set limits for differences (y-x)(+/-):|5.000000",
                              "12:*Percentage Y-X difference plot",
                              "16:  User set percent limits for differences (y-x)(+/-):|5.000000",
                              "17:Proportion (%) differences outside the limits: |41.666667",
                              "18:  Obs. distribution does not agree with null",
                              "19:  hypothesis of 95% observations within limits",
                              "21:Display of x, y, diffs and perc. diffs",
                              "22:X|Y|Y-X|Perc. Y-X",
                              "24:10.000000|16.000000|6.000000|46.153846",
                              "25:20.000000|19.000000|-1.000000|-5.128205",
                          }},
                    Sheet{"CFraction",
                          kC,
                          {
                              kTitle,
                              "10:  User set constant limits for differences (y-x)(+/-):|3.000000",
                              "11: up to division point of:  |150.000000",
                              "14:*Relative Y-X difference plot",
                              "17: User set percent limits: |10.000000",
                              "18:  Proportion (%) differences outside the limits: |20.833333",
                              "20:  Obs. distribution does not agree with null",
                              "21:  hypothesis of 95% observations within limits",
                              "25:Display of x, y, diffs and rel. diffs",
                              "26:X|Y|Y-X|Rel. Y-X",
                              "28:10.000000|16.000000|6.000000|0.461538",
                              "29:20.000000|19.000000|-1.000000|-0.051282",
                          }},
                    Sheet{"CPercent",
                          With(kC, {{"scale", "percent"}}),
                          {
                              kTitle,
                              "10:  User set constant limits for differences (y-x)(+/-):|3.000000",
                              "11:  up to division point of:|150.000000",
                              "20:*Percentage Y-X difference plot",
                              "23: User set percent limits: |10.000000",
                              "24:  Proportion (%) differences outside the limits: |20.833333",
                              "25:  Obs. distribution does not agree with null",
                              "26:  hypothesis of 95% observations within limits",
                              "27:Display of x, y, diffs and perc. diffs",
                              "28:X|Y|Y-X|Perc. Y-X",
                              "29:10.000000|16.000000|6.000000|46.153846",
                              "30:20.000000|19.000000|-1.000000|-5.128205",
                          }}),
    [](const auto& sheet) { return std::string(sheet.param.name); });

// --- Inside or outside

// Differences of 20, 20 and 1 at means of 100, 200 and 300.
const Columns kThree{{"90", "190", "299.5"}, {"110", "210", "300.5"}};

TEST(UserLimitsRule, CountsAValueAtALimitAsInside) {
  struct Case {
    Settings settings;
    double outside;  // of three
  };
  for (const auto& [settings, outside] : {
           Case{{{"limits", "a"}, {"a-constant", "20"}}, 0},
           Case{{{"limits", "a"}, {"a-constant", "19.9"}}, 2},
           Case{{{"limits", "b"}, {"b-percent", "20"}}, 0},
           Case{{{"limits", "b"}, {"b-percent", "19.9"}}, 1},
           // A mean equal to the division point has the constant limit.
           Case{With(kC, {{"c-constant", "20"}, {"c-division", "100"}, {"c-percent", "1"}}), 1},
           Case{With(kC, {{"c-constant", "20"}, {"c-division", "99.9"}, {"c-percent", "1"}}), 2},
           Case{With(kC, {{"c-constant", "1"}, {"c-division", "100"}, {"c-percent", "20"}}), 1},
       }) {
    for (const char* scale : {"fraction", "percent"}) {
      const Transcript told = RunDifference(kThree, With(settings, {{"scale", scale}}));
      ASSERT_EQ(told.outcome, Outcome::kDone);
      double proportion = -1;
      for (int row : {11, 17, 18, 24})
        if (told.Text(row, 1).find("roportion") != std::string::npos)
          proportion = told.Value(row, 2);
      EXPECT_DOUBLE_EQ(proportion, 100 * outside / 3) << settings[1].second << scale;
    }
  }
}

TEST(UserLimitsRule, ReadsItsLimitsIn32Bits) {
  const Transcript told = RunDifference(kThree, {{"limits", "a"}, {"a-constant", "0.1"}});
  EXPECT_EQ(told.Value(10, 2), static_cast<double>(0.1F));
}

TEST(UserLimitsRule, TestsTheProportionByItsTable) {
  struct Case {
    int n, critical;
  };
  using difference::Agreement;
  using difference::TestProportion;
  for (const auto& [n, critical] :
       {Case{20, 86}, Case{25, 86}, Case{26, 87}, Case{29, 87}, Case{30, 90}, Case{79, 90},
        Case{80, 91}, Case{99, 91}, Case{100, 92}, Case{149, 92}, Case{150, 93}, Case{1000, 93}}) {
    EXPECT_EQ(TestProportion(n, 100 - critical), Agreement::kAgrees) << n;
    EXPECT_EQ(TestProportion(n, 100.01 - critical), Agreement::kDoesNotAgree) << n;
  }
  for (int n : {3, 19, 1001}) EXPECT_EQ(TestProportion(n, 50), Agreement::kNotTested) << n;
}

TEST(UserLimitsRule, TellsTheVerdictFrom20To1000Pairs) {
  struct Case {
    int n, outside;
    std::string_view verdict;
  };
  for (const auto& [n, outside, verdict] :
       {Case{19, 19, ""}, Case{1001, 0, ""},
        Case{20, 3, "  Obs. distribution does not agree with null"},
        Case{20, 2, "  Obs. distribution agrees with null hypothesis"}}) {
    const Transcript told = RunDifference(PairsWithDifferences(n, outside), kA);
    EXPECT_EQ(told.Text(13, 1), verdict) << n << ", " << outside;
  }
}

// --- The plots

// Pair means 10, 21 and 30: a range of 20.
const Columns kPlotted{{"10", "20", "30"}, {"10", "22", "30"}};

void ExpectPoint(const Plot& plot, std::size_t series, std::size_t k, double x, double y) {
  ASSERT_GT(plot.series.size(), series - 1);
  ASSERT_GT(plot.series[series - 1].points.size(), k - 1);
  const Point& point = plot.series[series - 1].points[k - 1];
  EXPECT_DOUBLE_EQ(Raw(point.x), x) << series << ", " << k;
  EXPECT_DOUBLE_EQ(Raw(point.y), y) << series << ", " << k;
}

TEST(UserLimitsPlots, DrawConstantLimitsOnTheAbsolutePlotAlone) {
  const Transcript told = RunDifference(kPlotted, kA);
  const Plot& absolute = told.PlotOf("frmBAPlot");
  EXPECT_EQ(absolute.caption, "Bland-Altman Plot (y-x differences against mean of x and y)");
  EXPECT_EQ(absolute.label, "");
  EXPECT_THAT(SizesOf(absolute), ElementsAre(3, 2, 2));
  ExpectPoint(absolute, 1, 2, 21, 2);
  ExpectPoint(absolute, 2, 1, 10, -2);
  ExpectPoint(absolute, 2, 2, 30, -2);
  ExpectPoint(absolute, 3, 2, 30, 2);
  const Plot& relative = told.PlotOf("frmBARelPlot");
  EXPECT_EQ(relative.caption,
            "Relative Bland-Altman Plot (relative difference against mean of x and y)");
  EXPECT_EQ(relative.label, "");
  EXPECT_THAT(SizesOf(relative), ElementsAre(3));
  ExpectPoint(relative, 1, 2, 21, 2.0 / 21);
}

TEST(UserLimitsPlots, DrawPercentageLimitsAsCurvesAndAsLevels) {
  const Settings settings{{"limits", "b"}, {"b-percent", "10"}};
  const Transcript told = RunDifference(kPlotted, settings);
  const Plot& absolute = told.PlotOf("frmBAPlot");
  EXPECT_THAT(SizesOf(absolute), ElementsAre(3, 50, 50));
  ExpectPoint(absolute, 2, 1, 10.4, -1.04);
  ExpectPoint(absolute, 3, 1, 10.4, 1.04);
  ExpectPoint(absolute, 3, 50, 30, 3);
  const Plot& relative = told.PlotOf("frmBARelPlot");
  EXPECT_THAT(SizesOf(relative), ElementsAre(3, 2, 2));
  ExpectPoint(relative, 2, 1, 10, -0.1);
  ExpectPoint(relative, 3, 2, 30, 0.1);

  const Transcript percent = RunDifference(kPlotted, With(settings, {{"scale", "percent"}}));
  const Plot& in_percent = percent.PlotOf("frmBARelPlot");
  EXPECT_EQ(in_percent.caption,
            "Percent Bland-Altman Plot (percent difference against mean of x and y)");
  ExpectPoint(in_percent, 1, 2, 21, 200.0 / 21);
  ExpectPoint(in_percent, 2, 1, 10, -10);
}

TEST(UserLimitsPlots, DrawLimitsOfKindCFromZeroOn) {
  const Settings settings{
      {"limits", "c"}, {"c-constant", "2"}, {"c-division", "8"}, {"c-percent", "10"}};
  const Transcript told = RunDifference(kPlotted, settings);
  const Plot& absolute = told.PlotOf("frmBAPlot");
  EXPECT_THAT(SizesOf(absolute), ElementsAre(3, 50, 50));
  ExpectPoint(absolute, 2, 1, 0.4, -2);
  ExpectPoint(absolute, 3, 20, 8, 2);  // at the division point
  ExpectPoint(absolute, 3, 21, 8.4, 0.84);
  ExpectPoint(absolute, 2, 50, 20, -2);
  const Plot& relative = told.PlotOf("frmBARelPlot");
  EXPECT_EQ(relative.caption,
            "Relative Bland-Altman Plot (relative difference against mean of x and y)");
  EXPECT_THAT(SizesOf(relative), ElementsAre(3, 50, 50));
  ExpectPoint(relative, 2, 1, 0.4, -5);
  ExpectPoint(relative, 3, 20, 8, 0.25);
  ExpectPoint(relative, 3, 21, 8.4, 0.1);

  const Transcript percent = RunDifference(kPlotted, With(settings, {{"scale", "percent"}}));
  const Plot& in_percent = percent.PlotOf("frmBARelPlot");
  EXPECT_EQ(in_percent.caption,
            "Percentage Bland-Altman Plot (perc. difference against mean of x and y)");
  ExpectPoint(in_percent, 3, 20, 8, 25);
  ExpectPoint(in_percent, 2, 21, 8.4, -10);
}

}  // namespace
}  // namespace quorval::test
