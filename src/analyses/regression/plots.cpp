#include "analyses/regression/plots.h"

namespace quorval::regression {

namespace {

// The plot with its first two series; the lines follow.
Plot& AddXYPlot(Run& run, const PlotWindow& window, Points points, Series second) {
  Plot& plot = run.AddPlot(window);
  plot.x.title = "x";
  plot.y.title = "y";
  plot.AddPoints(std::move(points));
  plot.Add(std::move(second));
  return plot;
}

// Series 3 and 4.
void AddLines(Plot& plot, const Pairs& data, RedrawnLines line) {
  const auto& [min, max] = RangeOf(data.x);
  plot.lines = line;
  plot.AddLine({});
  plot.AddLine({}, Pattern::kDashed);
  plot.RedrawLines(min, max);
}

Plot& AddResidualPlot(Run& run, const PlotWindow& window) {
  Plot& plot = run.AddPlot(window);
  plot.x.title = "x";
  plot.y.title = "Standardized residual";
  return plot;
}

}  // namespace

void DrawXYPlot(Run& run, const PlotWindow& window, const Pairs& data, const OutlierMarks& outliers,
                RedrawnLines line, const std::optional<Bands>& bands) {
  Series second{.points = Select(data.x, data.y, outliers, true), .mark = Mark::kCross};
  // The second series is always there; without outliers it hides in the first.
  if (outliers.count == 0) second = {.points = {{data.x[0], data.y[0]}}};
  Plot& plot = AddXYPlot(run, window, Select(data.x, data.y, outliers, false), std::move(second));
  AddLines(plot, data, line);
  if (!bands) return;
  plot.AddLine(Zip(bands->u, bands->lower));
  plot.AddLine(Zip(bands->u, bands->upper));
}

void DrawUnmarkedXYPlot(Run& run, const PlotWindow& window, const Pairs& data, RedrawnLines line) {
  Plot& plot = AddXYPlot(run, window, Zip(data.x, data.y), {.points = Zip(data.x, data.y)});
  AddLines(plot, data, line);
}

void DrawResidualPlot(Run& run, const PlotWindow& window, std::span<const Real> abscissae,
                      std::span<const Real> z, const OutlierMarks& outliers) {
  Plot& plot = AddResidualPlot(run, window);
  plot.AddPoints(Select(abscissae, z, outliers, false));
  if (outliers.count > 0) plot.AddPoints(Select(abscissae, z, outliers, true), Mark::kCross);
}

void DrawUnmarkedResidualPlot(Run& run, const PlotWindow& window, std::span<const Real> abscissae,
                              std::span<const Real> z) {
  Plot& plot = AddResidualPlot(run, window);
  for (int twice = 0; twice < 2; ++twice) plot.AddPoints(Zip(abscissae, z));
}

}  // namespace quorval::regression
