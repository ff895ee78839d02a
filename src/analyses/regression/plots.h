// The two plots that all method comparisons by regression fill.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "analyses/regression/regression.h"

namespace quorval::regression {

// frmXY1s: the points, the marked points, the line from the smallest x to the largest, the identity
// line, and the bands where there are any.
void DrawXYPlot(Run& run, const PlotWindow& window, const Pairs& data, const OutlierMarks& outliers,
                RedrawnLines line, const std::optional<Bands>& bands);

// frmRes1s: standardised residuals; the marked ones are a second series where there are any.
void DrawResidualPlot(Run& run, const PlotWindow& window, std::span<const Real> abscissae,
                      std::span<const Real> z, const OutlierMarks& outliers);

// The same without outliers and bands; both series of points hold all of them.
void DrawUnmarkedXYPlot(Run& run, const PlotWindow& window, const Pairs& data, RedrawnLines line);
void DrawUnmarkedResidualPlot(Run& run, const PlotWindow& window, std::span<const Real> abscissae,
                              std::span<const Real> z);

}  // namespace quorval::regression
