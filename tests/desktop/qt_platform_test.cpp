#include "desktop/qt_platform.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTimer>
#include <QTreeWidget>
#include <fstream>

#include "desktop/help_window.h"

namespace quorval {
namespace {

class QtPlatformTest : public testing::Test {
 protected:
  QtPlatformTest() {
    QCoreApplication::setOrganizationName("Quorval");
    QCoreApplication::setApplicationName("Quorval");
    qputenv("XDG_CONFIG_HOME", directory.path().toUtf8());
  }

  // Answers the next message box by a key or a button once it is shown.
  template <class Look>
  void AtNextBox(Look look) {
    QTimer::singleShot(
        0, [look] { look(*qobject_cast<QMessageBox*>(QApplication::activeModalWidget())); });
  }
  void WriteManual() const {
    std::filesystem::create_directories(folder / "DOCQUORVAL.hlp");
    const auto write = [&](const char* file, const char* text) {
      std::ofstream(folder / file) << text;
    };
    write("DOCQUORVAL.hlp/contents.md", "# Manual\n- [The sheet](sheet.md)\n- [OLS](ols.md)\n");
    write("DOCQUORVAL.hlp/sheet.md", "# Sheet\n\nColumns and rows.\n");
    write("DOCQUORVAL.hlp/ols.md", "# OLS\n\nThe slope.\n");
    write("Tutorial.hlp", "# First run\n");
  }
  static HelpWindow* Help() {
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (auto* const help = qobject_cast<HelpWindow*>(widget); help && help->isVisible())
        return help;
    return nullptr;
  }
  static std::string PageText() {
    return Help()->findChild<QTextBrowser*>()->toPlainText().toStdString();
  }

  QTemporaryDir directory;
  std::filesystem::path folder = directory.path().toStdString();
  QtPlatform platform{folder};
};

TEST_F(QtPlatformTest, ShowsABoxAsPlainTextWithoutATitle) {
  AtNextBox([](QMessageBox& box) {
    EXPECT_EQ(box.text(), " n < 3: No regression analysis");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
    box.button(QMessageBox::Ok)->click();
  });
  EXPECT_EQ(platform.Show({.text = " n < 3: No regression analysis"}), Answer::kOk);
}

TEST_F(QtPlatformTest, AsksACriticalQuestion) {
  const MessageBox question{.text = "Still proceed?", .buttons = Buttons::kYesNo, .critical = true};
  AtNextBox([](QMessageBox& box) {
    EXPECT_EQ(box.icon(), QMessageBox::Critical);
    box.button(QMessageBox::Yes)->click();
  });
  EXPECT_EQ(platform.Show(question), Answer::kYes);
  AtNextBox([](QMessageBox& box) { box.reject(); });
  EXPECT_EQ(platform.Show(question), Answer::kNo);
}

TEST_F(QtPlatformTest, AsksForAFileWithABoxToTick) {
  bool chosen = false;
  const FileQuestion question{.title = "Open",
                              .filters = {"Excel file (*.xls)|*.xls"},
                              .folder = folder,
                              .proposed_name = "a.csv",
                              .option = "&Safe",
                              .option_chosen = &chosen};
  for (const bool accepted : {false, true}) {
    QTimer::singleShot(0, [&] {
      auto& dialog = *qobject_cast<QDialog*>(QApplication::activeModalWidget());
      auto& box = *dialog.findChild<QCheckBox*>();
      EXPECT_EQ(box.text(), "&Safe");
      EXPECT_TRUE(box.isVisible());
      EXPECT_FALSE(box.isChecked());
      box.click();
      accepted ? dialog.accept() : dialog.reject();
    });
    EXPECT_EQ(platform.AskSave(question).has_value(), accepted);
    EXPECT_EQ(chosen, accepted);
  }
}

TEST_F(QtPlatformTest, TakesTheWaitPointerBackOnce) {
  platform.ShowWaitPointer(true);
  platform.ShowWaitPointer(true);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  platform.ShowWaitPointer(false);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  platform.ShowWaitPointer(false);
}

TEST_F(QtPlatformTest, KeepsSettings) {
  EXPECT_EQ(platform.Setting("MainLeft"), std::nullopt);
  platform.SetSetting("MainLeft", -60);
  EXPECT_EQ(QtPlatform(folder).Setting("MainLeft"), -60);
  const QSettings file(directory.filePath("Quorval/Quorval.conf"), QSettings::IniFormat);
  EXPECT_EQ(file.value("Settings/MainLeft").toInt(), -60);
  EXPECT_EQ(QDir(directory.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
            QStringList{"Quorval"});
}

TEST_F(QtPlatformTest, HasNoHelpWithoutItsFiles) {
  EXPECT_FALSE(platform.OpenHelp("DOCQUORVAL.hlp", false));
  EXPECT_FALSE(platform.OpenHelp("Tutorial.hlp", false));
  EXPECT_EQ(Help(), nullptr);
}

TEST_F(QtPlatformTest, OpensTheManualAtItsContentsAPageAndTheTutorial) {
  WriteManual();
  ASSERT_TRUE(platform.OpenHelp("DOCQUORVAL.hlp", false));
  EXPECT_NE(PageText().find("Manual"), std::string::npos);
  EXPECT_EQ(Help()->findChild<QTreeWidget*>()->topLevelItemCount(), 2);
  ASSERT_TRUE(platform.OpenHelp("DOCQUORVAL.hlp/ols.md", false));
  EXPECT_NE(PageText().find("The slope."), std::string::npos);
  ASSERT_TRUE(platform.OpenHelp("Tutorial.hlp", false));
  EXPECT_NE(PageText().find("First run"), std::string::npos);
  EXPECT_FALSE(platform.OpenHelp("DOCQUORVAL.hlp/none.md", false));
}

TEST_F(QtPlatformTest, SearchesTheManual) {
  WriteManual();
  ASSERT_TRUE(platform.OpenHelp("DOCQUORVAL.hlp", true));
  Help()->findChild<QLineEdit*>()->setText("slope");
  auto& hits = *Help()->findChild<QListWidget*>();
  ASSERT_EQ(hits.count(), 1);
  emit hits.itemClicked(hits.item(0));
  EXPECT_NE(PageText().find("The slope."), std::string::npos);
}

}  // namespace
}  // namespace quorval
