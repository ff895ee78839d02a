#include <gmock/gmock.h>

#include <QDialog>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QUrl>

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
