// Expected numbers come from tests/independent/control_chart.py or are computed by hand.
#include "analyses/registry.h"
#include "support/analysis_cases.h"

namespace quorval::test {
namespace {

using methodeval::kControlChart;
using testing::ElementsAre;
using testing::IsEmpty;

// Assigned mean, assigned SD, dates, values: columns 2 to 5.
Columns Control(std::string M, std::string S, std::vector<std::string> values) {
  return {{std::move(M)}, {std::move(S)}, {"Mon", "Tue", "Wed", "Thu", "Fri"}, std::move(values)};
}

TEST(ControlChart, WritesItsSheetOnTheExample) {
  const Transcript told = RunOnExample("Control Chart Example", kControlChart);
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  EXPECT_EQ(LinesOf(told.sheet), SheetOf("ControlChart, writes its sheet on the example"));
  ExpectNumbers(
      told, {{14, 2, 10.614285714285716}, {15, 2, 1.4690456895873725}, {16, 2, 13.84026894631441}});
}

TEST(ControlChart, DrawsValuesAndFiveLines) {
  const Transcript told = RunOnExample("Control Chart Example", kControlChart);
  const Plot& plot = told.PlotOf("frmControlChartPlot");
  EXPECT_EQ(plot.label,
            "Solid blue line: Ass. mean; Green dotted lines: Ass. mean +/- 2 ass. SD; Red dotted "
            "lines: Ass. mean +/- 3 ass. SD. ");
  ASSERT_EQ(plot.series.size(), 6U);
  EXPECT_EQ(PointsText(plot.series[0]), "1,10.5 2,11.3 3,9.7 5,10.1 6,8.3 7,12.9 8,11.5");
  struct Line {
    double level;
    Pattern pattern;
    Colour colour;
  };
  constexpr Line kLines[] = {{10.2, Pattern::kSolid, 0x0000FF},
                             {8.6, Pattern::kDotted, 0x008000},
                             {11.8, Pattern::kDotted, 0x008000},
                             {7.8, Pattern::kDotted, 0xFF0000},
                             {12.6, Pattern::kDotted, 0xFF0000}};
  for (std::size_t i = 0; i < std::size(kLines); ++i) {
    const Series& line = plot.series[i + 1];
    EXPECT_EQ(line.draw, Draw::kLine);
    EXPECT_EQ(line.pattern, kLines[i].pattern) << i;
    EXPECT_EQ(line.colour, kLines[i].colour) << i;
    ASSERT_EQ(line.points.size(), 2U);
    EXPECT_EQ(Raw(line.points[0].x), 0);
    EXPECT_EQ(Raw(line.points[1].x), 8);
    EXPECT_NEAR(Raw(line.points[0].y), kLines[i].level, 1e-12);
    EXPECT_EQ(line.points[0].y, line.points[1].y);
  }
}

TEST(ControlChart, KeepsThePlaceOfAMissingValue) {
  const Transcript told = RunAnalysis(kControlChart, Control("6", "1", {"5", "-1", "7"}));
  EXPECT_EQ(told.Text(6, 2), "2");
  EXPECT_EQ(told.Value(14, 2), 6);
  EXPECT_EQ(told.Text(19, 3), "-1.0000");
  EXPECT_EQ(PointsText(told.PlotOf("frmControlChartPlot").series[0]), "1,5 3,7");
}

TEST(ControlChart, SetsRejectedValuesInBold) {
  struct Case {
    std::string what, M, S;
    std::vector<std::string> values;
    std::vector<bool> bold;
  };
  const std::vector<Case> cases{
      {"at and beyond the limits", "10", "1", {"13", "13.5", "7", "6.5"}, {0, 1, 0, 1}},
      {"between the limits for warning and rejection", "10", "1", {"12.5", "10"}, {0, 0}},
      {"S of 0", "6", "0", {"6", "5", "7"}, {0, 1, 1}},
      {"a missing value", "6", "1", {"-1", "5", "7"}, {0, 0, 0}},
  };
  for (const Case& c : cases) {
    const Transcript told = RunAnalysis(kControlChart, Control(c.M, c.S, c.values));
    for (std::size_t i = 0; i < c.values.size(); ++i)
      EXPECT_EQ(told.sheet.At(3, 18 + static_cast<int>(i)).look.bold, c.bold[i]) << c.what << i;
  }
}

TEST(ControlChart, RunsWithoutDatesAnalyteAndCV) {
  const Transcript told =
      RunAnalysis(kControlChart, Control("0", "1", {"0", "-1", "0"}), {{"date-column", ""}});
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(LinesOf(told.sheet, 4, 5), ElementsAre("4:  Selected Col.for values:  |5", "5: "));
  EXPECT_THAT(
      LinesOf(told.sheet, 14),
      ElementsAre("14:  Observed Mean:  |0.0000", "15:  Observed SD:  |0.0000", "16:  CV% n. d. ",
                  "17:||  Values: ", "18:||0.0000", "19:||-1.0000", "20:||0.0000"));
}

TEST(ControlChart, TakesLabelsAndValuesFromTheLastColumn) {
  Worksheet worksheet;
  for (int row = 1; row <= 2; ++row) worksheet.SetValue(500, row, row);
  worksheet.SetText(500, 0, "IgG");
  const Transcript told = RunOn(worksheet, kControlChart,
                                {{"value-column", "500"},
                                 {"mean-column", "500"},
                                 {"sd-column", "500"},
                                 {"date-column", "500"}});
  EXPECT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(LinesOf(told.sheet, 18), ElementsAre("18:|1|1.0000", "19:|2|2.0000"));
}

}  // namespace
}  // namespace quorval::test
