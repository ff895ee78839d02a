#include "painting/chart.h"

#include <qcustomplot.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "painting/qt_text.h"

namespace quorval {
namespace {

// --- Look.  Sizes are device-independent pixels.  The colours can be told apart with any of the
// common forms of colour blindness (Okabe & Ito, Color Universal Design, 2008).

constexpr int kTickFont = 12, kTitleFont = 13, kHeaderFont = 14;

constexpr QRgb kBlue = 0xFF0072B2, kVermilion = 0xFFD55E00, kGreen = 0xFF009E73;
constexpr QRgb kInk = 0xFF222222, kAxisInk = 0xFF404040, kDimInk = 0xFF707070;
constexpr QRgb kGridInk = 0xFFE8E8E8, kZeroInk = 0xFFA8A8A8;

QFont ChartFont(int pixels, bool bold = false) {
  QFont font = QFont();
  font.setPixelSize(pixels);
  font.setBold(bold);
  font.setHintingPreference(QFont::PreferNoHinting);  // the same widths at any resolution
  return font;
}

QPen LinePen(const QColor& colour, double width, Pattern pattern) {
  QPen pen(colour, width);
  if (pattern == Pattern::kDashed) pen.setDashPattern({5, 3});
  if (pattern == Pattern::kDotted) {
    pen.setWidthF(1.8);
    pen.setCapStyle(Qt::RoundCap);
    pen.setDashPattern({0.1, 2.6});
  }
  return pen;
}

bool HasLine(const Series& series) {
  return series.draw == Draw::kLine || series.draw == Draw::kPointsAndLine;
}

bool HasPoints(const Series& series) {
  return series.draw == Draw::kPoints || series.draw == Draw::kPointsAndLine;
}

// Whether the series is the first solid line, which is the fit where a plot has one.
bool IsMainLine(const Plot& plot, const Series& series) {
  const auto first = std::ranges::find_if(plot.series, [](const Series& s) {
    return s.draw == Draw::kLine && s.pattern == Pattern::kSolid;
  });
  return first != plot.series.end() && &*first == &series;
}

// The chart's own colour of a series.
QColor OwnColour(const Plot& plot, const Series& series) {
  if (series.draw != Draw::kLine)
    return series.mark == Mark::kCross ? QColor(kVermilion) : QColor(kBlue);
  if (series.pattern == Pattern::kDashed) return QColor(kDimInk);
  if (series.pattern == Pattern::kDotted) return QColor(kGreen);
  return IsMainLine(plot, series) ? QColor(kInk) : QColor(kBlue);
}

QColor ColourOf(const Plot& plot, const Series& series) {
  return series.colour ? QColor(QRgb(*series.colour)) : OwnColour(plot, series);
}

// A text that breaks into as many lines as the chart's width asks for.
class WrappedText : public QCPTextElement {
 public:
  WrappedText(QCustomPlot& chart, std::string_view text, const QFont& font)
      : QCPTextElement(&chart, ToQt(text), font) {
    setTextFlags(Qt::AlignCenter | Qt::TextWordWrap);
    setTextColor(kInk);
    setMargins({12, 6, 12, 4});
  }

 protected:
  QSize minimumOuterSizeHint() const override { return {0, Height()}; }
  QSize maximumOuterSizeHint() const override { return {QWIDGETSIZE_MAX, Height()}; }

 private:
  int Height() const {
    const int width = parentPlot()->viewport().width() - mMargins.left() - mMargins.right();
    const QRect room(0, 0, std::max(width, 1), QWIDGETSIZE_MAX);
    return QFontMetrics(mFont).boundingRect(room, mTextFlags, mText).height() + mMargins.top() +
           mMargins.bottom();
  }
};

// --- Series

void AddBars(const Series& series, const QColor& colour, QCustomPlot& chart) {
  auto* bars = new QCPBars(chart.xAxis, chart.yAxis);
  QColor fill = colour;
  fill.setAlphaF(0.35F);  // bars of another series behind it stay visible
  bars->setPen(QPen(colour, 1));
  bars->setBrush(fill);
  bars->setWidthType(QCPBars::wtPlotCoords);
  bars->setWidth(Raw(series.bar_width));
  for (const Point& point : series.points)
    bars->addData(Raw(point.x + series.offset), Raw(point.y));
}

// Opaque, so that a point drawn twice looks like one.
QColor Paler(const QColor& colour) {
  const auto paler = [](int channel) { return 255 - (255 - channel) / 2; };
  return {paler(colour.red()), paler(colour.green()), paler(colour.blue())};
}

QCPScatterStyle MarkStyle(Mark mark, const QColor& colour) {
  if (mark == Mark::kCross)
    return {QCPScatterStyle::ssCross, QPen(colour, 2, Qt::SolidLine, Qt::RoundCap), Qt::NoBrush, 9};
  return {QCPScatterStyle::ssCircle, QPen(colour, 1), Paler(colour), 6.5};
}

// A curve whose marks on the frame are drawn whole.
class Curve : public QCPCurve {
 public:
  using QCPCurve::QCPCurve;

