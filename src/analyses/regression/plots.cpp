#include "analyses/regression/plots.h"

namespace quorval::regression {

namespace {

// Series 3 and 4.
void AddLines(Plot& plot, const Pairs& data, RedrawnLines line) {
  const auto& [min, max] = RangeOf(data.x);
  plot.lines = line;
  plot.AddLine({});
  plot.AddLine({}, Pattern::kDashed);
  plot.RedrawLines(min, max);
}

}  // namespace

void DrawComparison(Plots& plots, std::span<const PlotWindow> windows, const ParametricInput& input,
                    const OutlierMarks& outliers, const Bands& bands, const DrawnLine& drawn) {
  const auto& [x, y, ids, columns, measured] = input.data;
  Plot& xy = AddPlot(plots, windows[0]);
  xy.AddPoints(Select(x, y, outliers, false));
  if (outliers.count > 0) {
    xy.AddPoints(Select(x, y, outliers, true), Mark::kCross);
  } else {
    xy.AddPoints({{x[0], y[0]}});  // always a second series: it hides in the first
  }
  AddLines(xy, input.data, drawn.line);
  if (input.plot_bands) {
    xy.AddLine(Zip(bands.u, bands.lower));
    xy.AddLine(Zip(bands.u, bands.upper));
  }

  Plot& residuals = AddPlot(plots, windows[1]);
  const auto& [line, abscissae, z] = drawn;
  residuals.AddPoints(Select(abscissae, z, outliers, false));
  if (outliers.count > 0) residuals.AddPoints(Select(abscissae, z, outliers, true), Mark::kCross);
}

void DrawUnmarked(Plots& plots, std::span<const PlotWindow> windows, const Pairs& data,
                  const DrawnLine& drawn) {
  Plot& xy = AddPlot(plots, windows[0]);
  for (int twice = 0; twice < 2; ++twice) xy.AddPoints(Zip(data.x, data.y));
  AddLines(xy, data, drawn.line);

  Plot& residuals = AddPlot(plots, windows[1]);
  for (int twice = 0; twice < 2; ++twice) residuals.AddPoints(Zip(drawn.abscissae, drawn.z));
}

}  // namespace quorval::regression
