// The road of an analysis on the desktop: menu, dialog, results, plots, paper and back.
#include <gmock/gmock.h>
#include <qcustomplot.h>

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "analyses/registry.h"
#include "desktop/dialog_view.h"
#include "desktop/plot_view.h"
#include "desktop/results_view.h"
#include "desktop_fixture.h"

namespace quorval {
namespace {

using testing::ElementsAre;

class AnalysisTest : public test::Desktop {
 protected:
  void OpenDialog() {
    Choose(window, "XY Regression Single");
    Choose(window, "&Ord. Least Squares Regression Analysis");
    dialog = Shown<DialogView>("MCstatF1so");
    ASSERT_NE(dialog, nullptr);
  }
  void SetField(const QString& key, const QString& text) {
    auto& editor = In<QLineEdit>(*dialog, key);
    editor.selectAll();
    if (text.isEmpty()) QTest::keyClick(&editor, Qt::Key_Delete);
    QTest::keyClicks(&editor, text);
  }
  void PressOk() {
    In<QPushButton>(*dialog, "ok").click();
    Settle();
    results = Shown<ResultsView>("MCstatF1s");
  }
  void Run() {
    OpenDialog();
    PressOk();
    ASSERT_NE(results, nullptr);
  }

  DialogView* dialog = nullptr;
  ResultsView* results = nullptr;
};

TEST_F(AnalysisTest, ShowsResultsAndPlots) {
  OpenDialog();
  EXPECT_TRUE(dialog->isVisible() && !dialog->isModal());
  SetField("xc1", "10");
  PressOk();
  EXPECT_FALSE(dialog->isVisible());
  ASSERT_NE(results, nullptr);
  EXPECT_TRUE(results->isMaximized());
  EXPECT_EQ(results->windowTitle(),
            "Quorval      Ordinary Least-Squares Regression Analysis    Single (x, y)");
  EXPECT_EQ(CellText(results->sheet(), 1, 11), "  Slope b");
  EXPECT_EQ(CellText(results->sheet(), 2, 11),
            "0.9959");  // Sxy / Sxx of the two columns, computed apart
  EXPECT_EQ(CellText(results->sheet(), 2, 24), "10.0000");
  EXPECT_EQ(results->sheet().model()->headerData(0, Qt::Vertical).toInt(), 1);
  EXPECT_TRUE(results->sheet().model()->index(1, 0).data(Qt::FontRole).value<QFont>().bold());
  for (const char* plot : {"frmXY1s", "frmRes1s"}) EXPECT_NE(Shown(plot), nullptr) << plot;
  EXPECT_FALSE(platform.wait_pointer);
}

TEST_F(AnalysisTest, SpeaksWithTheDecimalCommaOfTheDesktop) {
  QLocale::setDefault(QLocale("de_DE"));
  OpenDialog();
  SetField("xc1", "10,5");
  PressOk();
  ASSERT_NE(results, nullptr);
  EXPECT_EQ(CellText(results->sheet(), 2, 11), "0,9959");
  EXPECT_EQ(CellText(results->sheet(), 2, 24), "10,5000");
}

TEST_F(AnalysisTest, LabelsOfTheResultsFitTheirColumns) {
  Run();
  const SheetView& sheet = results->sheet();
  for (int row = 2; row <= 29; ++row) {
    const QModelIndex cell = sheet.model()->index(row - 1, 0);
    QFont font = sheet.font();
    font.setBold(row == 2);
    EXPECT_LT(QFontMetrics(font).horizontalAdvance(cell.data().toString()), sheet.columnWidth(0));
  }
}

TEST_F(AnalysisTest, RefusesABadValueAndLosesNothing) {
  OpenDialog();
  SetField("outlier-limit", "0");
  PressOk();
  EXPECT_THAT(platform.boxes, ElementsAre("Negative value for Outlier limit not allowed!"));
  EXPECT_EQ(results, nullptr);
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(In<QLineEdit>(*dialog, "outlier-limit").text(), "0");
  EXPECT_EQ(workbench.worksheet().Text(2, 1), "2.521");
}

TEST_F(AnalysisTest, LeavesAnEmptySheetAndEmptyPlotsAfterAFailure) {
  OpenDialog();
  SetField("second-column", "9");
  PressOk();
  EXPECT_THAT(platform.boxes, ElementsAre("Unequal number of observations in columns: No analysis",
                                          "Error occurred"));
  ASSERT_NE(results, nullptr);
  EXPECT_EQ(CellText(results->sheet(), 1, 2), "");
  EXPECT_NE(Shown("frmXY1s"), nullptr);
}

TEST_F(AnalysisTest, GoesBackToTheOptionsAsTheyWere) {
  OpenDialog();
  SetField("xc1", "10");
  PressOk();
  Choose(*results, "&Selection of Ord. L.-S.  Reg. options");
  EXPECT_EQ(Shown("MCstatF1s"), nullptr);
  EXPECT_EQ(Shown("frmXY1s"), nullptr);
  ASSERT_TRUE(dialog->isVisible());
  EXPECT_EQ(In<QLineEdit>(*dialog, "xc1").text(), "10");
  SetField("xc1", "");
  PressOk();
  ASSERT_NE(results, nullptr);
  EXPECT_EQ(CellText(results->sheet(), 1, 24), "");
}

TEST_F(AnalysisTest, ASecondRunFromTheMenuHasNewWindows) {
  Run();
  Choose(window, "XY Regression Duplicate");
  Choose(window, "&Ord. Least Squares Regression Analysis");
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_TRUE(results->isVisible());
  In<QRadioButton>(*dialog, "mode=duplicate").click();
  PressOk();
  ASSERT_NE(results, nullptr);
  EXPECT_THAT(FromQt(results->windowTitle()), testing::HasSubstr("Duplicate"));
}

TEST_F(AnalysisTest, CancelAndARefusalLeaveTheEarlierWindows) {
  Run();
  GoTo(results->sheet(), 2, 4);
  Type(results->sheet(), "Jensen", Qt::Key_Return);
  Choose(window, "&Ord. Least Squares Regression Analysis");
  SetField("xc1", "10");
  QTest::keyClick(dialog, Qt::Key_Escape);
  Settle();
  EXPECT_FALSE(dialog->isVisible());
  Choose(window, "&Ord. Least Squares Regression Analysis");
  EXPECT_EQ(In<QLineEdit>(*dialog, "xc1").text(), "");
  SetField("second-column", "9");
  ResultsView* const earlier = results;
  PressOk();
  EXPECT_EQ(platform.boxes.size(), 2U);
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(results, earlier);
  EXPECT_EQ(CellText(results->sheet(), 2, 4), "Jensen");
  EXPECT_EQ(Shown<PlotView>("frmXY1s")->chart().plottableCount(), 6);
}

TEST_F(AnalysisTest, TwoAnalysesHaveWindowsOfTheirOwn) {
  Run();
  Choose(window, "D&eming Regression Analysis");
  In<QPushButton>(*Shown("MCstatF3so"), "ok").click();
  Settle();
  auto* const deming = Shown<ResultsView>("MCstatF3s");
  ASSERT_NE(deming, nullptr);
  std::vector<QRect> places;
  for (QWidget* widget : QApplication::topLevelWidgets())
    if (qobject_cast<PlotView*>(widget) != nullptr) places.push_back(widget->geometry());
  EXPECT_EQ(places.size(), 4U);
  for (std::size_t i = 0; i < places.size(); ++i)
    EXPECT_EQ(std::ranges::count(places, places[i]), 1) << i;

  const QString caption = "Standardized residuals plot";
  PlotView* residuals = nullptr;
  for (auto* plot : deming->findChildren<PlotView*>("frmRes1s")) residuals = plot;
  ASSERT_NE(residuals, nullptr);
  residuals->AddToSheet();
  residuals->close();
  results->close();
  Settle();
  const int rows = workbench.open().front().results->sheet.grid().DataRowCnt();
  EXPECT_EQ(workbench.open().front().results->sheet.grid().Text(1, rows), "Finish");
  EXPECT_FALSE(residuals->isVisible());
  Choose(*deming, caption);
  EXPECT_TRUE(residuals->isVisible());
  EXPECT_EQ(residuals->windowTitle(), caption);
}

TEST_F(AnalysisTest, ClosingTheResultsEndsTheAnalysis) {
  Run();
  GoTo(results->sheet(), 2, 4);
  Type(results->sheet(), "Jensen");  // the cell is still being edited
  results->close();
  Settle();
  EXPECT_TRUE(workbench.open().empty());
  for (const char* name : {"MCstatF1so", "MCstatF1s", "frmXY1s", "frmRes1s"})
    EXPECT_EQ(Shown(name), nullptr) << name;
  Choose(window, "&Ord. Least Squares Regression Analysis");
  EXPECT_EQ(In<QLineEdit>(*Shown("MCstatF1so"), "xc1").text(), "");
}

TEST_F(AnalysisTest, CancelUnloadsTheDialog) {
  OpenDialog();
  SetField("outlier-limit", "3");
  QTest::keyClick(dialog, Qt::Key_Escape);
  Settle();
  EXPECT_TRUE(workbench.open().empty());
  Choose(window, "&Ord. Least Squares Regression Analysis");
  EXPECT_EQ(In<QLineEdit>(*Shown("MCstatF1so"), "outlier-limit").text(), "4");
}

TEST_F(AnalysisTest, PrintsTheResultsWithWhatTheUserTypedAndThePlots) {
  Run();
  GoTo(results->sheet(), 2, 4);
  Type(results->sheet(), "Jensen", Qt::Key_Return);
  Choose(*results, "&Print Results");
  ASSERT_EQ(platform.print_jobs.size(), 1U);
  EXPECT_EQ(platform.print_jobs[0].header, "/cOrd. Linear regression/rPage #/p/n");
  EXPECT_EQ(workbench.open().front().results->sheet.grid().Text(2, 4), "Jensen");
  std::ifstream pdf(platform.pdf, std::ios::binary);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(pdf), {}).substr(0, 5), "%PDF-");

