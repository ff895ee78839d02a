#include "analyses/regression/plots.h"

namespace quorval::regression {

void DrawXYPlot(Run& run, std::string_view caption, const Pairs& data, const OutlierMarks& outliers,
                RedrawnLines line, const std::optional<Bands>& bands) {
  const auto& [min, max] = RangeOf(data.x);
  Plot& plot = run.AddPlot("frmXY1s", caption);
  plot.x.title = "x";
  plot.y.title = "y";
  plot.lines = line;
  plot.AddPoints(Select(data.x, data.y, outliers, false));
  if (outliers.count > 0) {
    plot.AddPoints(Select(data.x, data.y, outliers, true), Mark::kCross);
  } else {
    plot.AddPoints({{data.x[0], data.y[0]}});  // series 2 is always there; here it hides in 1
  }
  plot.AddLine({});
  plot.AddLine({}, Pattern::kDashed);
  plot.RedrawLines(min, max);
  if (!bands) return;
  plot.AddLine(Zip(bands->u, bands->lower));
  plot.AddLine(Zip(bands->u, bands->upper));
}

void DrawResidualPlot(Run& run, std::span<const Real> abscissae, std::span<const Real> z,
                      const OutlierMarks& outliers) {
  Plot& plot = run.AddPlot("frmRes1s", "Standardized residuals plot");
  plot.x.title = "x";
  plot.y.title = "Standardized residual";
  plot.AddPoints(Select(abscissae, z, outliers, false));
  if (outliers.count > 0) plot.AddPoints(Select(abscissae, z, outliers, true), Mark::kCross);
}

}  // namespace quorval::regression