 protected:
  QRect clipRect() const override {
    const int reach = lineStyle() == lsNone ? 6 : 0;
    return QCPCurve::clipRect().adjusted(-reach, -reach, reach, reach);
  }
};

void AddCurve(const Series& series, const QColor& colour, double width, QCustomPlot& chart) {
  auto* curve = new Curve(chart.xAxis, chart.yAxis);
  curve->setLineStyle(HasLine(series) ? QCPCurve::lsLine : QCPCurve::lsNone);
  curve->setPen(LinePen(colour, width, series.pattern));
  curve->setScatterStyle(HasPoints(series) ? MarkStyle(series.mark, colour) : QCPScatterStyle());
  for (const Point& point : series.points)
    curve->addData(Raw(point.x + series.offset), Raw(point.y));
}

// --- Ranges

struct Extent {
  double min = std::numeric_limits<double>::infinity();
  double max = -std::numeric_limits<double>::infinity();

  bool Empty() const { return min > max; }
  void Take(double value) {
    min = std::min(min, value);
    max = std::max(max, value);
  }
};

Extent ExtentOfX(const Plot& plot) {
  Extent extent;
  for (const Series& series : plot.series) {
    const double half_bar = series.draw == Draw::kBars ? Raw(series.bar_width) / 2 : 0;
    for (const Point& point : series.points) {
      extent.Take(Raw(point.x + series.offset) - half_bar);
      extent.Take(Raw(point.x + series.offset) + half_bar);
    }
  }
  return extent;
}

Extent ExtentOfY(const Plot& plot) {
  Extent extent;
  for (const Series& series : plot.series) {
    if (series.draw == Draw::kBars && !series.points.empty()) extent.Take(0);
    for (const Point& point : series.points) extent.Take(Raw(point.y));
  }
  return extent;
}

bool HasBars(const Plot& plot) {
  return std::ranges::any_of(plot.series, [](const Series& s) { return s.draw == Draw::kBars; });
}

// All of the extent, with a margin that keeps the points off the frame; fixed ends as they are.
QCPRange RangeOf(const Axis& axis, Extent extent, bool stands_on_zero) {
  constexpr double kMargin = 0.04;
  if (extent.Empty()) extent = {0, 1};
  if (extent.min == extent.max) {
    const double reach = extent.min == 0 ? 1 : std::abs(extent.min) / 10;
    extent = {extent.min - reach, extent.max + reach};
  }
  const double margin = kMargin * extent.max - kMargin * extent.min;
  QCPRange range(extent.min - margin, extent.max + margin);
  if (stands_on_zero && extent.min == 0) range.lower = 0;
  if (axis.min) range.lower = Raw(*axis.min);
  if (axis.max) range.upper = Raw(*axis.max);
  if (range.lower < range.upper) return range;
  return axis.min ? QCPRange(range.lower, range.lower + 1) : QCPRange(range.upper - 1, range.upper);
}

// --- Frame

// Labels that tell neighbouring ticks apart, all with the same decimals.
class Ticker : public QCPAxisTicker {
 public:
  explicit Ticker(bool whole) : whole_(whole) { setTickCount(6); }

