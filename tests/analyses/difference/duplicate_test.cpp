// The replicates lie round the made pairs, so the numbers are those of
// tests/independent/difference_plots.py.
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

// x - 1, x + 1, y + 2, y - 2, and the labels s1, s2 and on in worksheet column 6.
Columns MadeDuplicates() {
  Columns columns(5);
  const auto [x, y] = MakePairs();
  for (std::size_t i = 0; i < x.size(); ++i) {
    columns[0].push_back(ShortestText(x[i] - 1));
    columns[1].push_back(ShortestText(x[i] + 1));
    columns[2].push_back(ShortestText(y[i] + 2));
    columns[3].push_back(ShortestText(y[i] - 2));
    columns[4].push_back("s" + std::to_string(i + 1));
  }
  return columns;
}

Transcript RunDuplicates(Settings settings, const Columns& columns = MadeDuplicates()) {
  settings.insert(settings.begin(), {{"mode", "duplicate"}, {"id", "6"}});
  return RunDifference(columns, settings);
}

const Lines kAbsoluteRows = SheetOf("DifferenceDuplicate, absolute rows");

TEST(DifferenceDuplicate, WritesItsSheetWithFractions) {
  const Transcript told = RunDuplicates({{"outlier-limit", "1.5"}, {"show-data", "on"}});
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  EXPECT_EQ(LinesOf(told.sheet, 1, 34), kAbsoluteRows);
  EXPECT_EQ(LinesOf(told.sheet, 35, 55),
            SheetOf("DifferenceDuplicate, writes its sheet with fractions"));
  EXPECT_EQ(told.sheet.DataRowCnt(), 77);
}

TEST(DifferenceDuplicate, WritesItsSheetWithPercentsAndWithoutOutliers) {
  const Transcript told = RunDuplicates({{"scale", "percent"}, {"show-data", "on"}});
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_EQ(LinesOf(told.sheet, 26, 54),
            SheetOf("DifferenceDuplicate, writes its sheet with percents and without outliers"));
  EXPECT_THAT(SizesOf(told.PlotOf("frmBAPlot")), ElementsAre(24, 2, 2, 2));
  EXPECT_THAT(SizesOf(told.PlotOf("frmBARelPlot")), ElementsAre(24, 2, 2, 2));
  EXPECT_EQ(told.PlotOf("frmBARelPlot").caption,
            "Percent Bland-Altman Plot (Perc. y-x differences against mean of x and y)");
}

TEST(DifferenceDuplicate, FindsPercentOutliersAndFiveOfSix) {
  // Six of 24 differ by a third of their mean, up and down.
  Columns columns(5);
  for (int i = 0; i < 24; ++i) {
    const bool apart = i < 6;
    const int x = apart ? (i % 2 == 0 ? 50 : 70) : 60 + 10 * i;
    const int y = apart ? 120 - x : x;
    for (std::size_t k : {0U, 1U}) columns[k].push_back(std::to_string(x));
    for (std::size_t k : {2U, 3U}) columns[k].push_back(std::to_string(y));
    columns[4].push_back(std::string(1, static_cast<char>('A' + i)));
  }
  const Transcript told = RunDuplicates({{"scale", "percent"}, {"outlier-limit", "1.5"}}, columns);
  EXPECT_EQ(LinesOf(told.sheet, 44),
            SheetOf("DifferenceDuplicate, finds percent outliers and five of six"));
}

TEST(DifferenceDuplicate, DrawsBothPlots) {
  const Transcript told = RunDuplicates({{"outlier-limit", "1.5"}});
  const Plot& absolute = told.PlotOf("frmBAPlot");
  EXPECT_EQ(absolute.caption, "Bland-Altman Plot (y-x differences against mean of x and y)");
  EXPECT_EQ(absolute.label, "Mean (blue dashed line) with +/-t-95 % x SD limits (green dot lines)");
  EXPECT_THAT(SizesOf(absolute), ElementsAre(18, 2, 2, 2, 6));
  const Plot& relative = told.PlotOf("frmBARelPlot");
  EXPECT_EQ(relative.caption,
            "Relative Bland-Altman Plot (Rel. y-x differences against mean of x and y)");
  EXPECT_EQ(relative.label, "Mean (blue dashed line) with +/-t-95% x SD limits (green dot lines)");
  EXPECT_THAT(SizesOf(relative), ElementsAre(23, 2, 2, 2, 1));
}

TEST(DifferenceDuplicate, LeavesOutWhatIsRelativeWhenAMeasurementIsNotPositive) {
  // The mean of the replicates stays.
  for (const auto& [first, second] : {std::pair{"0", "20"}, std::pair{"-1", "21"}}) {
    Columns columns = MadeDuplicates();
    columns[0][0] = first;
    columns[1][0] = second;
    const Transcript told = RunDuplicates({{"outlier-limit", "1.5"}, {"show-data", "on"}}, columns);
    ASSERT_EQ(told.outcome, Outcome::kDone);
    EXPECT_THAT(told.boxes, IsEmpty());
    EXPECT_EQ(LinesOf(told.sheet), kAbsoluteRows);
    ASSERT_EQ(told.plots.size(), 1U);
    EXPECT_EQ(told.plots[0].window, "frmBAPlot");
  }
}

TEST(DifferenceDuplicate, IgnoresUserLimits) {
  const Transcript told = RunDuplicates({{"limits", "a"}, {"outlier-limit", "1.5"}});
  EXPECT_EQ(told.outcome, Outcome::kDone);
  EXPECT_EQ(LinesOf(told.sheet, 1, 34), kAbsoluteRows);
}

TEST(DifferenceDuplicate, TakesTheMeansOfThePublishedReplicates) {
  const Columns file = ReadDataFile("pefr_bland_altman_1986.csv");
  const Transcript told = RunDuplicates({}, {file[3], file[4], file[1], file[2], file[0]});
  EXPECT_EQ(LinesOf(told.sheet, 22, 25),
            SheetOf("DifferenceDuplicate, takes the means of the published replicates"));
  EXPECT_THAT(told.Value(42, 2), DoubleNear(-0.646922, 1e-6));
  EXPECT_EQ(told.Text(42, 4), " 0.001 < P < 0.01 ");
}

}  // namespace
}  // namespace quorval::test
