#include "desktop/main_window.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <QToolBar>

#include "analyses/registry.h"
#include "desktop/start_window.h"
#include "desktop_fixture.h"

namespace quorval {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

class MainWindowTest : public test::Desktop {
 protected:
  std::vector<std::string> Captions(const QList<QAction*>& actions) {
    std::vector<std::string> captions;
    for (const QAction* action : actions) captions.push_back(FromQt(action->text()));
    return captions;
  }
  QMenu& Menu(qsizetype index) { return *window.menuBar()->actions().at(index)->menu(); }
};

TEST_F(MainWindowTest, ShowsTheMenusInTheirOrder) {
  EXPECT_THAT(Captions(window.menuBar()->actions()),
              ElementsAre("&File", "&Edit", "&View", "&Data", "&Statistics", "&Help"));
  EXPECT_THAT(Captions(Menu(0).actions()),
              ElementsAre("&New Project", "&Open Project", "&Save Project", "Save &As Project", "",
                          "&Import File", "Import &Demo Data", "&Export File", "", "&Print...",
                          "No&tepage", "", "E&xit"));
  EXPECT_EQ(Entry(window, "XY Regression Duplicate")->isEnabled(), true);
  EXPECT_FALSE(Entry(window, "&Save Project")->isEnabled());
}

TEST_F(MainWindowTest, GreysTheAnalysesThatLeadNowhere) {
  const auto entries = StatisticsMenu();
  const QList<QAction*> actions = Menu(4).actions();
  ASSERT_EQ(static_cast<std::size_t>(actions.size()), entries.size());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const QAction* const action = actions.at(static_cast<qsizetype>(i));
    EXPECT_EQ(FromQt(Unmarked(action->text())), FromQt(Unmarked(ToQt(entries[i].caption))));
    EXPECT_EQ(action->isEnabled(), entries[i].analysis != nullptr || !entries[i].chooser.empty());
  }
}

TEST_F(MainWindowTest, TogglesTheBars) {
  auto& toolbar = In<QToolBar>(window, "toolbar");
  Choose(window, "&Toolbar");
  EXPECT_FALSE(toolbar.isVisible());
  EXPECT_FALSE(Entry(window, "&Toolbar")->isChecked());
  Choose(window, "&Toolbar");
  EXPECT_TRUE(toolbar.isVisible());
  Choose(window, "Status &Bar");
  EXPECT_FALSE(window.statusBar()->isVisible());
}

TEST_F(MainWindowTest, HasAToolbarOfSevenButtonsWithIcons) {
  const QList<QAction*> buttons = In<QToolBar>(window, "toolbar").actions();
  EXPECT_THAT(Captions(buttons),
              ElementsAre("New", "Open", "Save", "Print", "Cut", "Copy", "Paste"));
  for (const QAction* button : buttons)
    EXPECT_FALSE(button->icon().pixmap(24).isNull()) << FromQt(button->text());
}

TEST_F(MainWindowTest, RenamesTheProjectByItsField) {
  auto& name = In<QLineEdit>(window, "project-name");
  name.selectAll();
  QTest::keyClicks(&name, "Glucose");
  EXPECT_EQ(window.windowTitle(), "Glucose  Quorval5  Main Window    ");
  EXPECT_EQ(workbench.project().context().ProjectName, "Glucose");
  Choose(window, "XY Regression Single");
  EXPECT_EQ(name.text(), "Demo XY Regression Project (single)");
  EXPECT_EQ(window.windowTitle(), "Demo XY Regression Project (single)   Quorval5  Main Menu   ");
}

TEST_F(MainWindowTest, TakesAnyDecimals) {
  QTest::keyClicks(&In<QLineEdit>(window, "decimals"), "x");
  EXPECT_EQ(workbench.project().context().NDec, "4x");
}

TEST_F(MainWindowTest, ClearsTheWorksheetWithoutAQuestion) {
  Choose(window, "XY Regression Single");
  Choose(window, "Clear &Worksheet");
  EXPECT_THAT(platform.boxes, IsEmpty());
  EXPECT_EQ(CellText(window.sheet(), 2, 2), "");
  EXPECT_TRUE(window.sheet().model()->index(0, 0).data(Qt::BackgroundRole).isValid());
  EXPECT_EQ(workbench.project().context().ProjectName, "Demo XY Regression Project (single)");
}

TEST_F(MainWindowTest, PrintsWithAHeaderFromTheMenuAndWithoutFromTheToolbar) {
  Choose(window, "XY Regression Single");
  Choose(window, "&Print...");
  for (QAction* button : In<QToolBar>(window, "toolbar").actions())
    if (button->text() == "Print") button->trigger();
  ASSERT_EQ(platform.print_jobs.size(), 2U);
  EXPECT_EQ(platform.print_jobs[0].header, "/cQuorval - Data/rPage #/p/n");
  EXPECT_EQ(platform.print_jobs[1].header, "");
  EXPECT_GT(std::filesystem::file_size(platform.pdf), 1000U);
}

