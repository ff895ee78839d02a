// What no box tells stands on the screen: in the strip of the results window, or in the dialog that
// stays where there is none.
#include <gmock/gmock.h>

#include <QPushButton>
#include <QStatusBar>

#include "desktop/dialog_view.h"
#include "desktop/notice_strip.h"
#include "desktop/results_view.h"
#include "desktop_fixture.h"
#include "support/notice_cases.h"

namespace quorval {
namespace {

class NoticesOnScreen : public test::Desktop, public testing::WithParamInterface<test::NoticeCase> {
 protected:
  // Runs as a user would, and as the logic alone does: boxes and notices are the same.
  void ExpectShown(const Worksheet& sheet, const test::Settings& settings) {
    const Analysis& analysis = *FindAnalysis(GetParam().analysis);
    const test::Transcript told = test::RunOn(sheet, analysis, settings);
    workbench.worksheet() = sheet;
    platform.boxes.clear();
    Desk desk(workbench, window);
    desk.Open(analysis);
    auto* const dialog = Shown<DialogView>(ToQt(analysis.dialog->window));
    ASSERT_NE(dialog, nullptr);
    for (const auto& [key, text] : settings) workbench.open().back().form.Set(key, text);
    dialog->Refresh();
    In<QPushButton>(*dialog, "ok").click();
    Settle();
    EXPECT_EQ(platform.boxes, told.boxes);
    const OpenAnalysis& open = workbench.open().back();
    QWidget* shown = dialog;
    if (open.ShowsResults()) shown = Shown<ResultsView>(ToQt(open.results->procedure->window));
    ASSERT_NE(shown, nullptr);
    QStringList lines;
    for (const Notice& notice : told.notices) lines << ToQt(notice.text);
    const auto& strip = In<NoticeStrip>(*shown, "notices");
    EXPECT_EQ(strip.toPlainText(), lines.join("\n"));
    EXPECT_EQ(strip.isVisible(), !lines.isEmpty());
    EXPECT_EQ(platform.notices.back(), told.notices);
    desk.CloseAll();
    Settle();
  }
};

TEST_P(NoticesOnScreen, OfEveryFault) {
  const test::NoticeCase& one = GetParam();
  for (const Worksheet& sheet : {test::SoundWorksheet(), test::WithGaps(one),
                                 test::WithWord(one.columns.front()), test::WithShorterColumn(one)})
    ExpectShown(sheet, one.settings);
  ExpectShown(test::SoundWorksheet(), test::WithBlank(one));
}

INSTANTIATE_TEST_SUITE_P(, NoticesOnScreen, testing::ValuesIn(test::NoticeCases()));

class StatusBarTest : public test::Desktop {};

TEST_F(StatusBarTest, ShowsTheNoticesOfTheLastCommand) {
  window.ShowNotices({{.kind = "gap", .text = "first"}, {.kind = "word", .text = "second"}});
  EXPECT_EQ(window.statusBar()->currentMessage(), "first;  second");
  window.ShowNotices({});
  EXPECT_EQ(window.statusBar()->currentMessage(), "");
}

}  // namespace
}  // namespace quorval
