#include "core/grid.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <stdexcept>

#include "core/results_sheet.h"
#include "core/worksheet.h"

namespace quorval {
namespace {

TEST(Cell, HasTwoReadings) {
  Grid grid(3, 3);
  grid.SetValue(1, 1, 25);
  EXPECT_EQ(grid.Text(1, 1), "25");
  Cell& number = grid.Edit(2, 1);
  number.look.type = CellType::kNumber;
  number.look.decimals = 2;
  grid.SetValue(2, 1, 1.0 / 3);
  EXPECT_EQ(grid.Text(2, 1), "0.33");
  EXPECT_EQ(grid.Value(2, 1), "0.3333333333333333");
}

TEST(Cell, TakesWhatTheUserTypes) {
  Grid grid(2, 2);
  grid.SetValue(1, 1, 3);
  grid.SetText(1, 1, "4x");
  EXPECT_EQ(grid.At(1, 1).text, "4x");
  EXPECT_FALSE(grid.At(1, 1).value);

  grid.Edit(1, 2).look.type = CellType::kNumber;
  grid.SetText(1, 2, " 2.50");
  EXPECT_EQ(grid.At(1, 2).value, 2.5);
  grid.SetText(1, 2, "none");
  EXPECT_EQ(grid.At(1, 2).look.type, CellType::kEdit);
  EXPECT_EQ(grid.Text(1, 2), "none");
}

TEST(Grid, KnowsItsExtent) {
  Grid grid(5, 10);
  EXPECT_EQ(grid.DataRowCnt(), 0);
  EXPECT_EQ(grid.DataColCnt(), 0);
  grid.Edit(5, 10).look.bold = true;  // a look alone is nothing
  EXPECT_EQ(grid.DataColCnt(), 0);
  grid.SetText(2, 7, "a");
  grid.SetText(4, 3, "b");
  EXPECT_EQ(grid.DataRowCnt(), 7);
  EXPECT_EQ(grid.DataColCnt(), 4);
  grid.SetText(2, 7, "");
  EXPECT_EQ(grid.DataRowCnt(), 3);
}

TEST(Grid, IsEmptyBeyondItsEdgesAndCannotBeWrittenThere) {
  Grid grid(2, 2);
  EXPECT_TRUE(grid.At(3, 1).Empty());
  EXPECT_TRUE(grid.At(0, 1).Empty());
  EXPECT_TRUE(grid.At(1, 99).Empty());
  EXPECT_THROW(grid.Edit(3, 1), std::out_of_range);
  EXPECT_THROW(grid.Edit(1, 3), std::out_of_range);
  EXPECT_THROW(grid.Edit(0, 1), std::out_of_range);
}

TEST(Grid, ClearsARangeWithItsFormatting) {
  Grid grid(3, 5);
  for (int column = 1; column <= 3; ++column)
    for (int row = 1; row <= 5; ++row) grid.SetText(column, row, "x");
  grid.Edit(2, 2).look.bold = true;
  grid.ClearRange(2, 2, 3, 3);
  EXPECT_TRUE(grid.At(2, 2).Empty());
  EXPECT_FALSE(grid.At(2, 2).look.bold);
  EXPECT_EQ(grid.Text(2, 4), "x");
  EXPECT_EQ(grid.Text(1, 2), "x");
  grid.ClearRange(1, 1, 9, 99);
  EXPECT_EQ(grid.DataColCnt(), 0);
}

// Whatever is written over what, in any order, a cell is what a plain table of cells would hold.
TEST(Grid, KeepsCellsOfEveryKind) {
  constexpr int kColumns = 3, kRows = 40;
  std::mt19937 random(5);
  const auto any = [&](int count) {
    return static_cast<int>(random() % static_cast<unsigned>(count));
  };
  const std::string texts[] = {"",
                               "a",
                               "1.5",
                               std::string(12, 'x'),
                               std::string(13, 'y'),
                               std::string("a\0b", 3),
                               std::string(5000, 'z')};
  const Picture picture = std::make_shared<const std::string>("png");
  Grid grid(kColumns, kRows);
  std::map<std::pair<int, int>, Cell> plain;
  for (int step = 0; step < 5000; ++step) {
    const int column = 1 + any(kColumns), row = 1 + any(kRows);
    const std::string& text = texts[any(std::size(texts))];
    Cell& expected = plain[{column, row}];
    switch (any(6)) {
      case 0: {
        grid.SetText(column, row, text);
        const bool number = expected.look.type == CellType::kNumber && text == "1.5";
        expected.value = number ? std::optional(1.5) : std::nullopt;
        expected.text = number ? "" : text;
        if (!text.empty() && !number) expected.look.type = CellType::kEdit;
        break;
      }
      case 1:
        grid.SetValue(column, row, step / 7.0);
        expected.value = step / 7.0;
        expected.text.clear();
        break;
      case 2:
        grid.SetNumber(column, row, -step, 3);
        expected.value = -step;
        expected.text.clear();
        expected.look.type = CellType::kNumber;
        expected.look.decimals = 3;
        break;
      case 3:
        expected = {};
        expected.text = text;
        expected.look.colour = static_cast<Colour>(any(300));
        if (any(8) == 0) expected.picture = picture;
        grid.Put(column, row, expected);
        break;
      case 4:
        if (any(4) == 0) grid.Edit(column, row).look.bold = expected.look.bold = true;
        break;
      default:
        if (any(40) != 0) break;
        grid.ClearRange(1, row, kColumns, kRows);
        std::erase_if(plain, [&](const auto& entry) { return entry.first.second >= row; });
    }
    for (const auto& [place, cell] : plain) {
      ASSERT_EQ(grid.At(place.first, place.second), cell) << "step " << step;
      ASSERT_EQ(grid.Empty(place.first, place.second), cell.Empty());
    }
    if (step % 500 == 0) grid = Grid(grid);
  }
}

TEST(Worksheet, CountsItsExtentFromTheGreyTitleRow) {
  Worksheet worksheet;
  EXPECT_EQ(worksheet.DataRowCnt(), 0);
  EXPECT_EQ(worksheet.grid().At(Worksheet::kColumns, 1).look.colour, kGrey);
  worksheet.SetText(3, 0, "title");
  EXPECT_EQ(worksheet.DataRowCnt(), 1);
  worksheet.SetText(1, Worksheet::kLastRow, "last");
  EXPECT_EQ(worksheet.DataRowCnt(), 10000);
  worksheet.Clear();
  EXPECT_EQ(worksheet.DataRowCnt(), 0);
  EXPECT_EQ(worksheet.grid().At(1, 1).look.colour, kGrey);
}

TEST(ResultsSheet, LetsTheTypeOfAValueDecideTheCell) {
  Context context;
  context.NDec = "2";
  ResultsSheet sheet(context);
  sheet.Row(4, "  n", 25, Real(1.005), Blank{}, Bold{"P"});
  const Grid& grid = sheet.grid();
  EXPECT_EQ(grid.Text(1, 4), "  n");
  EXPECT_EQ(grid.At(2, 4).look.type, CellType::kEdit);
  EXPECT_EQ(grid.Text(2, 4), "25");
  EXPECT_EQ(grid.At(3, 4).look.type, CellType::kNumber);
  EXPECT_EQ(grid.Text(3, 4), "1.00");  // the double is below 1.005
  EXPECT_TRUE(grid.At(4, 4).Empty());
  EXPECT_TRUE(grid.At(5, 4).look.bold);
}

TEST(ResultsSheet, FaultsAtTheFirstNumberOnBadDecimals) {
  for (const char* bad : {"abc", "-1", "40", "31", "", "2x"}) {
    Context context;
    context.NDec = bad;
    ResultsSheet sheet(context);
    EXPECT_NO_THROW(sheet.Row(1, "label", 3)) << bad;
    EXPECT_THROW(sheet.Row(2, "label", Real(3)), Fault) << bad;
    EXPECT_EQ(sheet.grid().Text(1, 2), "label") << bad;  // what was written before stays
  }
  Context context;
  context.NDec = "30";
  ResultsSheet sheet(context);
  EXPECT_NO_THROW(sheet.Row(1, Real(3)));
}

TEST(ResultsSheet, TakesDecimalsAtTheMomentOfWriting) {
  Context context;
  ResultsSheet sheet(context);
  sheet.Row(1, Real(1));
  context.NDec = "0";
  sheet.Row(2, Real(1));
  EXPECT_EQ(sheet.grid().Text(1, 1), "1.0000");
  EXPECT_EQ(sheet.grid().Text(1, 2), "1");
}

}  // namespace
}  // namespace quorval
