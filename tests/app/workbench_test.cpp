#include "app/workbench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "analyses/registry.h"
#include "support/scripted_platform.h"
#include "support/temporary_folder.h"

namespace quorval {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class WorkbenchTest : public testing::Test {
 protected:
  OpenAnalysis& OpenOlsOnExample() {
    workbench.ImportExample(*FindExample("XY Regression Single"));
    return workbench.Open(regression::kOls);
  }

  const test::TemporaryFolder folder_;
  const std::filesystem::path folder = folder_.path();
  test::ScriptedPlatform platform;
  Workbench workbench{platform, folder};
};

// --- The project

TEST_F(WorkbenchTest, StartsAsProject1) {
  const Context& context = workbench.project().context();
  EXPECT_EQ(context.ProjectName, "Project 1");
  EXPECT_EQ(context.ProjectFile, folder / "Project 1");
  EXPECT_EQ(context.NDec, "4");
  EXPECT_EQ(workbench.project().title(), "Project 1  Quorval5  Main Menu    ");
}

TEST_F(WorkbenchTest, KeepsThreeFormsOfTheTitle) {
  workbench.ImportExample(*FindExample("XY Regression Single"));
  EXPECT_EQ(workbench.project().title(),
            "Demo XY Regression Project (single)   Quorval5  Main Menu   ");
  workbench.project().Rename("Glucose");
  EXPECT_EQ(workbench.project().title(), "Glucose  Quorval5  Main Window    ");
  workbench.ClearWorksheet();
  EXPECT_EQ(workbench.project().context().ProjectName, "Glucose");
}

TEST_F(WorkbenchTest, AsksBeforeAnExampleReplacesData) {
  EXPECT_TRUE(workbench.ImportExample(*FindExample("XY Regression Single")));
  EXPECT_THAT(platform.boxes, IsEmpty());
  platform.answers = {Answer::kNo};
  EXPECT_FALSE(workbench.ImportExample(*FindExample("XY Regression Duplicate")));
  EXPECT_THAT(
      platform.boxes,
      ElementsAre("Notice that existing project data and results are lost, Still proceed?"));
  EXPECT_EQ(workbench.worksheet().Text(3, 0), "y");
  EXPECT_TRUE(workbench.ImportExample(*FindExample("XY Regression Duplicate")));
  EXPECT_EQ(workbench.worksheet().Text(3, 0), "x2");
  EXPECT_EQ(workbench.worksheet().Text(1, 25), "s25");
  EXPECT_EQ(workbench.worksheet().Text(5, 25), "7.77");
}

// --- From the dialog to the results and back

TEST_F(WorkbenchTest, OpensOneDialogOfAnAnalysis) {
  OpenAnalysis& open = workbench.Open(regression::kOls);
  EXPECT_EQ(&workbench.Open(regression::kOls), &open);
  EXPECT_THAT(workbench.open(), SizeIs(1));
}

TEST_F(WorkbenchTest, ShowsResultsAndPlotsAndHidesTheDialog) {
  OpenAnalysis& open = OpenOlsOnExample();
  EXPECT_EQ(workbench.PressOk(open), Outcome::kDone);
  EXPECT_FALSE(open.dialog_shown);
  ASSERT_TRUE(open.results && open.results->shown);
  EXPECT_EQ(open.results->title,
            "Quorval      Ordinary Least-Squares Regression Analysis    Single (x, y)");
  EXPECT_EQ(open.results->sheet.grid().At(7, 1).look.colour, kGrey);
  EXPECT_THAT(open.results->plots, SizeIs(2));
  EXPECT_FALSE(platform.wait_pointer);
}

TEST_F(WorkbenchTest, GoesBackToTheOptionsAsTheUserLeftThem) {
  OpenAnalysis& open = OpenOlsOnExample();
  open.form.Set("xc1", "5");
  workbench.PressOk(open);
  workbench.BackToOptions(open);
  EXPECT_TRUE(open.dialog_shown);
  EXPECT_FALSE(open.results);
  EXPECT_EQ(open.form.TextOf("xc1"), "5");
  EXPECT_EQ(workbench.PressOk(open), Outcome::kDone);
}

TEST_F(WorkbenchTest, LeavesTogetherAndForgetsTheOptions) {
  OpenAnalysis& open = OpenOlsOnExample();
  open.form.Set("xc1", "5");
  workbench.PressOk(open);
  workbench.Exit(open);
  EXPECT_THAT(workbench.open(), IsEmpty());
  EXPECT_EQ(workbench.Open(regression::kOls).form.TextOf("xc1"), "");
}

TEST_F(WorkbenchTest, KeepsTheDialogOpenOnARefusal) {
  OpenAnalysis& open = OpenOlsOnExample();
  open.form.Set("outlier-limit", "0");
  EXPECT_EQ(workbench.PressOk(open), Outcome::kRefused);
  EXPECT_THAT(platform.boxes, ElementsAre("Negative value for Outlier limit not allowed!"));
  EXPECT_THAT(platform.wait_pointer_at_box, ElementsAre(false));
  EXPECT_TRUE(open.dialog_shown);
  EXPECT_FALSE(open.results);
}

TEST_F(WorkbenchTest, LeavesTheWindowsOfAFailedRunOpenWithoutData) {
  OpenAnalysis& open = workbench.Open(regression::kOls);  // on an empty worksheet
  EXPECT_EQ(workbench.PressOk(open), Outcome::kRefused);
  EXPECT_THAT(platform.boxes, ElementsAre(" n < 3: No regression analysis"));
  EXPECT_THAT(platform.wait_pointer_at_box, ElementsAre(false));
  EXPECT_TRUE(open.results->shown);
  EXPECT_FALSE(open.dialog_shown);
  ASSERT_THAT(open.results->plots, SizeIs(2));
  EXPECT_EQ(open.results->plots[0].caption, "X-Y plot Ord. least-squares reg. analysis");
  EXPECT_EQ(open.results->plots[1].caption, "Standardized residuals plot");
  for (const Plot& plot : open.results->plots) EXPECT_THAT(plot.series, IsEmpty());
}

TEST_F(WorkbenchTest, ClosesTheResultsOfAFailedRunWhereItsAnalysisSaysSo) {
  OpenAnalysis& open = workbench.Open(difference::kDifference);  // on an empty worksheet
  EXPECT_EQ(workbench.PressOk(open), Outcome::kRefused);
  EXPECT_FALSE(open.results->shown);
  EXPECT_TRUE(open.dialog_shown);
  EXPECT_THAT(open.results->plots, IsEmpty());
}

TEST_F(WorkbenchTest, TakesTheDecimalsOfTheMoment) {
  OpenAnalysis& open = OpenOlsOnExample();
  workbench.PressOk(open);
  workbench.project().SetDecimals("2");
  EXPECT_EQ(open.results->sheet.grid().Text(2, 11), "0.9959");
  workbench.BackToOptions(open);
  workbench.PressOk(open);
  EXPECT_EQ(open.results->sheet.grid().Text(2, 11), "1.00");
}

// --- Printing

TEST_F(WorkbenchTest, PrintsTheResultsAsLaidDown) {
  OpenAnalysis& open = OpenOlsOnExample();
  workbench.PressOk(open);
  workbench.PrintResults(open);
  workbench.PrintWorksheet();
  workbench.PrintWorksheetAtOnce();
  ASSERT_THAT(platform.print_jobs, SizeIs(3));
  const PrintJob& job = platform.print_jobs[0];
  EXPECT_EQ(job.header, "/cOrd. Linear regression/rPage #/p/n");
  EXPECT_EQ(job.footer, "/cQuorval/rPage #/p/n");
  EXPECT_TRUE(job.border && job.grid_lines && job.colour);
  EXPECT_EQ(job.margins.top, 1440);
  EXPECT_EQ(job.margins.left, 720);
  EXPECT_EQ(platform.print_jobs[1].header, "/cQuorval - Data/rPage #/p/n");
  EXPECT_EQ(platform.print_jobs[2].header, "");
}

TEST_F(WorkbenchTest, PrintsPlotsThroughTheirBitmaps) {
  OpenAnalysis& open = OpenOlsOnExample();
  workbench.PressOk(open);
  workbench.PrintPlots(open);
  EXPECT_THAT(platform.pictures,
              ElementsAre(folder / " Chart2D1.bmp", folder / " Chart2D1Res.bmp"));
  ASSERT_THAT(platform.print_jobs, SizeIs(1));
  const PrintJob& job = platform.print_jobs[0];
  EXPECT_THAT(job.row_heights, ElementsAre(350, 150));
  EXPECT_THAT(job.column_widths, ElementsAre(100));
  EXPECT_FALSE(job.border || job.grid_lines);
  EXPECT_EQ(job.header + job.footer, "");
  EXPECT_TRUE(std::filesystem::exists(folder / " Chart2D1.bmp"));
}

TEST_F(WorkbenchTest, PrintsAPageForEachJobWhosePlotIsThere) {
  workbench.ImportExample(*FindExample("XY Regression Duplicate"));
  OpenAnalysis& open = workbench.Open(difference::kDifference);
  open.form.Set("mode", "duplicate");
  workbench.PressOk(open);
  workbench.PrintPlots(open);
  EXPECT_THAT(platform.print_jobs, SizeIs(2));

  workbench.BackToOptions(open);
  workbench.worksheet().SetText(2, 1, "0");  // leaves out the relative plot
  EXPECT_EQ(workbench.PressOk(open), Outcome::kDone);
  EXPECT_THAT(open.results->plots, SizeIs(1));
  platform.pictures.clear();
  workbench.PrintPlots(open);
  EXPECT_THAT(platform.pictures, ElementsAre(folder / " Chart2D1.bmp"));
  EXPECT_THAT(platform.print_jobs, SizeIs(3));
}

TEST_F(WorkbenchTest, TellsOfAPrintThatFailed) {
  OpenAnalysis& open = OpenOlsOnExample();
  workbench.PressOk(open);
  platform.works = false;
  workbench.PrintResults(open);
  workbench.PrintPlots(open);
  EXPECT_THAT(platform.boxes, ElementsAre("Error", "Error"));
}

TEST_F(WorkbenchTest, AddsTheResidualPlotBelowTheSheet) {
  OpenAnalysis& open = OpenOlsOnExample();
  workbench.PressOk(open);
  workbench.AddPlotToSheet(open, open.results->plots[1]);
  const Grid& grid = open.results->sheet.grid();  // 29 rows before
  EXPECT_EQ(grid.At(1, 30).look.type, CellType::kPicture);
  EXPECT_GT(grid.At(1, 30).look.span_columns, 1);
  EXPECT_EQ(*grid.At(1, 30).picture, "picture");
  EXPECT_EQ(grid.Text(1, 33), "Finish");
}

// --- Help

TEST_F(WorkbenchTest, TellsOfMissingHelp) {
  workbench.ShowHelp(false);
  workbench.ShowTutorial();
  EXPECT_THAT(platform.boxes, IsEmpty());
  platform.works = false;
  workbench.ShowHelp(true);
  workbench.ShowTutorial();
  EXPECT_THAT(
      platform.boxes,
      ElementsAre("Unable to display Help Contents. There is no Help associated with this project.",
                  "Error in Tutorial"));
}

// --- Every analysis

TEST_F(WorkbenchTest, RunsEveryAnalysisOnNoDataWithoutLosingAnything) {
  for (const MenuEntry& entry : Analyses()) {
    platform.boxes.clear();
    OpenAnalysis& open = workbench.Open(*entry.analysis);
    EXPECT_EQ(workbench.PressOk(open), Outcome::kRefused) << entry.analysis->id;
    EXPECT_FALSE(platform.boxes.empty()) << entry.analysis->id;
    EXPECT_FALSE(platform.wait_pointer);
    workbench.Exit(open);
    EXPECT_THAT(workbench.open(), IsEmpty()) << entry.analysis->id;
  }
}

}  // namespace
}  // namespace quorval
