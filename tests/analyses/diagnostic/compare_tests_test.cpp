// Expected numbers: tests/independent/diagnostic_tests.py, by the delta method and numeric
// derivatives.
#include "analyses/registry.h"
#include "support/analysis_cases.h"
#include "support/made_data.h"

namespace quorval::test {
namespace {

using diagnostic::kCompareTests;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::string_view kExample = "Comparison of two diagnostic tests";
const Settings kWithSE{{"difference-se", "on"}};

Columns ExampleColumns() {
  Columns columns;
  for (const auto& column : FindExample(kExample)->columns)
    columns.push_back(TextsOf(column.values));
  return columns;
}

TEST(CompareTests, WritesItsSheetOnTheExample) {
  const Transcript told = RunOnExample(kExample, kCompareTests, kWithSE);
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  EXPECT_EQ(LinesOf(told.sheet), SheetOf("CompareTests, writes its sheet on the example"));
  EXPECT_EQ(RunOnExample(kExample, kCompareTests).sheet.DataRowCnt(), 24);
}

TEST(CompareTests, EstimatesTheSEOfTheDifference) {
  const Columns example = ExampleColumns();
  const auto first18 = [](std::vector<std::string> column) {
    column.resize(18);
    return column;
  };
  Columns narrow = example;
  for (std::string& text : narrow[0]) text = ShortestText(ToNumber(text) / 4);
  const struct {
    std::string what;
    Columns columns;
    double D, se, t;
  } cases[] = {
      {"equal groups", example, 0.06079999072551612, 0.025058766614546563, 2.014 - 0.0036},
      {"25 non-diseased, 18 diseased",
       {example[0], first18(example[1]), example[2], first18(example[3])},
       0.06444443874888961,
       0.026785506665288613,
       2.021 - 0.0014},
      {"narrow", narrow, -0.06400001144409373, 0.0255673210969248, 2.014 - 0.0036},
  };
  for (const auto& [what, columns, D, se, t] : cases) {
    SCOPED_TRACE(what);
    const Transcript told = RunAnalysis(kCompareTests, columns, kWithSE);
    ExpectNumbers(told, {{24, 2, D}});
    // 2 pi has ten digits here, and the derivatives are those of differences.
    ExpectNumbers(told, {{25, 2, se}, {26, 2, D - t * se}, {26, 3, D + t * se}}, 1e-7);
  }
}

// What rounding leaves of the variance has either sign.
TEST(CompareTests, FindsNoDifferenceBetweenEqualColumns) {
  std::mt19937 random(3);
  const auto column = [&](int above) {
    std::vector<std::string> texts;
    for (Real value : TiedSample(random, 20, 60)) texts.push_back(ShortestText(value + above));
    return texts;
  };
  for (int set = 0; set < 20; ++set) {
    const auto first = column(0), second = column(3);
    const Transcript told = RunAnalysis(kCompareTests, {first, second, first, second}, kWithSE);
    ASSERT_EQ(told.outcome, Outcome::kDone);
    for (const auto& [row, cell] : {std::pair{24, 2}, {25, 2}, {26, 2}, {26, 3}})
      EXPECT_EQ(told.Value(row, cell), 0);
  }
}

TEST(CompareTests, GoesOnWithoutACorrelation) {
  Columns columns = ExampleColumns();
  columns[0].assign(25, "3");
  const Transcript told = RunAnalysis(kCompareTests, columns, kWithSE);
  EXPECT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, ElementsAre("Error in correlation computation"));
  EXPECT_GT(told.Value(25, 2), 0);
}

TEST(CompareTests, RefusesAndFails) {
  const std::string small = " N in group(s) < 10: No diagnostic test comparison ";
  const std::string column = "Selected column number should be positive integer =< 30!";
  const std::string unequal =
      "Paired ROC-Curve comparison can not be performed because of unequal sample sizes";
  const std::string se = "Error in SEarea ROC-Curve computation routine";
  const Columns example = ExampleColumns();
  const auto with = [&](std::size_t i, const std::vector<std::string>& column_i) {
    Columns columns = example;
    columns[i] = column_i;
    return columns;
  };
  const auto shortened = [&](std::size_t i, std::size_t n) {
    std::vector<std::string> column_i = example[i];
    column_i.resize(n);
    return with(i, column_i);
  };
  std::vector<std::string> worded = example[0];
  worded[20] = "n.d.";
  struct Case {
    std::string what;
    Columns columns;
    Settings settings;
    std::vector<std::string> boxes;
  };
  std::vector<Case> cases{
      {"word", with(1, worded), {}, {"Error"}},
      {"word as column", example, {{"third-column", "x"}}, {"Error"}},
      {"no column", example, {{"fourth-column", ""}}, {"Error"}},
      {"column 501", example, {{"fourth-column", "501"}}, {column, "Error"}},
      {"non-diseased of unequal number", shortened(2, 24), kWithSE, {unequal, "Error"}},
      {"diseased of unequal number", shortened(1, 24), kWithSE, {unequal, "Error"}},
      {"diseased below", {example[1], example[0], example[2], example[3]}, kWithSE, {se, "Error"}},
      {"diseased without spread",
       with(3, std::vector<std::string>(25, "90")),
       kWithSE,
       {se, "Error"}},
  };
  for (std::size_t i = 0; i < 4; ++i) cases.push_back({"9", shortened(i, 9), kWithSE, {small}});
  for (const auto& [what, columns, settings, boxes] : cases) {
    SCOPED_TRACE(what);
    const Transcript told = RunAnalysis(kCompareTests, columns, settings);
    EXPECT_EQ(told.outcome, Outcome::kRefused);
    EXPECT_EQ(told.boxes, boxes);
    EXPECT_EQ(told.sheet.DataRowCnt(), 0);
    EXPECT_THAT(told.plots, testing::IsEmpty());
  }
  Context context;
  context.NDec = "x";
  EXPECT_THAT(RunAnalysis(kCompareTests, example, {}, context).boxes,
              ElementsAre("Error ROC-Curve comparison routine", "Error"));

  // Without the SE, neither sizes nor means matter.
  EXPECT_EQ(RunAnalysis(kCompareTests, shortened(2, 10)).outcome, Outcome::kDone);
  const Transcript reversed =
      RunAnalysis(kCompareTests, {example[1], example[0], example[2], example[3]});
  EXPECT_NEAR(reversed.Value(14, 2), 1 - 0.8752, 1e-7);
}

TEST(CompareTests, DrawsBothCurves) {
  const Transcript told = RunOnExample(kExample, kCompareTests);
  ASSERT_THAT(told.plots, SizeIs(1));
  const Plot& plot = told.PlotOf("frmDiaPlot");
  EXPECT_EQ(plot.header, "Comparison of ROC-curves");
  EXPECT_EQ(plot.x.title, "1-Specificity");
  EXPECT_EQ(plot.y.title, "Sensitivity");
  ASSERT_THAT(plot.series, SizeIs(2));
  EXPECT_EQ(plot.series[0].colour, 0x0000FFU);
  EXPECT_EQ(plot.series[1].colour, 0xFF0000U);
  for (const Series& curve : plot.series) {
    EXPECT_THAT(curve.points, SizeIs(51));
    EXPECT_EQ(curve.points.front(), (Point{1, 1}));
    EXPECT_EQ(curve.points.back(), (Point{0, 0}));
  }
}

}  // namespace
}  // namespace quorval::test
