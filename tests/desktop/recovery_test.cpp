// Work that was not saved: what the end of the program keeps and its next start offers.
#include <gmock/gmock.h>

#include <QLabel>
#include <QPushButton>
#include <QStatusBar>

#include "app/recovery.h"
#include "desktop/start_window.h"
#include "desktop_fixture.h"

namespace quorval {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class RecoveryTest : public test::Desktop {
 protected:
  // What an earlier run of the program left.
  void LeaveWork(std::string_view text) {
    Workbench earlier(platform, folder);
    earlier.worksheet().SetText(7, 3, text);
    earlier.project().Rename("Earlier");
    ASSERT_TRUE(earlier.files().KeepUnsaved());
  }
  StartWindow& StartOffering() {
    window.Start();
    auto* const start = Shown<StartWindow>("start");
    if (start == nullptr) throw std::runtime_error("no start window");
    return *start;
  }
  static void Click(const QWidget& in, const QString& name) {
    In<QPushButton>(in, name).click();
    Settle();
  }
};

TEST_F(RecoveryTest, ExitKeepsWhatIsBeingTypedAndTheNextStartBringsItBack) {
  GoTo(window.sheet(), 3, 4);
  Type(window.sheet(), "12.5");  // and not yet entered
  Choose(window, "E&xit");
  EXPECT_FALSE(window.isVisible());
  EXPECT_THAT(platform.boxes, IsEmpty());
  ASSERT_THAT(RecoveryCopies(folder), SizeIs(1));

  Workbench next(platform, folder);
  MainWindow next_window(next, platform);
  next_window.Start();
  auto& start = *Shown<StartWindow>("start");
  QTest::qWait(3000);  // longer than a start window without an offer is shown
  ASSERT_TRUE(start.isVisible());
  Click(start, "recover");
  EXPECT_EQ(Shown("start"), nullptr);
  EXPECT_EQ(CellText(next_window.sheet(), 3, 4), "12.5");
  EXPECT_FALSE(Entry(next_window, "&Save Project")->isEnabled());
  EXPECT_THAT(RecoveryCopies(folder), IsEmpty());
  next.ClearWorksheet();
  next_window.close();
}

TEST_F(RecoveryTest, OffersEachCopyAndDiscardsOnlyByASecondPress) {
  LeaveWork("one");
  LeaveWork("two");
  StartWindow& start = StartOffering();
  EXPECT_THAT(start.findChildren<QLabel*>(), SizeIs(2));
  for (const QPushButton* button : start.findChildren<QPushButton*>())
    EXPECT_TRUE(start.rect().contains(QRect(button->mapTo(&start, QPoint()), button->size())));
  Click(start, "discard");
  EXPECT_THAT(RecoveryCopies(folder), SizeIs(2));
  Click(start, "discard-for-good");
  EXPECT_THAT(RecoveryCopies(folder), SizeIs(1));
  EXPECT_TRUE(start.isVisible());
  EXPECT_THAT(platform.boxes, IsEmpty());
}

TEST_F(RecoveryTest, APutOffOfferComesAgain) {
  LeaveWork("work");
  QTest::keyClick(&StartOffering(), Qt::Key_Escape);
  Settle();
  QTest::mouseClick(&StartOffering(), Qt::LeftButton, {}, {5, 5});
  Settle();
  EXPECT_EQ(Shown("start"), nullptr);
  EXPECT_THAT(RecoveryCopies(folder), SizeIs(1));
}

TEST_F(RecoveryTest, AsksBeforeARecoveryReplacesData) {
  LeaveWork("work");
  Choose(window, "XY Regression Single");
  StartWindow& start = StartOffering();
  platform.answers = {Answer::kNo};
  Click(start, "recover");
  EXPECT_EQ(CellText(window.sheet(), 2, 1), "x");
  EXPECT_TRUE(start.isVisible());
  EXPECT_THAT(RecoveryCopies(folder), SizeIs(1));
  Click(start, "recover");
  EXPECT_EQ(CellText(window.sheet(), 7, 4), "work");
  EXPECT_EQ(window.windowTitle(), "Earlier  Quorval5  Main Window    ");
}

TEST_F(RecoveryTest, ACopyThatIsDamagedStaysAndLosesNothing) {
  LeaveWork("work");
  const auto copy = RecoveryCopies(folder).front();
  std::filesystem::resize_file(copy, 5000);
  Choose(window, "XY Regression Single");
  Click(StartOffering(), "recover");
  EXPECT_EQ(CellText(window.sheet(), 2, 1), "x");
  EXPECT_TRUE(std::filesystem::exists(copy));
  ASSERT_FALSE(platform.notices.back().empty());
  EXPECT_EQ(platform.notices.back().front().kind, "not-opened");
}

// Without a place for a copy the window stays once, so that the work can be saved.
TEST_F(RecoveryTest, ClosesOnlyTheSecondTimeWhereNothingCanBeKept) {
  GoTo(window.sheet(), 3, 4);
  Type(window.sheet(), "1", Qt::Key_Return);
  std::filesystem::remove_all(folder);
  std::ofstream(folder) << "no folder";
  window.close();
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(platform.notices.back().front().kind, "not-kept");
  window.close();
  EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace quorval