TEST_F(MainWindowTest, StoresItsPlaceInTwips) {
  window.setGeometry(40, 60, 1200, 600);
  window.close();
  EXPECT_THAT(platform.settings,
              UnorderedElementsAre(Pair("MainLeft", 600), Pair("MainTop", 900),
                                   Pair("MainWidth", 18000), Pair("MainHeight", 9000)));
}

TEST_F(MainWindowTest, KeepsTheStoredPlaceWhenClosedMinimised) {
  window.showMinimized();
  window.close();
  EXPECT_THAT(platform.settings, IsEmpty());
}

TEST_F(MainWindowTest, IsPlacedAsStoredAndByTheDefaultsElse) {
  platform.settings = {{"MainLeft", 300}, {"MainWidth", 18000}};
  window.PlaceAsStored();
  EXPECT_EQ(window.geometry(), QRect(20, 66, 1200, 433));
}

TEST_F(MainWindowTest, StartsMaximisedBehindTheStartWindow) {
  window.Start();
  EXPECT_TRUE(window.isMaximized());
  ASSERT_NE(Shown("start"), nullptr);
  EXPECT_TRUE(QTest::qWaitFor([] { return Shown("start") == nullptr; }, 10000));
}

TEST_F(MainWindowTest, ClosesAllOtherWindows) {
  Choose(window, "&Ord. Least Squares Regression Analysis");
  Choose(window, "&About ");
  ASSERT_NE(Shown("MCstatF1so"), nullptr);
  ASSERT_NE(Shown("about"), nullptr);
  Choose(window, "E&xit");
  EXPECT_EQ(Shown("MCstatF1so"), nullptr);
  EXPECT_EQ(Shown("about"), nullptr);
  EXPECT_FALSE(window.isVisible());
  EXPECT_TRUE(workbench.open().empty());
}

TEST_F(MainWindowTest, OpensTheVerificationReportFromTheAboutBox) {
  Choose(window, "&About ");
  for (QPushButton* button : Shown("about")->findChildren<QPushButton*>())
    if (button->text() == "&Verification report") button->click();
  Settle();
  EXPECT_EQ(Shown("about"), nullptr);
  QWidget* const report = Shown("verification");
  ASSERT_NE(report, nullptr);
  const QAbstractItemModel& sheet = *report->findChild<QTableView*>()->model();
  EXPECT_TRUE(sheet.index(1, 0).data().toString().startsWith("All "));
  EXPECT_EQ(sheet.index(6, 3).data().toString(), "slope");
  EXPECT_EQ(sheet.index(6, 9).data().toString(), "pass");
  EXPECT_TRUE(QTest::qWaitForWindowExposed(report));
  report->close();
}

TEST_F(MainWindowTest, TellsWhereThereIsNoHelp) {
  platform.works = false;
  Choose(window, "&Contents");
  Choose(window, "&Tutorial");
  EXPECT_THAT(
      platform.boxes,
      ElementsAre("Unable to display Help Contents. There is no Help associated with this project.",
                  "Error in Tutorial"));
}

TEST_F(MainWindowTest, SortsTheWorksheetByItsTool) {
  Choose(window, "XY Regression Single");
  Choose(window, "&Sort");
  auto* const dialog = Shown(ToQt(kSortTool.dialog->window));
  ASSERT_NE(dialog, nullptr);
  Choose(window, "&Sort");  // the one that is open comes forward
  for (QLineEdit* editor : dialog->findChildren<QLineEdit*>()) {
    if (!editor->isVisible()) continue;
    editor->selectAll();
    QTest::keyClicks(editor, "3");
    break;
  }
  In<QPushButton>(*dialog, "ok").click();
  Settle();
  EXPECT_EQ(Shown(ToQt(kSortTool.dialog->window)), nullptr);
  EXPECT_EQ(CellText(window.sheet(), 3, 2), "2.362");
  EXPECT_EQ(CellText(window.sheet(), 3, 26), "23.983");
}

TEST_F(MainWindowTest, OpensTheChooserOfMethodEvaluation) {
  Choose(window, "&Method Evaluation");
  QWidget* const chooser = Shown("frmMethodEval");
  ASSERT_NE(chooser, nullptr);
  const auto buttons = chooser->findChildren<QPushButton*>();
  ASSERT_EQ(buttons.size(), 6);
  buttons.last()->click();
  EXPECT_EQ(Shown("frmMethodEval"), nullptr);
}

}  // namespace
}  // namespace quorval
