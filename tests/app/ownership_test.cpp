// Several analyses open, runs repeated, refused and cancelled: every results window prints, adds
// and closes its own and nothing else.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "analyses/registry.h"
#include "app/workbench.h"
#include "support/example_runs.h"
#include "support/scripted_platform.h"
#include "support/temporary_folder.h"

namespace quorval {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

std::string TextOf(const Plot& plot) {
  std::ostringstream text;
  text << plot.window << ": " << plot.caption << '\n';
  if (const auto& view = plot.view)
    text << "view " << view->x_min << ' ' << view->x_max << ' ' << view->y_min << '\n';
  for (const Series& series : plot.series) {
    for (const Point& point : series.points) text << Raw(point.x) << ',' << Raw(point.y) << ' ';
    text << '\n';
  }
  return text.str();
}

// A machine whose pictures are the plots' numbers, and whose paper can be read.
struct PaperPlatform : test::ScriptedPlatform {
  std::vector<std::string> pages;

  bool WritePicture(const Plot& plot, const std::filesystem::path& path) override {
    std::ofstream(path) << TextOf(plot);
    return works;
  }
  bool Print(std::span<const PrintJob> jobs) override {
    for (const PrintJob& job : jobs) {
      std::string& page = pages.emplace_back(job.header + '\n');
      const Grid& grid = *job.grid;
      for (int row = 1; row <= grid.DataRowCnt(); ++row)
        for (int column = 1; column <= grid.DataColCnt(); ++column) {
          const Cell& cell = grid.At(column, row);
          page += cell.Text() + (cell.picture ? *cell.picture : std::string()) + '\t';
        }
    }
    return works;
  }
};

class OwnershipTest : public testing::Test {
 protected:
  OpenAnalysis& Open(const test::ExampleRun& run) {
    workbench.ImportExample(*FindExample(run.example));
    OpenAnalysis& open = workbench.Open(*FindAnalysis(run.analysis));
    for (const auto& [key, value] : run.settings) open.form.Set(key, value);
    return open;
  }
  OpenAnalysis& Run(const test::ExampleRun& run) {
    OpenAnalysis& open = Open(run);
    EXPECT_EQ(workbench.PressOk(open), Outcome::kDone) << run.analysis;
    return open;
  }
  // All that the results window prints.
  std::vector<std::string> Printed(OpenAnalysis& open) {
    platform.pages.clear();
    workbench.PrintResults(open);
    std::set<std::string_view> entries;
    for (const PlotJob& job : open.results->procedure->plot_jobs) entries.insert(job.entry);
    for (std::string_view entry : entries) workbench.PrintPlots(open, entry);
    return std::exchange(platform.pages, {});
  }

