// Expected numbers come from tests/independent/difference_plots.py.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "difference_runs.h"
#include "support/data_file.h"
#include "support/sheet_lines.h"

namespace quorval::test {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;

// Mini meter as x and large meter as y, first measurements.
Transcript RunPeakFlow(Settings settings) {
  const Columns file = ReadDataFile("pefr_bland_altman_1986.csv");
  return RunDifference({file[3], file[1]}, settings);
}

TEST(DifferenceSingle, WritesItsSheetWithFractions) {
  const Transcript told = RunDifference(MadeColumns(), {{"outlier-limit", "1.5"}});
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  EXPECT_EQ(LinesOf(told.sheet), SheetOf("DifferenceSingle, writes its sheet with fractions"));
  EXPECT_EQ(told.sheet.At(2, 31).look.type, CellType::kEdit);
}

TEST(DifferenceSingle, WritesItsSheetWithPercents) {
  const Transcript told = RunPeakFlow({{"scale", "percent"}, {"show-data", "on"}});
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_EQ(LinesOf(told.sheet, 18, 75),
            SheetOf("DifferenceSingle, writes its sheet with percents"));
  EXPECT_EQ(LinesOf(told.sheet, 91), Lines{"91:451.000000|427.000000|-24.000000|-5.466970"});
}

TEST(DifferenceSingle, FindsThePublishedMeanAndSD) {
  const Transcript told = RunPeakFlow({});
  EXPECT_THAT(told.Value(18, 2), DoubleNear(-2.1, 0.05));  // l/min, Bland and Altman (1986)
  EXPECT_THAT(told.Value(22, 3), DoubleNear(38.8, 0.05));
}

TEST(DifferenceSingle, ClassesItsCorrelationBy2DegreesOfFreedomLessThanPairs) {
  // Means 10 to 50, differences 1, 2, 2, 2 and 5: r = 8 / sqrt(92).
  const Transcript told =
      RunDifference({{"9.5", "19", "29", "39", "47.5"}, {"10.5", "21", "31", "41", "52.5"}});
  EXPECT_EQ(LinesOf(told.sheet, 24, 24),
            Lines{"24:  Correlation abs. diff. plot: r= |0.834058| 0.05 < P < 0.10 "});
}

TEST(DifferenceSingle, ListsFractionsUnderTheirOwnHeads) {
  const Transcript told = RunDifference(MadeColumns(), {{"show-data", "on"}});
  EXPECT_EQ(LinesOf(told.sheet, 73, 76),
            SheetOf("DifferenceSingle, lists fractions under their own heads"));
  EXPECT_EQ(told.sheet.DataRowCnt(), 98);
}

TEST(DifferenceSingle, TellsOfMoreThanFiveRelativeOutliers) {
  // Six of 24 differ by a third of their mean, up and down.
  Columns columns(2);
  for (int i = 0; i < 24; ++i) {
    columns[0].push_back(std::to_string(i < 6 ? (i % 2 == 0 ? 50 : 70) : 60 + 10 * i));
    columns[1].push_back(std::to_string(i < 6 ? (i % 2 == 0 ? 70 : 50) : 60 + 10 * i));
  }
  const Transcript told = RunDifference(columns, {{"outlier-limit", "1.5"}});
  EXPECT_EQ(told.Text(55, 2), "6");
  EXPECT_EQ(told.Text(68, 1), "  No.");
  EXPECT_EQ(told.Text(68, 2), "5");
  EXPECT_EQ(told.Text(69, 1), "  Outlier (x, y)");
  EXPECT_EQ(told.Text(70, 1), "");
  EXPECT_EQ(told.Text(72, 1), "More than 5 outlier pairs which are not displayed ");
}

TEST(DifferenceSingle, DrawsThePointsTheMeanTheLimitsAndTheOutliers) {
  const Transcript told = RunDifference(MadeColumns(), {{"outlier-limit", "1.5"}});
  ASSERT_EQ(told.plots.size(), 2U);
  const Plot& absolute = told.PlotOf("frmBAPlot");
  EXPECT_EQ(absolute.caption, "Bland-Altman Plot (y-x differences against mean of x and y)");
  EXPECT_EQ(absolute.label, "Mean (blue dashed line) with +/-t-95 % x SD limits (green dot lines)");
  EXPECT_THAT(SizesOf(absolute), ElementsAre(18, 2, 2, 2, 6));
  const auto& series = absolute.series;
  EXPECT_EQ(Raw(series[0].points[0].x), 13);  // the first pair's mean and difference
  EXPECT_EQ(Raw(series[0].points[0].y), 6);
  for (std::size_t line : {1U, 2U, 3U}) {
    EXPECT_EQ(series[line].draw, Draw::kLine);
    EXPECT_EQ(Raw(series[line].points[0].x), 13);
    EXPECT_EQ(Raw(series[line].points[1].x), 239.75);
    EXPECT_EQ(series[line].points[0].y, series[line].points[1].y);
  }
  EXPECT_EQ(Raw(series[1].points[0].y), told.Value(18, 2));
  EXPECT_EQ(series[1].pattern, Pattern::kDashed);
  EXPECT_EQ(series[1].colour, 0x0000FFU);
  EXPECT_EQ(Raw(series[2].points[0].y), told.Value(21, 2));
  EXPECT_EQ(Raw(series[3].points[0].y), told.Value(21, 3));
  EXPECT_EQ(series[3].pattern, Pattern::kDotted);
  EXPECT_EQ(series[4].draw, Draw::kPoints);
  EXPECT_EQ(series[4].mark, Mark::kCross);
  EXPECT_EQ(Raw(series[4].points[5].x), 220);  // pair 23, which the sheet does not list
  EXPECT_EQ(Raw(series[4].points[5].y), -20);

  const Plot& relative = told.PlotOf("frmBARelPlot");
  EXPECT_EQ(relative.caption,
            "Relative Bland-Altman Plot (relative difference against mean of x and y)");
  EXPECT_EQ(relative.label, "Mean (blue dashed line) with +/-t-95% x SD limits (green dot lines)");
  EXPECT_THAT(SizesOf(relative), ElementsAre(23, 2, 2, 2, 1));
  EXPECT_EQ(Raw(relative.series[2].points[0].y), told.Value(50, 2));
  EXPECT_EQ(Raw(relative.series[3].points[1].y), told.Value(50, 3));
}

TEST(DifferenceSingle, DrawsFourSeriesWithoutOutliers) {
  const Transcript told = RunPeakFlow({{"scale", "percent"}});
  EXPECT_THAT(SizesOf(told.PlotOf("frmBAPlot")), ElementsAre(17, 2, 2, 2));
  const Plot& percent = told.PlotOf("frmBARelPlot");
  EXPECT_EQ(percent.caption,
            "Percent Bland-Altman Plot (percent difference against mean of x and y)");
  EXPECT_THAT(SizesOf(percent), ElementsAre(17, 2, 2, 2));
  EXPECT_THAT(Raw(percent.series[0].points[0].y), DoubleNear(-3.578529, 1e-6));
}

}  // namespace
}  // namespace quorval::test
