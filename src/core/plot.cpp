#include "core/plot.h"

namespace quorval {

Points Zip(std::span<const Real> x, std::span<const Real> y) {
  Points points;
  points.reserve(x.size());
  for (std::size_t i = 0; i < x.size(); ++i) points.push_back({x[i], y[i]});
  return points;
}

Series& Plot::Add(Series s) { return series.emplace_back(std::move(s)); }

Series& Plot::AddPoints(Points points, Mark mark) {
  return Add({.draw = Draw::kPoints, .points = std::move(points), .mark = mark});
}

Series& Plot::AddLine(Points points, Pattern pattern) {
  return Add({.draw = Draw::kLine, .points = std::move(points), .pattern = pattern});
}

void Plot::RedrawLines(Real x_min, Real x_max) {
  if (!lines || series.size() < 4) return;
  const auto fitted = [&](Real u) { return Point{u, lines->a0 + lines->b * u}; };
  series[2].points = {fitted(x_min), fitted(x_max)};
  series[3].points = {{x_min, x_min}, {x_max, x_max}};
}

Plot& AddPlot(Plots& plots, const PlotWindow& window) {
  return plots.emplace_back(Plot{.window = std::string(window.window),
                                 .caption = std::string(window.caption),
                                 .x = {.title = std::string(window.x_title)},
                                 .y = {.title = std::string(window.y_title)}});
}

}  // namespace quorval
