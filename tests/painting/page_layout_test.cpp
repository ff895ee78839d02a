#include "painting/page_layout.h"

#include <gmock/gmock.h>

#include "core/worksheet.h"

namespace quorval {
namespace {

using testing::Each;
using testing::ElementsAre;

// Paper of 500 by 300 points; a character is 5 wide and a line 10 high.
PageRoom Room() {
  return {.width = 500,
          .height = 300,
          .row_height = 10,
          .character_width = 5,
          .text_width = [](const Cell& cell) { return 5.0 * double(cell.Text().size()); }};
}

TEST(Break, PutsSizesUponPages) {
  const std::vector<bool> free(5);
  const std::vector<double> sizes{40, 40, 40, 150, 20};
  EXPECT_THAT(Break(sizes, free, 100),
              ElementsAre(Extent{1, 2}, Extent{3, 3}, Extent{4, 4}, Extent{5, 5}));
  EXPECT_THAT(Break(sizes, {false, false, true, false, false}, 100),
              ElementsAre(Extent{1, 1}, Extent{2, 3}, Extent{4, 4}, Extent{5, 5}));
  // A group that no page can hold breaks where it must.
  EXPECT_THAT(Break(std::vector<double>{40, 40, 40, 40}, {false, true, true, true}, 100),
              ElementsAre(Extent{1, 2}, Extent{3, 4}));
  EXPECT_THAT(Break({}, {}, 100), ElementsAre());
  EXPECT_THAT(Break(std::vector<double>(10, 0.1), std::vector<bool>(10), 1),
              ElementsAre(Extent{1, 10}));
}

TEST(PageLayout, ColumnsAreAsWideAsTheirTexts) {
  Grid grid(10, 10);
  grid.SetText(1, 1, "a label of 22 letters.");
  grid.SetText(3, 2, "12345678901234567890.12345678901234567890123456789012345");
  const PageLayout layout = LayOutPages({.grid = &grid}, Room());
  EXPECT_THAT(layout.column_widths, ElementsAre(110, 40, 56 * 5));  // 8 characters where empty
  EXPECT_THAT(layout.row_heights, ElementsAre(10, 10));
  EXPECT_EQ(layout.Pages(), 1);
}

TEST(PageLayout, LongTextsRunOverEmptyCells) {
  Grid grid(10, 10);
  grid.SetText(1, 1, std::string(30, 't'));
  grid.Edit(1, 1).look.overflow = true;
  grid.SetText(1, 2, "short");
  grid.SetText(4, 2, "last");
  const PageLayout enough = LayOutPages({.grid = &grid}, Room());
  EXPECT_THAT(enough.column_widths, Each(40));
  EXPECT_EQ(LastColumnCovered(grid, enough, 1, 1, 150, 4), 4);
  EXPECT_EQ(LastColumnCovered(grid, enough, 1, 1, 70, 4), 2);
  EXPECT_EQ(LastColumnCovered(grid, enough, 1, 2, 25, 4), 1);

  grid.SetText(3, 1, "in the way");
  EXPECT_EQ(LastColumnCovered(grid, enough, 1, 1, 150, 4), 2);

  // What runs to the end of the sheet and lacks room is given it there.
  Grid narrow(10, 10);
  narrow.SetText(1, 1, std::string(60, 't'));
  narrow.SetText(2, 2, "x");
  EXPECT_THAT(LayOutPages({.grid = &narrow}, Room()).column_widths, ElementsAre(40, 260));
}

TEST(PageLayout, WideAndLongSheetsGoOnBelowAndBeside) {
  Worksheet sheet;
  for (int column = 1; column <= 20; ++column)
    for (int row = 0; row <= 9999; ++row) sheet.SetValue(column, row, row);
  const PageLayout layout = LayOutPages({.grid = &sheet.grid()}, Room());
  EXPECT_THAT(layout.columns, ElementsAre(Extent{1, 12}, Extent{13, 20}));  // 500 / 40
  EXPECT_EQ(layout.rows.size(), 334U);                                      // 10000 / 30
  EXPECT_EQ(layout.rows.back(), (Extent{9991, 10000}));
  EXPECT_EQ(layout.Pages(), 668);
}

TEST(PageLayout, PicturesHaveTheHeightsToldAndNeverExceedThePage) {
  Grid grid(1, 20);
  for (int row : {1, 2}) grid.Edit(1, row).picture = std::make_shared<const std::string>("p");
  grid.SetText(1, 3, ".");
  PrintJob job{.grid = &grid, .row_heights = {350, 150}, .column_widths = {200}};
  const PageLayout layout = LayOutPages(job, Room());
  EXPECT_THAT(layout.row_heights, ElementsAre(300, 150, 10));
  EXPECT_THAT(layout.column_widths, ElementsAre(500));
  EXPECT_THAT(layout.rows, ElementsAre(Extent{1, 1}, Extent{2, 3}));
}

TEST(PageLayout, JoinedCellsStayOnOnePage) {
  Grid grid(5, 100);
  for (int row = 1; row <= 20; ++row) grid.SetText(1, row, "text");
  Cell& picture = grid.Edit(1, 21);
  picture.picture = std::make_shared<const std::string>("p");
  picture.look.span_rows = 3;
  picture.look.span_columns = 5;
  grid.SetText(1, 24, "Finish");
  const PageLayout layout = LayOutPages({.grid = &grid}, Room());
  EXPECT_THAT(layout.rows, ElementsAre(Extent{1, 20}, Extent{21, 24}));
  EXPECT_NEAR(layout.Height({21, 23}), 240, 1e-9);
}

TEST(PageLayout, AnEmptySheetIsOnePage) {
  const Grid grid(5, 5);
  EXPECT_EQ(LayOutPages({.grid = &grid}, Room()).Pages(), 1);
}

}  // namespace
}  // namespace quorval
