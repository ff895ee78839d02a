#include "app/sheet_editor.h"

#include <gtest/gtest.h>

namespace quorval {
namespace {

class SheetEditorTest : public testing::Test {
 protected:
  Grid grid{5, 10};
  SheetEditor editor{grid};
};

TEST_F(SheetEditorTest, PastesABlockFromTheSelectionsFirstCell) {
  const Pasted pasted = editor.Paste({2, 3, 2, 3}, {{"a", "b"}, {"c", "d"}});
  EXPECT_EQ(pasted.range, (CellRange{2, 3, 3, 4}));
  EXPECT_EQ(pasted.lost, 0);
  EXPECT_EQ(grid.Text(3, 4), "d");
}

TEST_F(SheetEditorTest, PastesUpToTheEdgesAndCountsTheRest) {
  const Pasted pasted = editor.Paste({5, 10, 5, 10}, {{"a", "b", "c"}, {"d"}});
  EXPECT_EQ(grid.Text(5, 10), "a");
  EXPECT_EQ(pasted.range, (CellRange{5, 10, 5, 10}));
  EXPECT_EQ(pasted.lost, 3);
}

TEST_F(SheetEditorTest, FillsTheSelectionWithOneCell) {
  EXPECT_EQ(editor.Paste({1, 1, 2, 3}, {{"7"}}).range, (CellRange{1, 1, 2, 3}));
  EXPECT_EQ(grid.Text(2, 3), "7");
}

TEST_F(SheetEditorTest, AShortRowOfABlockEmptiesWhatItCovers) {
  grid.SetText(2, 2, "old");
  editor.Paste({1, 1, 1, 1}, {{"1", "2"}, {"3"}});
  EXPECT_EQ(grid.Text(2, 2), "");
}

TEST_F(SheetEditorTest, ClearsTextsAndPicturesButNotLooks) {
  grid.SetText(1, 1, "title");
  grid.Edit(1, 1).look.colour = kGrey;
  grid.Edit(1, 2).picture = std::make_shared<const std::string>("png");
  editor.Clear({1, 1, 5, 10});
  EXPECT_EQ(grid.DataRowCnt(), 0);
  EXPECT_EQ(grid.At(1, 1).look.colour, kGrey);
}

TEST_F(SheetEditorTest, StepsGoBackAndAgain) {
  editor.Type(1, 1, "1");
  editor.Paste({1, 1, 1, 1}, {{"2", "3"}});
  editor.Clear({1, 1, 1, 1});
  const auto row = [&] { return grid.Text(1, 1) + "|" + grid.Text(2, 1); };
  EXPECT_EQ(row(), "|3");
  editor.Undo();
  EXPECT_EQ(row(), "2|3");
  EXPECT_EQ(editor.Undo(), (CellRange{1, 1, 2, 1}));
  EXPECT_EQ(row(), "1|");
  editor.Redo();
  EXPECT_EQ(row(), "2|3");
  editor.Type(2, 1, "4");
  EXPECT_FALSE(editor.Redo());
  editor.Undo();
  EXPECT_EQ(row(), "2|3");
  editor.Forget();
  EXPECT_FALSE(editor.Undo());
}

TEST_F(SheetEditorTest, LimitsARangeToTheUsedArea) {
  EXPECT_EQ(editor.Used({2, 2, 5, 10}), (CellRange{2, 2, 2, 2}));
  grid.SetText(4, 6, "x");
  EXPECT_EQ(editor.Used({2, 2, 5, 10}), (CellRange{2, 2, 4, 6}));
}

}  // namespace
}  // namespace quorval
