#include "app/tools/tool.h"

#include <gmock/gmock.h>

#include <cmath>

#include "app/workbench.h"
#include "core/intake.h"
#include "support/data_table.h"
#include "support/scripted_platform.h"

namespace quorval {
namespace {

using test::Columns;
using test::Settings;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

struct ToolBench {
  test::ScriptedPlatform platform;
  Workbench workbench{platform, "/programs"};

  // Columns from column 1 on, row 1 first; an empty text leaves a gap.
  explicit ToolBench(const Columns& columns = {}) {
    for (std::size_t i = 0; i < columns.size(); ++i)
      for (std::size_t row = 0; row < columns[i].size(); ++row)
        workbench.worksheet().SetText(static_cast<int>(i) + 1, static_cast<int>(row) + 1,
                                      columns[i][row]);
  }
  Outcome Press(std::string_view id, const Settings& settings) {
    const Tool& tool = *FindTool(id);
    Form form(*tool.dialog);
    for (const auto& [key, text] : settings) form.Set(key, text);
    return workbench.PressOk(tool, form);
  }
  Texts Column(int column) { return WalkColumn(workbench.worksheet(), column); }
};

Settings Transform(std::string option, Settings more = {}) {
  more.insert(more.end(), {{"column", "1"}, {"transform", std::move(option)}});
  return more;
}

// The boxes come in the order of tests/data/tools.txt, and the worksheet stays as it was.
TEST(Tools, RefuseAndChangeNothing) {
  for (const test::TableLine& refused : test::ReadTable("tools.txt")) {
    SCOPED_TRACE(refused.name);
    ToolBench bench(test::ColumnsOf(refused[1]));
    const Grid before = bench.workbench.worksheet().grid();
    EXPECT_EQ(bench.Press(refused.section, test::SettingsOf(refused[0])), Outcome::kRefused);
    EXPECT_EQ(bench.platform.boxes, refused[2]);
    EXPECT_THAT(bench.platform.wait_pointer_at_box, testing::Each(false));
    EXPECT_TRUE(bench.workbench.worksheet().grid() == before);
  }
}

// --- Sort

TEST(Sort, StopsAtTheGapAndLeavesTheTitle) {
  ToolBench bench({{"3", "1", "20", "", "0"}});
  bench.workbench.worksheet().SetText(1, 0, "9");
  EXPECT_EQ(bench.Press("sort", {{"column", "1"}}), Outcome::kDone);
  EXPECT_THAT(bench.Column(1), ElementsAre("1", "3", "20"));
  EXPECT_EQ(bench.workbench.worksheet().Text(1, 0), "9");
  EXPECT_EQ(bench.workbench.worksheet().Text(1, 5), "0");
  EXPECT_FALSE(bench.platform.wait_pointer);
}

TEST(Sort, WritesPlainTextAndKeepsTheFormat) {
  ToolBench bench({{"2.50", "1e1"}, {"2.25", "1"}});
  EXPECT_EQ(bench.Press("sort", {{"column", "1"}}), Outcome::kDone);
  EXPECT_THAT(bench.Column(1), ElementsAre("2.5", "10"));
  bench.Press("format", {{"column", "2"}, {"decimals", "1"}});
  EXPECT_EQ(bench.Press("sort", {{"column", "2"}}), Outcome::kDone);
  EXPECT_THAT(bench.Column(2), ElementsAre("1", "2.25"));
  EXPECT_EQ(bench.workbench.worksheet().Text(2, 1), "1.0");
}

TEST(Sort, KeepsPairsOfEqualKeysInTheirOrder) {
  ToolBench bench({{"2", "1", "2", "1"}, {"10", "11", "12", "13"}});
  EXPECT_EQ(bench.Press("sort", {{"mode", "paired"}, {"key-column", "1"}, {"second-column", "2"}}),
            Outcome::kDone);
  EXPECT_THAT(bench.Column(1), ElementsAre("1", "1", "2", "2"));
  EXPECT_THAT(bench.Column(2), ElementsAre("11", "13", "10", "12"));
}

// --- Transform

struct TransformCase {
  Settings settings;
  std::vector<double> x, y;
};

TEST(Transform, ComputesByItsFormula) {
  const TransformCase cases[] = {
      {Transform("1"), {1, 10}, {0, 2.302585092994046}},
      {Transform("2"), {1, 10}, {0, 2.302585092994046}},
      {Transform("2", {{"constant2", "2.5"}}), {-1.5, 7.5}, {0, 2.302585092994046}},
      {Transform("3"), {4, 2}, {2, 1.4142135623730951}},
      {Transform("4", {{"exponent", "0.5"}}), {4, 9}, {2, 4}},
      {Transform("4", {{"exponent", "0"}}), {1, 10}, {0, 2.302585092994046}},
      {Transform("4", {{"exponent", "-1"}}), {4}, {0.75}},
      {Transform("5", {{"constant5", "2"}}), {0, 0.5}, {0, 0.8591409142295226}},
      {Transform("6", {{"factor", "-3"}}), {0, 2}, {0, -6}},
      {Transform("7", {{"intercept", "1"}, {"slope", "0.5"}}), {0, 3}, {1, 2.5}},
      {Transform("6", {{"factor", "1e-40"}}), {1}, {1e-40}},
  };
  for (const TransformCase& one : cases) {
    ToolBench bench({test::TextsOf(one.x)});
    EXPECT_EQ(bench.Press("transform", one.settings), Outcome::kDone);
    EXPECT_THAT(bench.platform.boxes, IsEmpty());
    EXPECT_THAT(bench.Column(1), ElementsAreArray(test::TextsOf(one.y)));
  }
}

TEST(Transform, LeavesWhatStandsBelowTheGap) {
  ToolBench bench({{"4", "", "9"}});
  bench.Press("transform", Transform("3"));
  EXPECT_EQ(bench.workbench.worksheet().Text(1, 1), "2");
  EXPECT_EQ(bench.workbench.worksheet().Text(1, 3), "9");
}

// --- Format

TEST(Format, MakesNumberCells) {
  ToolBench bench(Columns{{"1.25", "2.345e2"}});
  EXPECT_EQ(bench.Press("format", {{"column", "1"}, {"decimals", "1"}}), Outcome::kDone);
  EXPECT_EQ(bench.workbench.worksheet().Text(1, 2), "234.5");
  EXPECT_THAT(bench.Column(1), ElementsAre("1.25", "234.5"));
  EXPECT_EQ(bench.workbench.worksheet().grid().At(1, 2).look.type, CellType::kNumber);
}

TEST(Format, OfAnEmptyColumnIsDone) {
  ToolBench bench;
  EXPECT_EQ(bench.Press("format", {{"column", "1"}, {"decimals", "99"}}), Outcome::kDone);
}

TEST(Format, LeavesTheRowsAboveAWordFormatted) {
  ToolBench bench(Columns{{"1", "n.d."}});
  EXPECT_EQ(bench.Press("format", {{"column", "1"}, {"decimals", "2"}}), Outcome::kRefused);
  EXPECT_EQ(bench.workbench.worksheet().Text(1, 1), "1.00");
  EXPECT_EQ(bench.workbench.worksheet().Text(1, 2), "n.d.");
}

TEST(Tools, StandBehindTheirMenuEntries) {
  EXPECT_EQ(FindTool(Command::kSort)->id, "sort");
  EXPECT_EQ(FindTool(Command::kFormat), Tools().back());
  EXPECT_EQ(FindTool(Command::kCopy), nullptr);
}

}  // namespace
}  // namespace quorval
