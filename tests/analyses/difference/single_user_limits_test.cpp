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
};

class UserLimits : public testing::TestWithParam<Sheet> {};

TEST_P(UserLimits, WriteTheirRows) {
  const auto& [name, settings] = GetParam();
  const Transcript told = RunDifference(MadeColumns(), With(settings, {{"show-data", "on"}}));
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  // The title, and rows 10 to the second pair of the listing.
  Lines lines = LinesOf(told.sheet, 10, told.sheet.DataRowCnt() - 22);
  lines.insert(lines.begin(), LinesOf(told.sheet, 2, 2).front());
  EXPECT_EQ(lines, SheetOf("UserLimits, " + std::string(name)));

  const Transcript plain = RunDifference(MadeColumns(), settings);
  for (const std::string& line : LinesOf(plain.sheet, 21))
    EXPECT_EQ(line.find("Display"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(
    , UserLimits,
    testing::Values(Sheet{"AFraction", kA},
                    Sheet{"APercent", With(kA, {{"scale", "percent"}, {"a-constant", "20"}})},
                    Sheet{"BFraction", kB}, Sheet{"BPercent", With(kB, {{"scale", "percent"}})},
                    Sheet{"CFraction", kC}, Sheet{"CPercent", With(kC, {{"scale", "percent"}})}),
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
