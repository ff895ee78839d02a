// Opening, running, printing and closing, over and over: under the sanitizers, what is not given
// back shows.  QUORVAL_CYCLES says how often.
#include <QPushButton>
#include <cstdlib>
#include <vector>

#include "analyses/registry.h"
#include "desktop/dialog_view.h"
#include "desktop/results_view.h"
#include "desktop_fixture.h"

namespace quorval {
namespace {

using EnduranceTest = test::Desktop;

constexpr const char* kAnalyses[] = {"ols", "passing-bablok", "difference", "reference",
                                     "precision"};

TEST_F(EnduranceTest, RunsAndClosesOverAndOver) {
  const char* const wanted = std::getenv("QUORVAL_CYCLES");
  const int cycles = wanted != nullptr ? std::atoi(wanted) : 10;
  for (int cycle = 0; cycle < cycles; ++cycle) {
    Choose(window, "XY Regression Single");
    const Analysis& analysis = *FindAnalysis(kAnalyses[static_cast<std::size_t>(cycle) % 5]);
    Desk desk(workbench, window);
    desk.Open(analysis);
    In<QPushButton>(*Shown<DialogView>(ToQt(analysis.dialog->window)), "ok").click();
    Settle();
    ASSERT_EQ(workbench.open().size(), 1u);
    ASSERT_TRUE(workbench.open().front().results.has_value());
    const QString name = ToQt(workbench.open().front().results->procedure->window);
    auto* const results = Shown<ResultsView>(name);
    ASSERT_NE(results, nullptr);
    workbench.PrintResults(workbench.open().front());
    workbench.PrintPlots(workbench.open().front());
    if (cycle % 2 == 0)
      results->close();
    else
      desk.CloseAll();
    Settle();
    ASSERT_TRUE(workbench.open().empty());
    platform.print_jobs.clear();
    platform.boxes.clear();
  }
}

// --- Closing any window in any state

struct ClosingTest : test::Desktop {
  // What a user has open: a dialog, one behind its button, results with plots, a cell being typed.
  void OpenDialog() {
    Choose(window, "XY Regression Single");
    Choose(window, "&Difference Plot (Bland-Altman)");
  }
  void OpenNestedDialog() {
    OpenDialog();
    In<QPushButton>(*Shown<DialogView>("frmBAOpt"), "frmBASupplOpt").click();
    Settle();
  }
  void OpenResults() {
    OpenDialog();
    In<QPushButton>(*Shown<DialogView>("frmBAOpt"), "ok").click();
    Settle();
  }
  void TypeIntoResults() {
    OpenResults();
    auto& sheet = Shown<ResultsView>("frmBAs")->sheet();
    GoTo(sheet, 2, 3);
    Type(sheet, "half a na");
    Type(window.sheet(), "12");
  }

  std::vector<QWidget*> Others() const {
    std::vector<QWidget*> others;
    for (QWidget* one : QApplication::topLevelWidgets())
      if (one->isVisible() && one != &window) others.push_back(one);
    return others;
  }
};

TEST_F(ClosingTest, IsSafe) {
  using State = void (ClosingTest::*)();
  const State states[] = {&ClosingTest::OpenDialog, &ClosingTest::OpenNestedDialog,
                          &ClosingTest::OpenResults, &ClosingTest::TypeIntoResults};
  std::size_t closed = 0;
  for (const State state : states)
    for (std::size_t first = 0;; ++first) {
      (this->*state)();
      std::vector<QWidget*> windows = Others();
      if (first < windows.size()) windows[first]->close();
      Settle();
      const bool last = first >= windows.size();
      closed += last ? 0 : 1;
      while (!(windows = Others()).empty()) {
        windows.back()->close();
        Settle();
      }
      EXPECT_TRUE(workbench.open().empty());
      EXPECT_EQ(workbench.worksheet().Text(2, 1), "2.521");
      if (last) break;
    }
  EXPECT_GE(closed, 8u);
  OpenResults();  // and the main window over all others
  window.close();
  Settle();
  EXPECT_TRUE(Others().empty());
}

}  // namespace
}  // namespace quorval
