#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/grid.h"
#include "core/real.h"

namespace quorval {

struct Point {
  Real x, y;

  bool operator==(const Point&) const = default;
};
using Points = std::vector<Point>;

// Points of the abscissae and ordinates of equal length.
Points Zip(std::span<const Real> x, std::span<const Real> y);

// The curve of a function over the abscissae from `first` to `last`, at equal steps.
template <class Function>
Points Curve(Real first, Real last, Function&& y_at) {
  constexpr int kPoints = 100;
  Points curve;
  for (int i = 0; i < kPoints; ++i) {
    const Real x = first + i * (last - first) / (kPoints - 1);
    curve.push_back({x, y_at(x)});
  }
  return curve;
}

enum class Draw { kPoints, kLine, kBars, kPointsAndLine };
enum class Mark { kDot, kCross };  // a measurement, and one that is marked apart
enum class Pattern { kSolid, kDashed, kDotted };

struct Series {
  Draw draw = Draw::kPoints;
  Points points{};
  Mark mark = Mark::kDot;
  Pattern pattern = Pattern::kSolid;
  std::optional<Colour> colour{};  // none: the chart's own
  Real bar_width{};                // of bars, in units of x; they stand centred on their x
  Real offset{};                   // drawn so far to the right of its x: columns side by side

  bool operator==(const Series&) const = default;
};

struct Axis {
  std::string title{};
  std::optional<Real> min{}, max{};  // the ends where an analysis fixes them
  bool whole = false;                // only whole numbers are labelled, such as those of samples

  bool operator==(const Axis&) const = default;
};

// The lines that "Redraw lines" draws anew between the ends of the x axis: the fitted one, which is
// series 3, and the identity line, which is series 4.
struct RedrawnLines {
  Real a0, b;

  bool operator==(const RedrawnLines&) const = default;
};

// What an analysis declares of a plot window.
struct PlotWindow {
  std::string_view window;
  std::string_view caption;               // empty: as the options say
  std::string_view x_title{}, y_title{};  // empty: as the data say, or none
  std::string_view bitmap{};              // its file in the program folder, the leading blank kept
  double height = 0;                      // of its picture on a printed page, in points
  bool opens_empty = false;    // beside the results, also where the run draws nothing in it
  bool goes_to_sheet = false;  // it offers to add its picture to the results sheet
};

// The section of the axes that the user has chosen to see.
struct View {
  double x_min, x_max, y_min, y_max;

  bool operator==(const View&) const = default;
};

// A plot window: series and axes, and no statistics.  Series are counted from 1.
struct Plot {
  std::string window;
  std::string caption{};  // of the window
  std::string header{};   // above the chart
  std::string label{};    // a text beside the chart
  bool shown = true;
  double aspect = 1.5;  // of its picture, width to height
  Axis x{}, y{};
  std::vector<Series> series{};
  std::optional<RedrawnLines> lines{};
  std::optional<View> view{};  // none: all of it

  Series& Add(Series s);
  Series& AddPoints(Points points, Mark mark = Mark::kDot);
  Series& AddLine(Points points, Pattern pattern = Pattern::kSolid);

  // Sets series 3 and 4 anew between the two abscissae.
  void RedrawLines(Real x_min, Real x_max);

  bool operator==(const Plot&) const = default;
};

// In the order in which they were filled.
using Plots = std::vector<Plot>;

// The plot of a window, empty.
Plot& AddPlot(Plots& plots, const PlotWindow& window);

}  // namespace quorval
