#include "analyses/distribution_plots.h"

#include "stats/gaussian.h"

namespace quorval {

Plot& AddTitledPlot(Run& run, std::string_view window, std::string_view caption,
                    std::string_view x_title, std::string_view y_title) {
  Plot& plot = run.AddPlot(window, caption);
  plot.x.title = x_title;
  plot.y.title = y_title;
  return plot;
}

void AddBars(Plot& plot, const HistogramClasses& classes, std::span<const Real> values,
             Real divisor) {
  plot.Add(Bars(classes, CountInClasses(classes, {values.begin(), values.end()}), divisor));
}

void AddCumulative(Messages& messages, Plot& plot, std::span<const Real> sorted) {
  plot.AddPoints(CumulativeFrequencies(sorted));
  plot.AddLine(CumulativeCurve(messages, DescribeSample(messages, sorted)));
}

}  // namespace quorval
