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

const Lines kAbsoluteRows{
    "2:*  Results of Difference plots (dupl.)(row 1 - 55)",
    "3:  Project:|Peak flow",
    "4:  Analyst: ||  Date: ",
    "5:  Analyte: ",
    "8:  No of (x1 ,x2, y1, y2) obs: |24",
    "9:  X = (x1+x2)/2 and Y = (y1+y2)/2 ",
    "11:  x1: Col:|2",
    "12:  x2: Col:|3",
    "13:  y1: Col:|4",
    "14:  y2: Col:|5",
    "16:  Mean of X:|125.000000|  SD:|70.710678",
    "17:  Range of X (min - max):|10.000000|240.000000",
    "19:  Mean of Y:|124.916667|  SD:|70.064049",
    "20:  Range of Y (min - max):|16.000000|239.500000",
    "22:  Mean paired Y - X diff.:|-0.083333|  SD:|10.355283|  SE:|2.113763",
    "23:  t-test for paired Y - X diff.: t = |-0.039424|  P:| n.s.",
    "24:  95%-interval for differences: |-21.508414|21.341747",
    "25:  Correlation for abs. Y-X diff. plot: r = |0.418576|  P:| 0.01 < P < 0.05 ",
    "27:  No. of outliers identified for Y-X diff.:|6|Outlier limit:|1.500000|SD",
    "28:s13|130.000000|150.000000",
    "29:s15|150.000000|130.000000",
    "30:s17|170.000000|190.000000",
    "31:s19|190.000000|170.000000",
    "32:s21|210.000000|230.000000",
    "33:  More than 5 outliers that are not shown",
};

TEST(DifferenceDuplicate, WritesItsSheetWithFractions) {
  const Transcript told = RunDuplicates({{"outlier-limit", "1.5"}, {"show-data", "on"}});
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  EXPECT_EQ(LinesOf(told.sheet, 1, 34), kAbsoluteRows);
  EXPECT_EQ(LinesOf(told.sheet, 35, 55),
            (Lines{
                "35:  Results for relative paired Y - X diff.:",
                "39:  Mean paired rel. Y - X diff.:|0.016252|  SD:|0.114194|  SE:|0.023310",
                "40:  t-test for paired Y - X diff.: t = |0.697233|  P:| n.s.",
                "41:  95%-interval for rel. differences: |-0.220015|0.252519",
                "42:  Correlation for rel. Y-X diff. plot: r = |-0.226193|  P:| n.s.",
                "44:  No. of outliers for rel. Y-X diff.:|1|Outlier limit:|1.500000|SD",
                "45:s1|10.000000|16.000000",
                "52:Display of x, y, diffs and rel. diffs",
                "53:X|Y|Y-X|Rel. Y-X",
                "54:10.000000|16.000000|6.000000|0.461538",
                "55:20.000000|19.000000|-1.000000|-0.051282",
            }));
  EXPECT_EQ(told.sheet.DataRowCnt(), 77);
}

TEST(DifferenceDuplicate, WritesItsSheetWithPercentsAndWithoutOutliers) {
  const Transcript told = RunDuplicates({{"scale", "percent"}, {"show-data", "on"}});
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_EQ(LinesOf(told.sheet, 26, 54),
            (Lines{
                "27:  No outliers identified for Y-X diff. |Outlier limit:|4.000000|SD",
                "35:  Results for percent paired Y - X diff.:",
                "39:  Mean paired perc. Y - X diff.:|1.625229|  SD:|11.419376|  SE:|2.330970",
                "40:  t-test for paired perc. Y - X diff.: t = |0.697233|  P:| n.s.",
                "41:  95%-interval for perc. differences: |-22.001460|25.251918",
                "42:  Correlation for perc. Y-X diff. plot: r = |-0.226193|  P:| n.s.",
                "44:  No outliers for perc. Y-X diff. ",
                "52:Display of x, y, diffs and perc. diffs",
                "53:X|Y|Y-X|Perc. Y-X",
                "54:10.000000|16.000000|6.000000|46.153846",
            }));
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
            (Lines{
                "44:  No. of outliers for perc. Y-X diff.:|6|Outlier limit:|1.500000|SD",
                "45:A|50.000000|70.000000",
                "46:B|70.000000|50.000000",
                "47:C|50.000000|70.000000",
                "48:D|70.000000|50.000000",
                "49:E|50.000000|70.000000",
                "50:  More than 5 outliers that are not shown",
            }));
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
            (Lines{
                "22:  Mean paired Y - X diff.:|-6.029412|  SD:|33.204137|  SE:|8.053186",
                "23:  t-test for paired Y - X diff.: t = |-0.748699|  P:| n.s.",
                "24:  95%-interval for differences: |-76.422182|64.363358",
                "25:  Correlation for abs. Y-X diff. plot: r = |-0.517034|  P:| 0.01 < P < 0.05 ",
            }));
  EXPECT_THAT(told.Value(42, 2), DoubleNear(-0.646922, 1e-6));
  EXPECT_EQ(told.Text(42, 4), " 0.001 < P < 0.01 ");
}

}  // namespace
}  // namespace quorval::test
