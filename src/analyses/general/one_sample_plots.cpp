#include <algorithm>

#include "analyses/distribution_plots.h"
#include "analyses/general/dot_plot.h"
#include "analyses/general/one_sample.h"
#include "stats/gaussian.h"

namespace quorval::general {
namespace {

void DrawDots(Run& run, const OneSample& sample) {
  Plot& plot = AddDotPlot(run, "Dot plot with median (bar)", 1);
  plot.y.title = sample.name;
  plot.AddPoints(DotsAt(1, sample.x));
  AddBar(plot, 1, sample.median);
}

void DrawAbsoluteHistogram(Run& run, const OneSample& sample) {
  Plot& plot = AddTitledPlot(run, kAbsoluteHistogramWindow, "Histogram of absolute numbers",
                             sample.name, "Number");
  AddBars(
      plot,
      ChooseClasses(run.form, kAbsoluteClasses, kAbsoluteClassCount, sample.described, sample.N()),
      sample.x, 1);
}

// A vertical line at each percentile, as high as the highest bar.
void MarkPercentiles(Plot& plot, const Percentiles& percentiles) {
  const Real height = std::ranges::max_element(plot.series.front().points, {}, &Point::y)->y;
  for (const auto& percentile : percentiles.user)
    if (percentile)
      plot.AddLine({{percentile->value, 0}, {percentile->value, height}}, Pattern::kDashed);
}

void DrawRelativeHistogram(Run& run, const OneSample& sample) {
  Plot& plot = AddTitledPlot(run, kRelativeHistogramWindow, "Histogram of rel. frequencies",
                             sample.name, kRelativeFrequency);
  const HistogramClasses classes =
      ChooseClasses(run.form, kRelativeClasses, kRelativeClassCount, sample.described, sample.N());
  AddBars(plot, classes, sample.x, sample.N());
  plot.AddLine(DensityCurve(sample.described, classes.h));
  if (sample.percentiles) MarkPercentiles(plot, *sample.percentiles);
}

void DrawCumulative(Run& run, const OneSample& sample) {
  AddCumulative(run.messages,
                AddTitledPlot(run, kCumulativeWindow, "Cumulative distribution with Gauss",
                              sample.name, kCumulativeFrequency),
                sample.x);
}

}  // namespace

void DrawOneSample(Run& run, const OneSample& sample) {
  DrawDots(run, sample);
  Insist(run.messages, kHistogramFault, [&] { DrawAbsoluteHistogram(run, sample); });
  Insist(run.messages, kGaussianHistogramFault, [&] { DrawRelativeHistogram(run, sample); });
  Insist(run.messages, kCumulativeFault, [&] { DrawCumulative(run, sample); });
}

}  // namespace quorval::general
