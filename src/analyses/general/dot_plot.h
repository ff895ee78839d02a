// Dot plots: the values of a sample above its place on the x axis, and a bar at their centre.
#pragma once

#include <span>
#include <string_view>

#include "core/run.h"

namespace quorval::general {

inline constexpr std::string_view kDotPlotWindow = "frmDotplot";

// The plot of so many samples, which have the places 1, 2, ...
Plot& AddDotPlot(Run& run, std::string_view caption, int samples);

// The values at a place, in their order.
Points DotsAt(Real place, std::span<const Real> values);

// A bar from 0.2 left of a place to 0.2 right of it.
void AddBar(Plot& plot, Real place, Real level);

}  // namespace quorval::general
