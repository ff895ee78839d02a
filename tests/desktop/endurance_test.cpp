// Opening, running, printing and closing, over and over: under the sanitizers, what is not given
// back shows.  QUORVAL_CYCLES says how often.
#include <QPushButton>
#include <cstdlib>

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

}  // namespace
}  // namespace quorval
