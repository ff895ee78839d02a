// Dot plots: the values of a sample above its place on the x axis, and a bar at their centre.
#pragma once

#include <span>
#include <string_view>

#include "core/plot.h"

namespace quorval::general {

constexpr PlotWindow DotPlot(std::string_view caption, std::string_view x_title = {}) {
  return {.window = "frmDotplot",
          .caption = caption,
          .x_title = x_title,
          .bitmap = " Chart2D1.bmp",
          .height = 350};
}

// The plot of so many samples, which have the places 1, 2, ...
Plot& AddDotPlot(Plots& plots, const PlotWindow& window, int samples);

// The values at a place, in their order.
Points DotsAt(Real place, std::span<const Real> values);

// A bar from 0.2 left of a place to 0.2 right of it.
void AddBar(Plot& plot, Real place, Real level);

}  // namespace quorval::general