 protected:
  double getTickStep(const QCPRange& range) override {
    const double step = QCPAxisTicker::getTickStep(range);
    return whole_ ? std::ceil(step) : step;
  }
  QVector<QString> createLabelVector(const QVector<double>& ticks, const QLocale& locale,
                                     QChar format, int precision) override {
    QLocale plain = locale;
    plain.setNumberOptions(QLocale::OmitGroupSeparator);
    if (ticks.size() < 2) return QCPAxisTicker::createLabelVector(ticks, plain, format, precision);
    const double largest = std::max(std::abs(ticks.first()), std::abs(ticks.last()));
    const int step_digit = int(std::floor(std::log10(ticks[1] - ticks[0]) + 1e-9));
    if (largest < 1e6 && step_digit >= -6) {
      const int decimals = std::max(0, ExtraDecimals(ticks, step_digit) - step_digit);
      return QCPAxisTicker::createLabelVector(ticks, plain, u'f', decimals);
    }
    const int digits = int(std::floor(std::log10(largest))) - step_digit + 2;
    return QCPAxisTicker::createLabelVector(ticks, plain, u'g', std::clamp(digits, 1, 15));
  }

 private:
  // One where the step is 2.5 times a power of ten.
  static int ExtraDecimals(const QVector<double>& ticks, int step_digit) {
    const double mantissa = (ticks[1] - ticks[0]) / std::pow(10, step_digit);
    return std::abs(mantissa - std::round(mantissa)) > 0.1 ? 1 : 0;
  }

  bool whole_;
};

void StyleAxis(QCPAxis& axis, const Axis& wanted, const QCPRange& range, bool labelled) {
  const QPen ink(QColor(kAxisInk), 1);
  axis.setBasePen(ink);
  axis.setTickPen(ink);
  axis.setSubTickPen(ink);
  axis.setTickLength(0, 5);
  axis.setSubTicks(false);
  axis.setTicks(labelled);
  axis.setTickLabels(labelled);
  axis.setTickLabelFont(ChartFont(kTickFont));
  axis.setTickLabelColor(kInk);
  axis.setLabelFont(ChartFont(kTitleFont));
  axis.setLabelColor(kInk);
  axis.setLabelPadding(6);
  axis.setLabel(ToQt(wanted.title));
  axis.setTicker(QSharedPointer<Ticker>::create(wanted.whole));
  axis.grid()->setPen(QPen(QColor(kGridInk), 1));
  axis.grid()->setZeroLinePen(QPen(QColor(kZeroInk), 1));
  axis.grid()->setVisible(labelled);
  axis.setRange(range);
}

void CloseFrame(QCPAxis& axis) {
  axis.setVisible(true);
  axis.setTicks(false);
  axis.setTickLabels(false);
  axis.setBasePen(QPen(QColor(kAxisInk), 1));
}

void PlaceTexts(const Plot& plot, QCustomPlot& chart) {
  QCPLayoutGrid& layout = *chart.plotLayout();
  for (int i = layout.elementCount() - 1; i >= 0; --i)
    if (qobject_cast<QCPTextElement*>(layout.elementAt(i)) != nullptr) layout.removeAt(i);
  layout.simplify();
  layout.setRowSpacing(0);
  if (!plot.header.empty()) {
    layout.insertRow(0);
    layout.addElement(0, 0, new WrappedText(chart, plot.header, ChartFont(kHeaderFont, true)));
  }
  if (!plot.label.empty())
    layout.addElement(layout.rowCount(), 0,
                      new WrappedText(chart, plot.label, ChartFont(kTickFont)));
}

}  // namespace

void DrawPlot(const Plot& plot, QCustomPlot& chart) {
  chart.setWindowTitle(ToQt(plot.caption));
  chart.clearPlottables();
  PlaceTexts(plot, chart);
  const Extent x = ExtentOfX(plot), y = ExtentOfY(plot);
  QCPRange x_range = RangeOf(plot.x, x, false), y_range = RangeOf(plot.y, y, HasBars(plot));
  if (const std::optional<View>& view = plot.view) {
    x_range = {view->x_min, view->x_max};
    y_range = {view->y_min, view->y_max};
  }
  StyleAxis(*chart.xAxis, plot.x, x_range, !x.Empty() || plot.x.min);
  StyleAxis(*chart.yAxis, plot.y, y_range, !y.Empty() || plot.y.min);
  CloseFrame(*chart.xAxis2);
  CloseFrame(*chart.yAxis2);
  chart.axisRect()->setMinimumMargins({14, 14, 24, 10});
  for (const Series& series : plot.series) {
    const QColor colour = ColourOf(plot, series);
    if (series.draw == Draw::kBars)
      AddBars(series, colour, chart);
    else
      AddCurve(series, colour, IsMainLine(plot, series) ? 1.6 : 1.2, chart);
  }
}

}  // namespace quorval
