#include "app/examples.h"

#include <gmock/gmock.h>

#include "app/workbench.h"
#include "core/conversion.h"
#include "support/scripted_platform.h"

namespace quorval {
namespace {

using test::ScriptedPlatform;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kQuestion =
    "Notice that existing project data and results are lost, Still proceed?";

// The count and the sum of a column's numbers, added up by hand from the printed data.
struct ColumnCheck {
  std::string_view example;
  int column;
  std::string_view title;
  int count;
  double sum;
};

constexpr ColumnCheck kColumns[] = {
    {"Detection Limit Example", 2, "Blanks", 20, 69.42},
    {"Detection Limit Example", 3, "S1", 4, 59.77},
    {"Detection Limit Example", 4, "S2", 4, 62.12},
    {"Detection Limit Example", 5, "S3", 4, 60.31},
    {"Detection Limit Example", 6, "S4", 4, 63.90},
    {"Detection Limit Example", 7, "S5", 4, 60.92},
    {"Precision profile example", 2, "Level 1", 6, 6.105},
    {"Precision profile example", 3, "Level 2", 5, 26.3},
    {"Precision profile example", 4, "Level 3", 8, 87.6},
    {"Evaluation of linearity example", 2, "Level 1", 4, 9.797},
    {"Evaluation of linearity example", 3, "Level 2", 4, 14.386},
    {"Evaluation of linearity example", 4, "Level 3", 3, 13.4575},
    {"Evaluation of linearity example", 5, "Level 4", 5, 36.325},
    {"Control Chart Example", 2, "Ass. mean", 1, 10.2},
    {"Control Chart Example", 3, "Ass. SD", 1, 0.8},
    {"Control Chart Example", 5, "Values", 8, 73.3},
    {"XY Regression Single", 2, "x", 25, 254.452},
    {"XY Regression Single", 3, "y", 25, 259.035},
    {"XY Regression Duplicate", 2, "x1", 25, 254.452},
    {"XY Regression Duplicate", 3, "x2", 25, 247.726},
    {"XY Regression Duplicate", 4, "y1", 25, 259.035},
    {"XY Regression Duplicate", 5, "y2", 25, 252.713},
    {"Polynomial regression", 2, "x", 8, 76},
    {"Polynomial regression", 3, "y", 8, 1.890},
    {"Reference Interval Example", 2, "Carbamide", 158, 750.1},
    {"Evaluation of a single diagnostic test", 2, "Non-dis.", 25, 254.452},
    {"Evaluation of a single diagnostic test", 3, "Diseased", 25, 509.035},
    {"Comparison of two diagnostic tests", 2, "Non-dis. 1", 25, 254.452},
    {"Comparison of two diagnostic tests", 3, "Dis. 1", 25, 497.726},
    {"Comparison of two diagnostic tests", 4, "Non-dis 2", 25, 259.035},
    {"Comparison of two diagnostic tests", 5, "Dis. 2", 25, 609.713},
};

TEST(Examples, HoldTheirColumns) {
  for (const ColumnCheck& check : kColumns) {
    Worksheet worksheet;
    WriteExample(*FindExample(check.example), worksheet);
    EXPECT_EQ(worksheet.Text(check.column, 0), check.title);
    double sum = 0;
    int row = 1;
    for (; !worksheet.Text(check.column, row).empty(); ++row)
      sum += Raw(ToNumber(worksheet.Value(check.column, row)));
    EXPECT_EQ(row - 1, check.count) << check.example << ", " << check.title;
    EXPECT_NEAR(sum, check.sum, 1e-9) << check.example << ", " << check.title;
  }
}

TEST(Examples, HoldTheirTexts) {
  Worksheet worksheet;
  const auto load = [&](std::string_view menu) { WriteExample(*FindExample(menu), worksheet); };
  load("Reference Interval Example");
  EXPECT_EQ(worksheet.Text(1, 0), "ID");
  EXPECT_EQ(worksheet.Text(1, 1), "s1");
  EXPECT_EQ(worksheet.Text(1, 158), "s158");
  EXPECT_EQ(worksheet.DataRowCnt(), 159);
  load("Detection Limit Example");
  EXPECT_EQ(worksheet.Text(1, 1), "");
  EXPECT_EQ(worksheet.Text(3, 5), "");
  EXPECT_EQ(worksheet.Text(3, 6), "S1-S5 represent five samples with low amounts of analyte");
  EXPECT_EQ(worksheet.Text(3, 7), "that have been measured four times each");
  load("Evaluation of linearity example");
  EXPECT_EQ(worksheet.Text(1, 1), "x");
  EXPECT_EQ(worksheet.Text(1, 5), "y4");
  load("Control Chart Example");
  EXPECT_EQ(worksheet.Text(4, 8), "02/16/04");
  EXPECT_EQ(worksheet.Text(5, 4), "-1");
  EXPECT_EQ(worksheet.Text(6, 4), "Missing value");
}

struct ExamplesOverData : testing::Test {
  ScriptedPlatform platform;
  Workbench workbench{platform, "/programs"};
  ExamplesOverData() {
    workbench.worksheet().SetText(9, 9, "old");
    platform.answers = {Answer::kNo};
  }
  bool Import(std::string_view menu) { return workbench.ImportExample(*FindExample(menu)); }
  const Context& context() const { return workbench.project().context(); }
};

TEST_F(ExamplesOverData, AskFirst) {
  EXPECT_FALSE(Import("Polynomial regression"));
  EXPECT_THAT(platform.boxes, ElementsAre(kQuestion));
  EXPECT_EQ(workbench.worksheet().Text(9, 9), "old");
  EXPECT_EQ(context().ProjectName, "Project 1");

  EXPECT_TRUE(Import("Precision profile example"));
  EXPECT_EQ(workbench.worksheet().Text(9, 9), "");
  EXPECT_EQ(context().ProjectName, "Demo Precision Profile");
  EXPECT_EQ(context().ProjectNote, "Demo precision profile example: 3 levels ");
  EXPECT_EQ(workbench.project().title(), "Demo Precision Profile   Quorval5  Main Menu   ");
}

TEST_F(ExamplesOverData, OfTestsAndOfReferencesNeverAsk) {
  for (std::string_view menu :
       {"Reference Interval Example", "Evaluation of a single diagnostic test",
        "Comparison of two diagnostic tests"}) {
    workbench.worksheet().SetText(9, 9, "old");
    EXPECT_TRUE(Import(menu));
    EXPECT_THAT(platform.boxes, IsEmpty());
    EXPECT_EQ(workbench.worksheet().Text(9, 9), "");
  }
  EXPECT_EQ(context().ProjectName, "Demo Paired Comparison of two diagnostic tests");
}

TEST_F(ExamplesOverData, TellTheirOwnFailure) {
  static constexpr double kValue[] = {1};
  static constexpr ExampleColumn kBeyond[] = {{Worksheet::kColumns + 1, "x", kValue}};
  const Example broken{.menu = "broken", .columns = kBeyond, .failure = "Error of this example"};
  platform.answers = {Answer::kYes};
  workbench.ImportExample(broken);
  EXPECT_THAT(platform.boxes, ElementsAre(kQuestion, "Error of this example"));
}

}  // namespace
}  // namespace quorval