  Shown("frmXY1s")->hide();
  Choose(*results, "P&rint Plots");
  EXPECT_THAT(platform.pictures,
              ElementsAre(folder / " Chart2D1.bmp", folder / " Chart2D1Res.bmp"));
  EXPECT_NE(Shown("frmXY1s"), nullptr);
}

TEST_F(AnalysisTest, AddsTheResidualPlotToTheSheet) {
  Run();
  Shown<PlotView>("frmRes1s")->AddToSheet();
  Settle();
  SheetView& sheet = results->sheet();
  EXPECT_EQ(CellText(sheet, 1, 33), "Finish");
  EXPECT_EQ(sheet.columnSpan(29, 0), 5);
  EXPECT_GT(sheet.rowHeight(29), 2 * sheet.rowHeight(10));
}

TEST_F(AnalysisTest, ShowsHelpForTheAnalysis) {
  Run();
  QApplication::setActiveWindow(results);
  QTest::keyClick(results, Qt::Key_F1);
  Choose(*results, "&Selection of Ord. L.-S.  Reg. options");
  QApplication::setActiveWindow(dialog);
  platform.works = false;
  QTest::keyClick(dialog, Qt::Key_F1);
  const std::string page = "DOCQUORVAL.hlp/ordinary-least-squares.md";
  EXPECT_THAT(platform.help_pages, ElementsAre(page, page));
  EXPECT_EQ(platform.boxes.size(), 1U);
}

TEST_F(AnalysisTest, RepeatsARunWithoutItsOutliersOnce) {
  Choose(window, "XY Regression Single");
  Choose(window, "D&eming Regression Analysis");
  dialog = Shown<DialogView>("MCstatF3so");
  SetField("outlier-limit", "2");
  In<QPushButton>(*dialog, "ok").click();
  Settle();
  results = Shown<ResultsView>("MCstatF3s");
  auto& button = In<QPushButton>(*results, "outlier-rejection");
  ASSERT_TRUE(button.isVisible());
  button.click();
  EXPECT_THAT(platform.boxes, ElementsAre("Repeat analysis without identified outliers ?"));
  EXPECT_FALSE(button.isVisible());
  EXPECT_EQ(results->sheet().model()->index(1, 0).data().toString(),
            "  Results of Deming Regression Analysis (re-analysis after outlier rejection)");
}

}  // namespace
}  // namespace quorval
