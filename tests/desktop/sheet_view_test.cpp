#include "desktop/sheet_view.h"

#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <QHeaderView>
#include <QSignalSpy>

#include "desktop_fixture.h"

namespace quorval {
namespace {

class SheetViewTest : public test::Desktop {
 protected:
  SheetView& sheet = window.sheet();

  void Select(int column, int row, int last_column, int last_row) {
    const QAbstractItemModel& model = *sheet.model();
    sheet.setCurrentIndex(model.index(row - 1, column - 1));
    sheet.selectionModel()->select(
        {model.index(row - 1, column - 1), model.index(last_row - 1, last_column - 1)},
        QItemSelectionModel::ClearAndSelect);
  }
  std::pair<int, int> Current() const {
    return {sheet.currentIndex().column() + 1, sheet.currentIndex().row() + 1};
  }
  static void PutOnClipboard(const QString& text) { QApplication::clipboard()->setText(text); }
  static QString Clipboard() { return QApplication::clipboard()->text(); }
};

TEST_F(SheetViewTest, CountsRowsFrom0AndColumnsFrom1) {
  const QAbstractItemModel& model = *sheet.model();
  EXPECT_EQ(model.rowCount(), 10000);
  EXPECT_EQ(model.columnCount(), 500);
  EXPECT_EQ(model.headerData(0, Qt::Vertical).toInt(), 0);
  EXPECT_EQ(model.headerData(9999, Qt::Vertical).toInt(), 9999);
  EXPECT_EQ(model.headerData(499, Qt::Horizontal).toInt(), 500);
}

TEST_F(SheetViewTest, TypesIntoCellsAndMovesOnByEnterAndTab) {
  GoTo(sheet, 2, 2);
  Type(sheet, "1.5", Qt::Key_Return);
  EXPECT_EQ(Current(), std::pair(2, 3));
  Type(sheet, "n.d.", Qt::Key_Tab);
  EXPECT_EQ(Current(), std::pair(3, 3));
  Type(sheet, "7", Qt::Key_Down);
  EXPECT_EQ(Current(), std::pair(3, 4));
  Press(sheet, Qt::Key_Return);
  EXPECT_EQ(Current(), std::pair(3, 5));
  EXPECT_EQ(workbench.worksheet().Text(2, 1), "1.5");
  EXPECT_EQ(workbench.worksheet().Text(2, 2), "n.d.");
  EXPECT_EQ(workbench.worksheet().Text(3, 2), "7");
}

TEST_F(SheetViewTest, EscapeKeepsTheOldText) {
  GoTo(sheet, 2, 2);
  Type(sheet, "1", Qt::Key_Return);
  GoTo(sheet, 2, 2);
  Type(sheet, "2", Qt::Key_Escape);
  EXPECT_EQ(workbench.worksheet().Text(2, 1), "1");
}

TEST_F(SheetViewTest, DeletesABlockAndTakesItBack) {
  Choose(window, "XY Regression Single");
  Select(2, 2, 3, 26);
  Press(sheet, Qt::Key_Delete);
  EXPECT_EQ(workbench.worksheet().DataColCnt(), 3);
  EXPECT_EQ(workbench.worksheet().Text(2, 1), "");
  Press(sheet, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(workbench.worksheet().Text(3, 25), "7.653");
  Press(sheet, Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(workbench.worksheet().Text(3, 25), "");
}

TEST_F(SheetViewTest, ExchangesBlocksAsTabSeparatedText) {
  Choose(window, "XY Regression Single");
  Select(1, 1, 3, 3);
  Press(sheet, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Clipboard(), "ID\tx\ty\ns1\t2.521\t2.362\ns2\t3.341\t3.548\n");
  Select(2, 2, 2, 3);
  Choose(window, "Cu&t");
  EXPECT_EQ(Clipboard(), "2.521\n3.341\n");
  EXPECT_EQ(workbench.worksheet().Text(2, 1), "");
  GoTo(sheet, 6, 2);
  Choose(window, "&Paste");
  EXPECT_EQ(workbench.worksheet().Text(6, 2), "3.341");
  EXPECT_EQ(sheet.Selection(), (CellRange{6, 2, 6, 3}));
}

TEST_F(SheetViewTest, CopiesNoMoreThanTheUsedAreaOfWholeColumns) {
  Choose(window, "XY Regression Single");
  QHeaderView& header = *sheet.horizontalHeader();
  QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                    {header.sectionViewportPosition(2) + 20, 5});
  sheet.Copy();
  EXPECT_EQ(Clipboard().count('\n'), 26);
}

TEST_F(SheetViewTest, TellsWhatOfABlockLiesBeyondTheEdge) {
  QSignalSpy told(&sheet, &SheetView::Told);
  PutOnClipboard("1\t2\n3\t4\n");
  GoTo(sheet, 500, 10000);
  Press(sheet, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(workbench.worksheet().Text(500, 9999), "1");
  ASSERT_EQ(told.size(), 1);
  EXPECT_THAT(told[0][0].toString().toStdString(), testing::StartsWith("3 cell"));
}

TEST_F(SheetViewTest, ShowsNumbersRightAndWordsLeft) {
  Choose(window, "XY Regression Single");
  const auto alignment = [&](int column, int row) {
    return sheet.model()->index(row - 1, column - 1).data(Qt::TextAlignmentRole).toInt();
  };
  EXPECT_EQ(alignment(2, 2), Qt::AlignRight | Qt::AlignVCenter);
  EXPECT_EQ(alignment(1, 2), Qt::AlignLeft | Qt::AlignVCenter);
}

// A full sheet holds 5 million cells; a view that touched each of them would need seconds.
TEST_F(SheetViewTest, OpensAndScrollsAFullSheetAtOnce) {
  Grid full(500, 10000);
  for (int column = 1; column <= 500; ++column)
    for (int row = 1; row <= 10000; ++row) full.Edit(column, row).text = "1";
  SheetView view(full, 0, nullptr, QLocale::c());
  view.resize(1000, 700);
  view.show();
  QElapsedTimer timer;
  timer.start();
  for (int row = 0; row < 10000; row += 500) {
    view.scrollTo(view.model()->index(row, row / 20));
    view.repaint();
  }
  EXPECT_LT(timer.elapsed(), 5000);
}

// --- The decimal sign of the desktop

struct Typed {
  const char* locale;
  const char* typed;
  const char* stored;
  const char* shown;
};

class LocaleTest : public test::Desktop, public testing::WithParamInterface<Typed> {};

TEST_P(LocaleTest, TypesPastesAndCopiesByTheLocale) {
  const Typed& sample = GetParam();
  Grid grid(5, 5);
  SheetView view(grid, 1, nullptr, QLocale(sample.locale));
  view.show();
  GoTo(view, 1, 1);
  Type(view, sample.typed, Qt::Key_Return);
  EXPECT_EQ(grid.Text(1, 1), sample.stored);
  EXPECT_EQ(CellText(view, 1, 1), sample.shown);
  QApplication::clipboard()->setText(sample.typed);
  GoTo(view, 2, 2);
  view.Paste();
  EXPECT_EQ(grid.Text(2, 2), sample.stored);
  view.Copy();
  EXPECT_EQ(QApplication::clipboard()->text(), QString(sample.shown) + "\n");
}

INSTANTIATE_TEST_SUITE_P(Desktops, LocaleTest,
                         testing::Values(Typed{"de_DE", "3,5", "3.5", "3,5"},
                                         Typed{"de_DE", "-1,25e-3", "-1.25e-3", "-1,25e-3"},
                                         Typed{"de_DE", "1.234,5", "1.234,5", "1.234,5"},
                                         Typed{"de_DE", "a, b", "a, b", "a, b"},
                                         Typed{"en_US", "3.5", "3.5", "3.5"},
                                         Typed{"en_US", "3,5", "3,5", "3,5"},
                                         Typed{"C", "1,234.5", "1,234.5", "1,234.5"}));

TEST_F(SheetViewTest, EditsANumberCellWithAllItsDigits) {
  Grid grid(3, 3);
  Cell& cell = grid.Edit(1, 1);
  cell.look.type = CellType::kNumber;
  cell.look.decimals = 2;
  cell.value = 1.23456;
  SheetView view(grid, 1, nullptr, QLocale("de_DE"));
  view.show();
  EXPECT_EQ(CellText(view, 1, 1), "1,23");
  GoTo(view, 1, 1);
  Press(view, Qt::Key_F2);
  Press(view, Qt::Key_Return);
  EXPECT_EQ(grid.At(1, 1).value, 1.23456);
  GoTo(view, 1, 1);
  Type(view, "2,5", Qt::Key_Return);
  EXPECT_EQ(grid.At(1, 1).value, 2.5);
  EXPECT_EQ(CellText(view, 1, 1), "2,50");
}

}  // namespace
}  // namespace quorval
