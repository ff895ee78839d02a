#include "painting/chart.h"

#include <gmock/gmock.h>
#include <qcustomplot.h>

#include "painting/picture.h"

namespace quorval {
namespace {

using testing::ElementsAre;
using testing::Pair;

std::vector<std::pair<double, double>> PointsOf(QCustomPlot& chart, int series) {
  std::vector<std::pair<double, double>> points;
  auto* const plottable = chart.plottable(series - 1)->interface1D();
  for (int i = 0; i < plottable->dataCount(); ++i)
    points.emplace_back(plottable->dataMainKey(i), plottable->dataMainValue(i));
  return points;
}

Plot PointsPlot() {
  Plot plot{.window = "frmXY1s"};
  plot.x.title = "Reference (µmol/L)";
  plot.AddPoints({{1, 2}, {3, 5}, {2, 3}});
  plot.AddPoints({{2, 9}}, Mark::kCross);
  return plot;
}

TEST(Chart, HoldsASeriesForEachOfThePlotInTheOrderOfItsPoints) {
  Plot plot = PointsPlot();
  plot.AddLine({{3, 0}, {1, 1}, {1, 7}, {2, 2}}, Pattern::kDashed);
  plot.Add({.draw = Draw::kBars, .points = {{2, 4}}, .bar_width = 0.5});
  plot.Add({.draw = Draw::kPointsAndLine, .points = {{1, 1}, {2, 2}}, .colour = 0x8000FF});
  plot.AddLine({});
  QCustomPlot chart;
  for (int drawing = 0; drawing < 2; ++drawing) {  // the second in the place of the first
    DrawPlot(plot, chart);
    ASSERT_EQ(chart.plottableCount(), 6);
    EXPECT_THAT(PointsOf(chart, 1), ElementsAre(Pair(1, 2), Pair(3, 5), Pair(2, 3)));
    EXPECT_THAT(PointsOf(chart, 2), ElementsAre(Pair(2, 9)));
    EXPECT_THAT(PointsOf(chart, 3), ElementsAre(Pair(3, 0), Pair(1, 1), Pair(1, 7), Pair(2, 2)));
    EXPECT_THAT(PointsOf(chart, 4), ElementsAre(Pair(2, 4)));
    EXPECT_THAT(PointsOf(chart, 6), ElementsAre());
  }
  const auto* bars = qobject_cast<QCPBars*>(chart.plottable(3));
  ASSERT_NE(bars, nullptr);
  EXPECT_EQ(bars->width(), 0.5);
  const auto* both = qobject_cast<QCPCurve*>(chart.plottable(4));
  ASSERT_NE(both, nullptr);
  EXPECT_EQ(both->lineStyle(), QCPCurve::lsLine);
  EXPECT_FALSE(both->scatterStyle().isNone());
  EXPECT_EQ(both->pen().color().rgb(), 0xFF8000FF);
  EXPECT_EQ(chart.xAxis->label().toStdString(), "Reference (µmol/L)");
}

TEST(Chart, PatternsAndMarksDiffer) {
  Plot plot = PointsPlot();
  for (Pattern pattern : {Pattern::kSolid, Pattern::kDashed, Pattern::kDotted})
    plot.AddLine({{0, 0}, {1, 1}}, pattern);
  QCustomPlot chart;
  DrawPlot(plot, chart);
  const auto curve = [&](int series) {
    return qobject_cast<QCPCurve*>(chart.plottable(series - 1));
  };
  EXPECT_EQ(curve(3)->pen().style(), Qt::SolidLine);
  EXPECT_NE(curve(4)->pen().dashPattern(), curve(5)->pen().dashPattern());
  EXPECT_NE(curve(1)->scatterStyle().shape(), curve(2)->scatterStyle().shape());
  EXPECT_NE(curve(1)->scatterStyle().pen().color(), curve(2)->scatterStyle().pen().color());
}

TEST(Chart, RangesHoldAllPointsOffTheFrame) {
  const Plot plot = PointsPlot();
  QCustomPlot chart;
  DrawPlot(plot, chart);
  const QCPRange x = chart.xAxis->range(), y = chart.yAxis->range();
  EXPECT_LT(x.lower, 1);
  EXPECT_GT(x.lower, 0.8);
  EXPECT_GT(x.upper, 3);
  EXPECT_LT(x.upper, 3.2);
  EXPECT_LT(y.lower, 2);
  EXPECT_GT(y.upper, 9);
}

TEST(Chart, FixedEndsStandAndBarsStandOnZero) {
  Plot plot{.window = "bars"};
  plot.Add({.draw = Draw::kBars, .points = {{1, 4}, {2, 8}}, .bar_width = 1});
  plot.x.max = 5;
  QCustomPlot chart;
  DrawPlot(plot, chart);
  EXPECT_LT(chart.xAxis->range().lower, 0.5);
  EXPECT_EQ(chart.xAxis->range().upper, 5);
  EXPECT_EQ(chart.yAxis->range().lower, 0);
  EXPECT_GT(chart.yAxis->range().upper, 8);
}

// A range without width, or one that the fixed end leaves no room for, would draw nothing.
TEST(Chart, RangesAlwaysHaveAWidth) {
  struct RangeCase {
    Points points;
    Axis axis;
  };
  const RangeCase cases[] = {
      {{{7, 1}}, {}},         {{{0, 1}}, {}},         {{{-1e300, 1}, {1e300, 1}}, {}},
      {{{1, 1}}, {.min = 4}}, {{{5, 1}}, {.max = 4}}, {{}, {}}};
  for (const RangeCase& c : cases) {
    Plot plot{.window = "range", .x = c.axis};
    plot.AddPoints(c.points);
    QCustomPlot chart;
    DrawPlot(plot, chart);
    EXPECT_LT(chart.xAxis->range().lower, chart.xAxis->range().upper);
  }
}

TEST(Chart, HeaderStandsAboveAndLabelBelowOnAsManyLinesAsTheyNeed) {
  Plot plot = PointsPlot();
  plot.header = "True values (red cols) and means of measured values (blue cols) with SEM (dot)";
  plot.label = "Solid blue line: Ass. mean";
  QCustomPlot chart;
  DrawPlot(plot, chart);
  DrawPlot(plot, chart);
  EXPECT_EQ(chart.plotLayout()->elementCount(), 3);
  const auto height_of = [&](int row) {
    return chart.plotLayout()->element(row, 0)->rect().height();
  };
  ImageOf(chart, {900, 400});
  chart.setViewport({0, 0, 900, 400});
  chart.replot();
  const int one_line = height_of(0);
  chart.setViewport({0, 0, 260, 400});
  chart.replot();
  EXPECT_GT(height_of(0), 2 * one_line);
  EXPECT_GT(height_of(1), 100);
  DrawPlot(PointsPlot(), chart);
  EXPECT_EQ(chart.plotLayout()->elementCount(), 1);
}

// The labels of an axis in the order of its ticks.
std::vector<std::string> LabelsOf(QCustomPlot& chart, QCPAxis& axis) {
  ImageOf(chart, {600, 400});
  std::vector<std::string> labels;
  for (const QString& label : axis.tickVectorLabels()) labels.push_back(label.toStdString());
  return labels;
}

TEST(Chart, TickLabelsTellNeighboursApartInTheLocalesWay) {
  Plot plot{.window = "ticks"};
  plot.AddPoints({{12345.678, 0.5}, {12345.7, 3}});
  QCustomPlot chart;
  chart.setLocale(QLocale("de_DE"));
  DrawPlot(plot, chart);
  EXPECT_THAT(LabelsOf(chart, *chart.xAxis),
              testing::IsSupersetOf({"12345,680", "12345,685", "12345,700"}));
  EXPECT_THAT(LabelsOf(chart, *chart.yAxis), ElementsAre("0,5", "1,0", "1,5", "2,0", "2,5", "3,0"));
}

TEST(Chart, AnAxisOfWholeNumbersHasNoTicksBetweenThem) {
  Plot plot{.window = "ticks", .x = {.min = 0, .max = 2, .whole = true}};
  plot.AddPoints({{1, 5}});
  QCustomPlot chart;
  DrawPlot(plot, chart);
  EXPECT_THAT(LabelsOf(chart, *chart.xAxis), ElementsAre("0", "1", "2"));
}

}  // namespace
}  // namespace quorval