  test::TemporaryFolder folder;
  PaperPlatform platform;
  Workbench workbench{platform, folder.path()};
};

const test::ExampleRun kOls{"ols", "XY Regression Single"};
const test::ExampleRun kDeming{"deming", "XY Regression Single"};

TEST_F(OwnershipTest, EveryPairPrintsWhatEachPrintsAlone) {
  std::vector<test::ExampleRun> runs;
  std::vector<std::vector<std::string>> alone;
  for (const test::ExampleRun& run : test::ExampleRuns()) {
    if (!runs.empty() && runs.back().analysis == run.analysis) continue;
    OpenAnalysis& open = Run(run);
    runs.push_back(run);
    alone.push_back(Printed(open));
    workbench.Exit(open);
  }
  ASSERT_EQ(runs.size(), Analyses().size());
  for (std::size_t a = 0; a < runs.size(); ++a)
    for (std::size_t b = 0; b < runs.size(); ++b) {
      if (a == b) continue;
      SCOPED_TRACE(runs[a].analysis + ", " + runs[b].analysis);
      OpenAnalysis& first = Run(runs[a]);
      OpenAnalysis& second = Run(runs[b]);
      EXPECT_EQ(Printed(first), alone[a]);
      EXPECT_EQ(Printed(second), alone[b]);
      workbench.Exit(first);
      EXPECT_EQ(Printed(second), alone[b]);
      workbench.Exit(second);
    }
}

TEST_F(OwnershipTest, ARunRepeatedFromTheMenuPrintsNothingOfTheEarlierOne) {
  const struct {
    test::ExampleRun first, second;
  } cases[] = {
      {{"reference", "Reference Interval Example", {{"procedure", "log"}}},
       {"reference", "Reference Interval Example"}},
      {{"difference", "XY Regression Duplicate", {{"mode", "duplicate"}, {"scale", "percent"}}},
       {"difference", "XY Regression Single"}},
      {{"detection-limit", "Detection Limit Example", {{"dl-column", "2"}, {"loq-column", "3"}}},
       {"detection-limit", "Detection Limit Example", {{"dl-column", "2"}, {"loq", "off"}}}},
  };
  for (const auto& [first, second] : cases) {
    OpenAnalysis& fresh = Run(second);
    const std::vector<std::string> alone = Printed(fresh);
    workbench.Exit(fresh);
    Run(first);
    OpenAnalysis& repeated = Run(second);
    EXPECT_EQ(Printed(repeated), alone) << first.analysis;
    workbench.Exit(repeated);
  }
}

TEST_F(OwnershipTest, APlotGoesIntoTheSheetOfItsOwnAnalysis) {
  OpenAnalysis& ols = Run(kOls);
  OpenAnalysis& deming = Run(kDeming);
  const int ols_rows = ols.results->sheet.grid().DataRowCnt();
  const int rows = deming.results->sheet.grid().DataRowCnt();
  Plot& plot = *deming.results->FindPlot("frmRes1s");
  plot.view = View{-1, 7, -2, 2};
  workbench.AddPlotToSheet(deming, plot);
  EXPECT_EQ(ols.results->sheet.grid().DataRowCnt(), ols_rows);
  EXPECT_THAT(*deming.results->sheet.grid().At(1, rows + 1).picture, HasSubstr("view -1 7 -2"));
  workbench.Exit(ols);
  EXPECT_THAT(Printed(deming).back(), HasSubstr("XY-plot Deming regression analysis"));
}

TEST_F(OwnershipTest, PrintsThePlotAsTheUserLeftIt) {
  OpenAnalysis& ols = Run(kOls);
  Plot& plot = *ols.results->FindPlot("frmXY1s");
  EXPECT_THAT(Printed(ols).back(), Not(HasSubstr("view")));
  plot.view = View{0, 30, 5, 6};
  plot.RedrawLines(0, 30);
  EXPECT_THAT(Printed(ols).back(), HasSubstr("view 0 30 5"));
  EXPECT_THAT(Printed(ols).back(), HasSubstr("0,0 30,30"));
}

// --- A result lives until its user ends it

TEST_F(OwnershipTest, CancelOfADialogThatWasOpenedAgainLeavesTheResults) {
  for (const test::ExampleRun& run : test::ExampleRuns()) {
    SCOPED_TRACE(run.analysis);
    OpenAnalysis& open = Run(run);
    open.results->sheet.grid().SetText(2, 4, "Jensen");
    const std::vector<std::string> before = Printed(open);
    const Form options = open.form;
    EXPECT_EQ(&workbench.Open(*open.analysis), &open);
    EXPECT_TRUE(open.dialog_shown);
    // The dialogs behind buttons keep what was accepted.
    for (const Field& field : open.form.dialog().fields)
      if (field.Holds()) {
        EXPECT_EQ(open.form.Text(field), std::string(field.initial)) << field.key;
      }
    open.form.Set(open.form.fields().front()->key, "77");
    workbench.Cancel(open);
    EXPECT_FALSE(open.dialog_shown);
    EXPECT_EQ(Printed(open), before);
    for (const Field* field : open.form.fields())
      EXPECT_EQ(open.form.Text(*field), options.Text(*field)) << field->key;
    workbench.BackToOptions(open);
    for (const auto& [key, value] : run.settings) EXPECT_EQ(open.form.TextOf(key), value);
    workbench.Cancel(open);
    EXPECT_THAT(workbench.open(), IsEmpty());
  }
}

TEST_F(OwnershipTest, ARefusedRunLeavesTheEarlierResultsUnlessItsWindowCloses) {
  for (const test::ExampleRun& run : test::ExampleRuns()) {
    SCOPED_TRACE(run.analysis);
    OpenAnalysis& open = Run(run);
    const std::vector<std::string> before = Printed(open);
    const bool closes = open.results->procedure->failure.aftermath == Aftermath::kWindowCloses;
    workbench.ClearWorksheet();
    workbench.Open(*open.analysis);
    for (const auto& [key, value] : run.settings) open.form.Set(key, value);
    EXPECT_EQ(workbench.PressOk(open), Outcome::kRefused);
    EXPECT_TRUE(open.dialog_shown);
    EXPECT_EQ(open.ShowsResults(), !closes);
    if (!closes) {
      EXPECT_EQ(Printed(open), before);
    }
    workbench.Exit(open);
  }
}

TEST_F(OwnershipTest, TheDialogBehindAButtonKeepsWhatWasAccepted) {
  OpenAnalysis& open = Run({"reference", "Reference Interval Example"});
  workbench.Open(*open.analysis);
  open.form.Set("replications", "300");
  open.form.Set("column", "9");
  workbench.Cancel(open);
  workbench.Open(*open.analysis);
  EXPECT_EQ(open.form.TextOf("replications"), "300");
  EXPECT_EQ(open.form.TextOf("column"), "2");
}

TEST_F(OwnershipTest, AShownDialogKeepsWhatIsTyped) {
  OpenAnalysis& open = Open(kOls);
  open.form.Set("xc1", "5");
  workbench.Open(*open.analysis);
  EXPECT_EQ(open.form.TextOf("xc1"), "5");
}

}  // namespace
}  // namespace quorval
