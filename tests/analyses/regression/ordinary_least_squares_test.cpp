// Expected numbers come from tests/independent/ordinary_least_squares.py, which sums Sxx in 32
// bits.
#include "analyses/registry.h"
#include "analyses/regression/regression_data.h"

namespace quorval::test {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double kDigits = 1e-12;

TEST(Ols, WritesItsSheetRowByRow) {
  Context context;
  context.ProjectName = "Glucose";
  const Transcript told =
      RunAnalysis(regression::kOls, SingleSet(), {{"xc1", "5"}, {"xc2", "20.1"}}, context);
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  ExpectLabels(told, SheetOf("Ols, writes its sheet row by row"));
  EXPECT_TRUE(told.sheet.At(1, 2).look.bold);
  EXPECT_EQ(told.sheet.At(2, 6).look.type, CellType::kEdit);
  EXPECT_EQ(told.sheet.DataRowCnt(), 29);
}

TEST(Ols, ComputesItsNumbers) {
  const Settings levels{{"xc1", "5"}, {"xc2", "20.1"}};
  Settings duplicate = levels;
  duplicate.emplace_back("mode", "duplicate");
  ExpectComputed(regression::kOls, {"ols", SingleSet(), levels}, kDigits);
  ExpectComputed(regression::kOls, {"ols duplicate", DuplicateSet(), duplicate}, kDigits);
  ExpectLabels(RunAnalysis(regression::kOls, DuplicateSet(), duplicate),
               SheetOf("Ols, computes its numbers"));
}

TEST(Ols, LeavesOutACriticalValueOutOfRange) {
  struct Case {
    std::string_view xc1;
    bool shown;
  };
  // The smallest x is 2.521, the largest 23.409; both as typed are inside.
  for (const auto& [xc1, shown] :
       {Case{"", false}, Case{"2.521", true}, Case{"1.521", false}, Case{"23.409", true},
        Case{"23.5", false}, Case{"word", false}}) {
    const Transcript told =
        RunAnalysis(regression::kOls, SingleSet(), {{"xc1", std::string(xc1)}, {"xc2", "8"}});
    EXPECT_EQ(told.outcome, Outcome::kDone);
    EXPECT_EQ(told.Text(24, 1), shown ? "  Critical value Xc1" : "") << xc1;
    EXPECT_EQ(told.Text(26, 1), "  Critical value Xc2") << xc1;
  }
}

TEST(Ols, ListsFiveOutliersAndTellsOfMore) {
  const Transcript told =
      RunAnalysis(regression::kOls, WithSixOutliers(), {{"outlier-limit", "2"}});
  ASSERT_EQ(told.outcome, Outcome::kDone);
  ExpectLabels(told, SheetOf("Ols, lists five outliers and tells of more"));
  const Plot& xy = told.PlotOf("frmXY1s");
  EXPECT_THAT(xy.series[0].points, SizeIs(34));
  EXPECT_THAT(xy.series[1].points, SizeIs(6));
  EXPECT_EQ(xy.series[1].mark, Mark::kCross);
  const Plot& residuals = told.PlotOf("frmRes1s");
  ASSERT_THAT(residuals.series, SizeIs(2));
  EXPECT_THAT(residuals.series[1].points, SizeIs(6));
}

TEST(Ols, ShowsItsTables) {
  const Transcript told =
      RunAnalysis(regression::kOls, SingleSet(), {{"show-bands", "on"}, {"show-residuals", "on"}});
  ExpectLabels(told, {"42:x value|Estim y|Lower 95%-conf. limit|Upper 95%-conf. limit", "54:",
                      "55:x value|y value|Estim. y |Res. (y-(a0+bx)|St. res.((y-(a0+bx))/SDy.x)"});
  EXPECT_EQ(told.sheet.DataRowCnt(), 80);
}

TEST(Ols, DrawsSixSeriesOrFourAndTheResiduals) {
  const Transcript told = RunAnalysis(regression::kOls, SingleSet());
  const Plot& xy = told.PlotOf("frmXY1s");
  EXPECT_EQ(xy.caption, "X-Y plot Ord. least-squares reg. analysis");
  EXPECT_THAT(SizesOf(xy), ElementsAre(25, 1, 2, 2, 11, 11));
  EXPECT_EQ(Raw(xy.series[1].points[0].x), 2.521);  // the first point, hidden in series 1
  EXPECT_EQ(xy.series[1].mark, Mark::kDot);
  EXPECT_THAT(Raw(xy.series[2].points[1].y),
              DoubleNear(0.22460973060105 + 0.9959432692019468 * 23.409, kDigits));
  EXPECT_EQ(Raw(xy.series[3].points[1].y), 23.409);
  EXPECT_EQ(xy.series[3].pattern, Pattern::kDashed);
  const double margin = 2.069 * 1.0201243709847527;
  EXPECT_LT(Raw(xy.series[4].points[5].y), Raw(xy.series[5].points[5].y));
  EXPECT_LT(Raw(xy.series[5].points[5].y - xy.series[4].points[5].y), 2 * margin);

  const Plot& residuals = told.PlotOf("frmRes1s");
  EXPECT_EQ(residuals.caption, "Standardized residuals plot");
  ASSERT_THAT(residuals.series, SizeIs(1));
  EXPECT_THAT(residuals.series[0].points, SizeIs(25));

  const Transcript plain = RunAnalysis(regression::kOls, SingleSet(), {{"plot-bands", "off"}});
  EXPECT_THAT(plain.PlotOf("frmXY1s").series, SizeIs(4));
}

TEST(Ols, RunsOnThreePoints) {
  const Transcript told = RunAnalysis(regression::kOls, {{"1", "2", "3"}, {"1", "2", "4"}});
  EXPECT_EQ(told.outcome, Outcome::kDone);
  ExpectNumbers(told, {{11, 2, 1.5}, {19, 2, -2.0 / 3}});  // by hand
}

TEST(Ols, EqualsTheSingleModeOnEqualReplicates) {
  const auto a = TextsOf(example_data::kA);
  const auto b = TextsOf(example_data::kB);
  const Transcript single = RunAnalysis(regression::kOls, {a, b});
  const Transcript duplicate = RunAnalysis(regression::kOls, {a, a, b, b}, {{"mode", "duplicate"}});
  for (int row = 11; row <= 23; ++row)
    for (int column = 2; column <= 3; ++column)
      EXPECT_EQ(single.sheet.At(column, row), duplicate.sheet.At(column, row)) << row;
}

}  // namespace
}  // namespace quorval::test
