// The two plots that all method comparisons by regression fill.
#pragma once

#include <span>

#include "analyses/regression/regression.h"

namespace quorval::regression {

// What a method draws of its line.
struct DrawnLine {
  RedrawnLines line;
  std::span<const Real> abscissae;  // of the residuals
  std::span<const Real> z;          // standardised residuals
};

// The first plot: the points, the marked points, the line from the smallest x to the largest, the
// identity line, and the bands if they are wanted.  The second: the residuals; the marked ones are
// a second series where there are any.
void DrawComparison(Plots& plots, std::span<const PlotWindow> windows, const ParametricInput& input,
                    const OutlierMarks& outliers, const Bands& bands, const DrawnLine& drawn);

// The same without outliers and bands; both series of points hold all of them.
void DrawUnmarked(Plots& plots, std::span<const PlotWindow> windows, const Pairs& data,
                  const DrawnLine& drawn);

}  // namespace quorval::regression
