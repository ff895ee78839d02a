// Pictures of plots: one routine draws them for the screen, for files and for paper.
#pragma once

#include <filesystem>

#include "core/plot.h"

class QCustomPlot;

namespace quorval {

// Hands the series, titles and ranges of a plot to a chart.
void DrawPlot(const Plot& plot, QCustomPlot& chart);

// Writes the picture by the path's extension: png, bmp, svg or pdf.  False when it cannot be
// written.
bool WritePicture(const Plot& plot, const std::filesystem::path& path);

}  // namespace quorval
