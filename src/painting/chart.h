// How a plot looks: one routine draws it for the screen, for files and for paper.
#pragma once

#include "core/plot.h"

class QCustomPlot;

namespace quorval {

// Hands a plot to a chart in the place of what the chart held: a plottable for each series, in
// order (bars as QCPBars, all others as QCPCurve with their points in order), the titles, the
// header above, the label below and the ranges: the plot's view, or all of it.  A plot without
// series is an empty frame.
void DrawPlot(const Plot& plot, QCustomPlot& chart);

}  // namespace quorval
