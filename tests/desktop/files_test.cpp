#include <gmock/gmock.h>

#include <QDialog>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QUrl>
#include <fstream>

#include "analyses/registry.h"
#include "desktop/note_view.h"
#include "desktop/results_view.h"
#include "desktop_fixture.h"

namespace quorval {
namespace {

using testing::ElementsAre;

class FilesTest : public test::Desktop {
 protected:
  SheetView& sheet() { return window.sheet(); }
  void Drop(const std::filesystem::path& path) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(ToQt(path.string()))});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&window, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&window, &drop);
    Settle();
  }
};

TEST_F(FilesTest, SavesOpensAndStartsAnew) {
  EXPECT_FALSE(Entry(window, "&Save Project")->isEnabled());
  Choose(window, "Precision profile example");
  platform.paths = {folder / "a.qvl", folder / "a.qvl"};
  Choose(window, "Save &As Project");
  EXPECT_TRUE(Entry(window, "&Save Project")->isEnabled());
  GoTo(sheet(), 9, 9);
  Type(sheet(), "typed");  // and not yet entered
  Choose(window, "&Save Project");
  Choose(window, "&New Project");
  EXPECT_FALSE(Entry(window, "&Save Project")->isEnabled());
  EXPECT_EQ(CellText(sheet(), 2, 1), "");
  EXPECT_EQ(window.windowTitle(), "Project 1   Quorval5  Main Menu    ");
  Choose(window, "&Open Project");
  EXPECT_EQ(CellText(sheet(), 9, 9), "typed");
  EXPECT_EQ(In<QLineEdit>(window, "project-name").text(), "Demo Precision Profile");
}

TEST_F(FilesTest, OpensADroppedProject) {
  Choose(window, "Precision profile example");
  platform.paths = {folder / "a.qvl"};
  Choose(window, "Save &As Project");
  Choose(window, "Clear &Worksheet");
  Drop(folder / "a.qvl");
  EXPECT_EQ(CellText(sheet(), 2, 1), "Level 1");
}

TEST_F(FilesTest, ImportsADroppedSpreadsheet) {
  std::ofstream(folder / "DATA.CSV") << "Title of a column that is wide\n1\n";
  Choose(window, "Precision profile example");
  Drop(folder / "DATA.CSV");
  EXPECT_THAT(platform.boxes,
              ElementsAre(testing::StartsWith("Notice that existing"), "File is an Excel file.",
                          "Got sheet list.", "Import complete."));
  EXPECT_EQ(CellText(sheet(), 1, 2), "1");
  EXPECT_NE(workbench.project().context().ProjectFile, folder / "DATA.CSV");
  EXPECT_GT(sheet().columnWidth(0), sheet().columnWidth(1));
}

TEST_F(FilesTest, TakesAReplacedProjectBackByUndo) {
  Choose(window, "XY Regression Single");
  for (const char* command : {"Clear &Worksheet", "Detection Limit Example", "&New Project"}) {
    Choose(window, command);
    EXPECT_NE(CellText(sheet(), 2, 1), "x") << command;
    Press(sheet(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(CellText(sheet(), 2, 1), "x") << command;
    EXPECT_EQ(CellText(sheet(), 3, 26), "7.653") << command;
    EXPECT_EQ(In<QLineEdit>(window, "project-name").text(), "Demo XY Regression Project (single)");
    EXPECT_EQ(window.windowTitle(), "Demo XY Regression Project (single)   Quorval5  Main Menu   ");
  }
}

TEST_F(FilesTest, ClosesTheNoteWithItsProject) {
  for (const char* command :
       {"&New Project", "&Open Project", "Excel file", "Control Chart Example"}) {
    Choose(window, "XY Regression Single");
    Choose(window, "Notepage");
    platform.answers = {Answer::kNo};
    Choose(window, command);
    EXPECT_NE(Shown("frmNote"), nullptr) << command;
    Choose(window, command);
    EXPECT_EQ(Shown("frmNote"), nullptr) << command;
  }
}

TEST_F(FilesTest, ShowsTheLabelsOfAResultsFileWhole) {
  Choose(window, "XY Regression Single");
  OpenAnalysis& open = workbench.Open(regression::kOls);
  workbench.PressOk(open);
  platform.paths = {folder / "r.qvl", folder / "r.qvl"};
  workbench.SaveResults(open);
  Choose(window, "&Open Project");
  const QFontMetrics metrics(sheet().font());
  const Grid& grid = workbench.worksheet().grid();
  int labels = 0;
  for (int row = 1; row <= grid.DataRowCnt(); ++row) {
    if (grid.Text(1, row).empty() || grid.Text(2, row).empty()) continue;
    EXPECT_LT(metrics.horizontalAdvance(CellText(sheet(), 1, row)), sheet().columnWidth(0));
    ++labels;
  }
  EXPECT_GT(labels, 5);
  Choose(window, "&New Project");
  EXPECT_EQ(sheet().columnWidth(0), sheet().columnWidth(400));
}

TEST_F(FilesTest, ExportsAndImports) {
  Choose(window, "Polynomial regression");
  platform.paths = {folder / "a.xls", folder / "a.xls"};
  Choose(window, "Export Excel file");
  Choose(window, "Excel file");
  EXPECT_EQ(CellText(sheet(), 3, 9), "0.738");
  EXPECT_EQ(platform.boxes.back(), "Import complete.");
}

TEST_F(FilesTest, SavesAndExportsResults) {
  Choose(window, "XY Regression Single");
  Choose(window, "&Ord. Least Squares Regression Analysis");
  Shown<QDialog>("MCstatF1so")->accept();
  Settle();
  auto* const results = Shown<ResultsView>("MCstatF1s");
  ASSERT_NE(results, nullptr);
  platform.paths = {folder / "r.qvl", folder / "r.xls"};
  Choose(*results, "&Save as");
  Choose(*results, "&Export");
  EXPECT_THAT(platform.boxes, ElementsAre("Export complete."));
  EXPECT_TRUE(std::filesystem::exists(folder / "r.qvl"));
  EXPECT_TRUE(std::filesystem::exists(folder / "r.xls"));
}

TEST_F(FilesTest, KeepsANoteOnlyBySaveAndExit) {
  const auto open = [&]() -> NoteView& {
    Choose(window, "Notepage");
    return *Shown<NoteView>("frmNote");
  };
  const auto text = [](NoteView& note) { return &In<QPlainTextEdit>(note, "note"); };
  NoteView* note = &open();
  EXPECT_EQ(note->windowTitle(), "Note Page ");
  text(*note)->setPlainText("dropped");
  note->close();
  Settle();
  note = &open();
  EXPECT_EQ(text(*note)->toPlainText(), "");
  text(*note)->setPlainText("two\nlines");
  Choose(*note, "&Print Note Page");
  ASSERT_EQ(platform.print_jobs.size(), 1u);
  EXPECT_EQ(platform.print_jobs[0].texts.back().text, "two\nlines");
  EXPECT_EQ(platform.print_jobs[0].texts.back().top, 10);
  Choose(*note, "Save and &Exit");
  EXPECT_EQ(workbench.project().context().ProjectNote, "two\nlines");
  EXPECT_EQ(Shown<NoteView>("frmNote"), nullptr);
}

}  // namespace
}  // namespace quorval
