#include "desktop/plot_view.h"

#include <gmock/gmock.h>
#include <qcustomplot.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "analyses/registry.h"
#include "painting/chart.h"
#include "painting/picture.h"
#include "support/scripted_platform.h"

namespace quorval {
namespace {

// Least squares on the example set has been run; its two plots are filled.
class PlotViewTest : public testing::Test {
 protected:
  PlotViewTest() : workbench_(platform_, directory_.path().toStdString()) {
    workbench_.ImportExample(*FindExample("XY Regression Single"));
    workbench_.PressOk(open_);
  }

  Plot& PlotOf(std::string_view window) { return *open_.results->FindPlot(window); }
  void Show(PlotView& view) {
    view.resize(620, 500);
    view.show();
  }

  QTemporaryDir directory_;
  test::ScriptedPlatform platform_;
  Workbench workbench_;
  OpenAnalysis& open_ = workbench_.Open(*FindAnalysis("ols"));
};

TEST_F(PlotViewTest, ShowsThePlotUnderItsCaption) {
  PlotView view(workbench_, open_, "frmXY1s");
  Show(view);
  EXPECT_EQ(view.windowTitle(), QString("X-Y plot Ord. least-squares reg. analysis"));
  EXPECT_EQ(view.chart().plottableCount(), 6);
  EXPECT_TRUE(view.findChild<QPushButton*>("Redraw lines")->isVisible());
  PlotView residuals(workbench_, open_, "frmRes1s");
  Show(residuals);
  EXPECT_EQ(residuals.chart().plottableCount(), 1);
  EXPECT_FALSE(residuals.findChild<QPushButton*>("Redraw lines")->isVisible());
}

// 700 twips are 46 2/3 pixels, 1360 are 90 2/3.
TEST_F(PlotViewTest, ChartLeavesTheWindowItsMargins) {
  PlotView view(workbench_, open_, "frmXY1s");
  Show(view);
  EXPECT_EQ(view.chart().size(), QSize(620 - 47, 500 - 91));
  view.resize(46, 400);
  EXPECT_TRUE(view.chart().isHidden());
  view.resize(300, 90);
  EXPECT_TRUE(view.chart().isHidden());
  view.Copy();
  view.resize(620, 500);
  EXPECT_TRUE(view.chart().isVisible());
}

TEST_F(PlotViewTest, CopiesOnePictureHoweverOften) {
  PlotView view(workbench_, open_, "frmXY1s");
  Show(view);
  for (int press = 0; press < 2; ++press) {
    QTest::mouseClick(view.findChild<QPushButton*>("Copy"), Qt::LeftButton);
    EXPECT_EQ(QGuiApplication::clipboard()->image().size(), 3 * view.chart().size());
  }
}

TEST_F(PlotViewTest, SavesWhatIsShown) {
  PlotView view(workbench_, open_, "frmXY1s");
  Show(view);
  for (const char* name : {" a.png", "a.svg", "a.pdf"}) {
    EXPECT_TRUE(view.SavePicture(directory_.filePath(name).toStdString()));
    EXPECT_GT(QFileInfo(directory_.filePath(name)).size(), 1000) << name;
  }
  EXPECT_EQ(QImage(directory_.filePath(" a.png")).size(), 3 * view.chart().size());
  EXPECT_FALSE(view.SavePicture(directory_.filePath("none/a.png").toStdString()));
}

TEST_F(PlotViewTest, RedrawsTheTwoLinesBetweenTheEndsOfTheAxis) {
  PlotView view(workbench_, open_, "frmXY1s");
  Show(view);
  const RedrawnLines lines = *PlotOf("frmXY1s").lines;
  EXPECT_NEAR(view.locale().toDouble(view.findChild<QLineEdit*>("Slope")->text()), Raw(lines.b),
              1e-12);
  const Points bands = PlotOf("frmXY1s").series[4].points;
  view.chart().xAxis->setRange(-10, 50);
  QTest::mouseClick(view.findChild<QPushButton*>("Redraw lines"), Qt::LeftButton);
  EXPECT_EQ(view.chart().xAxis->range(), QCPRange(-10, 50));
  const auto* fitted = view.chart().plottable(2)->interface1D();
  const auto* identity = view.chart().plottable(3)->interface1D();
  EXPECT_EQ(fitted->dataMainKey(0), -10);
  EXPECT_EQ(fitted->dataMainKey(1), 50);
  EXPECT_NEAR(fitted->dataMainValue(1), Raw(lines.a0) + 50 * Raw(lines.b), 1e-9);
  EXPECT_EQ(identity->dataMainValue(0), -10);
  EXPECT_EQ(identity->dataMainValue(1), 50);
  EXPECT_EQ(PlotOf("frmXY1s").series[4].points, bands);
}

TEST_F(PlotViewTest, ZoomsByWheelAndFrameMovesWithShiftAndGoesBack) {
  PlotView view(workbench_, open_, "frmXY1s");
  Show(view);
  QCustomPlot& chart = view.chart();
  chart.replot();
  const QCPRange whole = chart.xAxis->range();
  const QPoint centre = chart.axisRect()->center(), other = centre + QPoint(80, 60);
  const auto drag = [&](Qt::KeyboardModifiers keys) {
    QTest::mousePress(&chart, Qt::LeftButton, keys, centre);
    QMouseEvent move(QEvent::MouseMove, other, chart.mapToGlobal(other), Qt::NoButton,
                     Qt::LeftButton, keys);
    QCoreApplication::sendEvent(&chart, &move);
    QTest::mouseRelease(&chart, Qt::LeftButton, keys, other);
  };
  drag(Qt::NoModifier);
  EXPECT_LT(chart.xAxis->range().size(), whole.size() / 2);
  view.Refresh();  // an unchanged plot keeps the view
  EXPECT_LT(chart.xAxis->range().size(), whole.size() / 2);
  QTest::mouseDClick(&chart, Qt::LeftButton, {}, centre);
  EXPECT_EQ(chart.xAxis->range(), whole);

  drag(Qt::ShiftModifier);
  EXPECT_NEAR(chart.xAxis->range().size(), whole.size(), 1e-9);
  EXPECT_LT(chart.xAxis->range().lower, whole.lower);
  QTest::mouseClick(view.findChild<QPushButton*>("Reset view"), Qt::LeftButton);
  EXPECT_EQ(chart.xAxis->range(), whole);

  QWheelEvent wheel(centre, chart.mapToGlobal(centre), {}, {0, 120}, Qt::NoButton, {},
                    Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&chart, &wheel);
  EXPECT_LT(chart.xAxis->range().size(), whole.size());
}

TEST_F(PlotViewTest, OnlyTheResidualPlotIsAddedToTheSheet) {
  const auto entry = [](PlotView& view) {
    for (QAction* action : view.chart().actions())
      if (action->text() == "Add to results sheet") return action;
    return static_cast<QAction*>(nullptr);
  };
  PlotView xy(workbench_, open_, "frmXY1s");
  EXPECT_EQ(entry(xy), nullptr);
  PlotView residuals(workbench_, open_, "frmRes1s");
  ASSERT_NE(entry(residuals), nullptr);
  const QSignalSpy added(&residuals, &PlotView::AddedToSheet);
  const Grid& sheet = open_.results->sheet.grid();
  const int rows = sheet.DataRowCnt();
  entry(residuals)->trigger();
  EXPECT_EQ(added.count(), 1);
  EXPECT_TRUE(sheet.At(1, rows + 1).picture);
  EXPECT_EQ(sheet.Text(1, rows + 4), "Finish");
}

TEST_F(PlotViewTest, FollowsARunThatFillsItAnew) {
  PlotView view(workbench_, open_, "frmXY1s");
  Plot filled{.window = "frmXY1s", .caption = "another"};
  filled.AddPoints({{1, 1}});
  PlotOf("frmXY1s") = filled;
  view.Refresh();
  EXPECT_EQ(view.chart().plottableCount(), 1);
  EXPECT_EQ(view.windowTitle(), QString("another"));
  open_.results->plots.clear();
  view.Refresh();  // its window closes next
  view.RedrawLines();
  view.ResetView();
  view.chart().xAxis->setRange(0, 1);
}

// What the user sees is what paper and the sheet get: the same points at the same places.
TEST_F(PlotViewTest, GivesTheChartAsTheUserSeesIt) {
  PlotView view(workbench_, open_, "frmXY1s");
  Show(view);
  view.chart().xAxis->setRange(-10, 50);
  view.chart().yAxis->setRange(5, 6);
  QTest::mouseClick(view.findChild<QPushButton*>("Redraw lines"), Qt::LeftButton);
  const auto printed = [&] {
    QCustomPlot paper;
    DrawPlot(PlotOf("frmXY1s"), paper);
    return std::pair(paper.xAxis->range(), paper.yAxis->range());
  };
  EXPECT_EQ(printed(), std::pair(QCPRange(-10, 50), QCPRange(5, 6)));
  EXPECT_EQ(PlotOf("frmXY1s").series[2].points[1].x, 50);
  PlotView again(workbench_, open_, "frmXY1s");
  EXPECT_EQ(again.chart().xAxis->range(), QCPRange(-10, 50));
  view.ResetView();
  EXPECT_EQ(printed().first, view.chart().xAxis->range());
  EXPECT_GT(view.chart().yAxis->range().size(), 10);
}

}  // namespace
}  // namespace quorval
