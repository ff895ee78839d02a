#include "analyses/general/dot_plot.h"

namespace quorval::general {

Plot& AddDotPlot(Plots& plots, const PlotWindow& window, int samples) {
  Plot& plot = AddPlot(plots, window);
  plot.x.min = 0;
  plot.x.max = samples + 1;
  plot.x.whole = true;
  return plot;
}

Points DotsAt(Real place, std::span<const Real> values) {
  Points points;
  for (Real value : values) points.push_back({place, value});
  return points;
}

void AddBar(Plot& plot, Real place, Real level) {
  constexpr Colour kBlack = 0;  // all bars alike
  plot.AddLine({{place - 0.2, level}, {place + 0.2, level}}).colour = kBlack;
}

}  // namespace quorval::general
