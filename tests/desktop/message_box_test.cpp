#include "desktop/message_box.h"

#include <gmock/gmock.h>

#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <regex>

#include "app/shared_folder.h"
#include "desktop/help_window.h"
#include "desktop/qt_platform.h"
#include "painting/qt_text.h"
#include "support/temporary_folder.h"

namespace quorval {
namespace {

constexpr const char* kLoss =
    "Notice that existing project data and results are lost, Still proceed?";

// On the manual that comes with the program.
class MessageBoxTest : public testing::Test {
 protected:
  template <class Look>
  Answer Show(const MessageBox& box, Look look) {
    QTimer::singleShot(0, [&] {
      const QPointer window = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      EXPECT_TRUE(QTest::qWaitForWindowActive(window));
      look(*window);
      if (window && window->isVisible()) window->reject();  // of a test that has failed
    });
    return platform.Show(box);
  }
  static HelpWindow* Help() {
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (auto* const help = qobject_cast<HelpWindow*>(widget); help && help->isVisible())
        return help;
    return nullptr;
  }
  static QString Selected() {
    return Help()->findChild<QTextBrowser*>()->textCursor().selectedText();
  }

  QtPlatform platform{SharedFolder()};
};

TEST_F(MessageBoxTest, HelpShowsTheEntryAndLeavesTheBoxAsItWas) {
  const auto by_button = [](QMessageBox& box) { box.button(QMessageBox::Help)->click(); };
  const auto by_key = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_F1); };
  const std::function<void(QMessageBox&)> ways[] = {by_button, by_key};
  for (const auto& ask : ways)
    Show({.text = " n < 3: No regression analysis"}, [&](QMessageBox& box) {
      EXPECT_EQ(Help(), nullptr);
      ask(box);
      ASSERT_NE(Help(), nullptr);
      EXPECT_TRUE(box.isVisible());
      EXPECT_EQ(Selected(), "\"n < 3: No regression analysis\"");
      EXPECT_EQ(Help()->parentWidget(), &box);  // else the box would block it
      Help()->hide();
    });
}

TEST_F(MessageBoxTest, TheHelpThatIsReadOutlivesTheBox) {
  Show({.text = "File is an Excel file.", .title = "File Type"}, [&](QMessageBox& box) {
    box.button(QMessageBox::Help)->click();
    box.button(QMessageBox::Ok)->click();
  });
  ASSERT_NE(Help(), nullptr);
  EXPECT_EQ(Help()->parentWidget(), nullptr);
}

TEST_F(MessageBoxTest, KeysAnswerAsIfThereWereNoHelp) {
  const struct {
    MessageBox box;
    Qt::Key key;
    Answer answer;
  } cases[] = {
      {{.text = kLoss, .buttons = Buttons::kYesNo, .critical = true}, Qt::Key_Return, Answer::kNo},
      {{.text = kLoss, .buttons = Buttons::kYesNo, .critical = true}, Qt::Key_Escape, Answer::kNo},
      {{.text = "Repeat analysis without identified outliers ?", .buttons = Buttons::kYesNo},
       Qt::Key_Return,
       Answer::kYes},
      {{.text = "Error"}, Qt::Key_Return, Answer::kOk},
      {{.text = "Error"}, Qt::Key_Escape, Answer::kOk},
  };
  for (const auto& [asked, key, answer] : cases) {
    const auto press = [&, key = key](QMessageBox& box) {
      EXPECT_NE(box.button(QMessageBox::Help), nullptr);
      QTest::keyClick(&box, key);
    };
    EXPECT_EQ(Show(asked, press), answer) << asked.text;
  }
}

TEST_F(MessageBoxTest, HasNoHelpWhereTheManualTellsNothing) {
  const auto look = [](QMessageBox& box) {
    EXPECT_EQ(box.button(QMessageBox::Help), nullptr);
    QTest::keyClick(&box, Qt::Key_F1);
    EXPECT_EQ(Help(), nullptr);
    QTest::keyClick(&box, Qt::Key_Escape);
  };
  Show({.text = "A text of nobody's"}, look);
  Show({.text = ""}, look);
  const test::TemporaryFolder none;
  QtPlatform without(none.path());
  QTimer::singleShot(0,
                     [&] { look(*qobject_cast<QMessageBox*>(QApplication::activeModalWidget())); });
  without.Show({.text = "Error"});
}

// The page as it is rendered has every text that the manual quotes in its first columns.
TEST_F(MessageBoxTest, EveryMessageOfTheManualIsFoundOnItsPage) {
  const std::string page = test::BytesOf(SharedFolder() / "DOCQUORVAL.hlp" / kMessagesPage);
  HelpWindow help(SharedFolder() / "DOCQUORVAL.hlp");
  int found = 0;
  const std::regex row("\n\\| (\"[^|]*)"), quoted("\"([^\"]+)\"");
  for (std::sregex_iterator line(page.begin(), page.end(), row), end; line != end; ++line) {
    const std::string cell = (*line)[1];
    for (std::sregex_iterator text(cell.begin(), cell.end(), quoted); text != end; ++text) {
      const std::string message = (*text)[1];
      EXPECT_TRUE(help.manual().TellsMessage(" " + message + "  ")) << message;
      help.ShowMessageEntry(message);
      EXPECT_EQ(help.findChild<QTextBrowser*>()->textCursor().selectedText().simplified(),
                ("\"" + ToQt(message) + "\"").simplified());
      ++found;
    }
  }
  EXPECT_GT(found, 100);
}

}  // namespace
}  // namespace quorval
