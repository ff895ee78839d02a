#include "analyses/distribution_plots.h"

#include "stats/gaussian.h"

namespace quorval {

void AddBars(Plot& plot, const HistogramClasses& classes, std::span<const Real> values,
             Real divisor) {
  plot.Add(Bars(classes, CountInClasses(classes, {values.begin(), values.end()}), divisor));
}

void AddCumulative(Messages& messages, Plot& plot, std::span<const Real> sorted) {
  plot.AddPoints(CumulativeFrequencies(sorted));
  plot.AddLine(CumulativeCurve(messages, DescribeSample(messages, sorted)));
}

}  // namespace quorval
