#include "desktop/file_dialog.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QDirIterator>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QTimer>

#include "desktop/qt_platform.h"
#include "painting/qt_text.h"
#include "support/temporary_folder.h"

namespace quorval {
namespace {

const std::vector<std::string> kExports = {
    "Excel file (*.xls)|*.xls", "Separated values (*.csv *.tsv)|*.csv;*.tsv", "All files (*)|*"};

class FileDialogTest : public testing::Test {
 protected:
  template <class Look>
  static void AtNextDialog(Look look) {
    QTimer::singleShot(
        0, [look] { look(*qobject_cast<QFileDialog*>(QApplication::activeModalWidget())); });
  }
  static void Accept(QFileDialog& dialog) { static_cast<QDialog&>(dialog).accept(); }
  // As the user types it and presses the button.
  static void Enter(QFileDialog& dialog, const QString& name) {
    dialog.findChild<QLineEdit*>("fileNameEdit")->setText(name);
    Accept(dialog);
  }

  test::TemporaryFolder folder;
};

TEST_F(FileDialogTest, WritesTheFormatOfTheChosenFilter) {
  const struct {
    int filter;
    const char* typed;
    const char* written;
  } cases[] = {{0, "a", "a.xls"},     {1, "a", "a.csv"},
               {1, "a.TSV", "a.TSV"}, {1, "Dr. Ames", "Dr. Ames.csv"},
               {0, "2.5", "2.5.xls"}, {0, "a.csv", "a.csv"}};
  for (const auto& [filter, typed, written] : cases) {
    AtNextDialog([=, filter = filter, typed = typed](QFileDialog& dialog) {
      dialog.selectNameFilter(dialog.nameFilters().at(filter));
      Enter(dialog, typed);
    });
    EXPECT_EQ(AskSaveFile(nullptr, {.title = "Open", .filters = kExports, .folder = folder.path()}),
              folder / written);
  }
}

TEST_F(FileDialogTest, ListsTheFilesOfEachPatternWhateverTheirCase) {
  for (const char* name : {"DATA.CSV", "b.tsv", "c.xls"}) test::WriteBytes(folder / name, "1");
  AtNextDialog([](QFileDialog& dialog) {
    dialog.selectNameFilter(dialog.nameFilters().at(1));
    auto& view = *dialog.findChild<QAbstractItemView*>("listView");
    const auto rows = [&] { return view.model()->rowCount(view.rootIndex()); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return rows() == 2; })) << rows();
    dialog.reject();
  });
  EXPECT_EQ(AskOpenFile(nullptr, {.title = "Open", .filters = kExports, .folder = folder.path()}),
            std::nullopt);
}

TEST_F(FileDialogTest, AsksBeforeTheNameThatWillBeWrittenIsReplaced) {
  test::WriteBytes(folder / "a.xls", "old");
  int questions = 0;
  const auto answer = [&](QMessageBox::StandardButton button) {
    QTimer::singleShot(0, [&, button] {
      auto& box = *qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      EXPECT_EQ(box.informativeText(), "a.xls");
      EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
      ++questions;
      box.button(button)->click();
    });
  };
  AtNextDialog([&](QFileDialog& dialog) {
    answer(QMessageBox::No);
    // Back in the dialog, the name is still there.
    QTimer::singleShot(200, [&, at = &dialog] {
      EXPECT_TRUE(at->isVisible());
      answer(QMessageBox::Yes);
      Accept(*at);
    });
    Enter(dialog, "a");
  });
  EXPECT_EQ(AskSaveFile(nullptr, {.title = "Open", .filters = kExports, .folder = folder.path()}),
            folder / "a.xls");
  EXPECT_EQ(questions, 2);
}

TEST_F(FileDialogTest, StartsInTheFolderThatWasUsedLast) {
  const test::TemporaryFolder other;
  test::WriteBytes(other / "a.xls", "1");
  AtNextDialog([&](QFileDialog& dialog) { Enter(dialog, ToQt((other / "a.xls").string())); });
  EXPECT_EQ(AskOpenFile(nullptr, {.title = "Open", .filters = kExports}), other / "a.xls");
  for (const bool accepted : {true, false}) {
    AtNextDialog([&](QFileDialog& dialog) {
      EXPECT_EQ(FromQt(dialog.directory().absolutePath()), other.path().string());
      if (accepted) return Enter(dialog, "new");
      dialog.setDirectory("/");
      dialog.reject();  // a folder that was looked at only
    });
    AskSaveFile(nullptr, {.title = "Open", .filters = kExports});
  }
  AtNextDialog([&](QFileDialog& dialog) {
    EXPECT_EQ(FromQt(dialog.directory().absolutePath()), other.path().string());
    dialog.reject();
  });
  AskOpenFile(nullptr, {.title = "Open", .filters = kExports});
}

// --- What outlives the program

// Run by the test below in a process and a home of its own.
TEST_F(FileDialogTest, DISABLED_UsesDialogsAndSettings) {
  QtPlatform platform(folder.path());
  for (const char* key : {"MainLeft", "MainTop", "MainWidth", "MainHeight"})
    platform.SetSetting(key, 15);
  test::WriteBytes(folder / "a.xls", "1");
  AtNextDialog([&](QFileDialog& dialog) { Enter(dialog, ToQt((folder / "a.xls").string())); });
  EXPECT_TRUE(platform.AskOpen({.title = "Open", .filters = kExports}));
  AtNextDialog([&](QFileDialog& dialog) { Enter(dialog, "b"); });
  EXPECT_TRUE(platform.AskSave({.title = "Open", .filters = kExports}));
}

TEST_F(FileDialogTest, LeaveNothingButTheFourSettings) {
  const test::TemporaryFolder home;
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  const QString path = ToQt(home.path().string());
  environment.insert("HOME", path);
  for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"})
    environment.remove(name);
  process.setProcessEnvironment(environment);
  process.start(QCoreApplication::applicationFilePath(),
                {"--gtest_filter=FileDialogTest.DISABLED_UsesDialogsAndSettings",
                 "--gtest_also_run_disabled_tests"});
  ASSERT_TRUE(process.waitForFinished(60000));
  ASSERT_EQ(process.exitCode(), 0) << process.readAllStandardOutput().toStdString();

  std::vector<std::string> left;
  QDirIterator files(path, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
  while (files.hasNext())
    if (const QString file = files.next().mid(path.size()); !file.startsWith("/.cache/fontconfig"))
      left.push_back(FromQt(file));
  EXPECT_THAT(left, testing::ElementsAre("/.config/Quorval/Quorval.conf"));
  const QSettings settings(path + "/.config/Quorval/Quorval.conf", QSettings::IniFormat);
  EXPECT_EQ(settings.allKeys(), (QStringList{"Settings/MainHeight", "Settings/MainLeft",
                                             "Settings/MainTop", "Settings/MainWidth"}));
}

}  // namespace
}  // namespace quorval
