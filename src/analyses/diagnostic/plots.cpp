#include "analyses/diagnostic/plots.h"

#include <algorithm>
#include <limits>

#include "analyses/class_options.h"
#include "analyses/colours.h"
#include "analyses/diagnostic/options.h"
#include "core/failure.h"

namespace quorval::diagnostic {
namespace {

// Classes of a width that is given; the last may reach beyond the largest value.
HistogramClasses ClassesOfWidth(Real h, const Range& range) {
  const Real k = -Int(-(range.max - range.min) / h);
  if (k > std::numeric_limits<std::int16_t>::max()) Raise(Fault::Kind::kOverflow);
  return {range.min, h, std::max(static_cast<int>(Raw(k)), 1)};
}

Series FrequencyBars(const HistogramClasses& classes, const Sample& values, Colour colour) {
  Series bars = Bars(classes, CountInClasses(classes, values), values.size());
  bars.colour = colour;
  return bars;
}

Real HighestOf(const Plot& plot) {
  Real highest;
  for (const Series& series : plot.series)
    for (const Point& point : series.points) highest = std::max(highest, point.y);
  return highest;
}

Plot& AddRocPlot(Run& run, std::string_view title) {
  Plot& plot = run.AddPlot(kDiaPlot, title);
  plot.header = title;
  plot.aspect = 1;
  plot.x.title = "1-Specificity";
  plot.y.title = "Sensitivity";
  return plot;
}

Points CurveOf(const CutOffSweep& sweep) {
  Points curve;
  for (std::size_t k = 0; k < sweep.SpecAt.size(); ++k)
    curve.push_back({1 - sweep.SpecAt[k], sweep.SensAt[k]});
  return curve;
}

constexpr std::string_view kCurveFault = "Error in plot Roc-curve routine";

}  // namespace

void DrawGroups(Run& run, const TwoGroups& groups, Single CutOff) {
  Insist(run.messages, kCurveFault, [&] {
    Plot& plot = run.AddPlot(kDiaPlot, "Distribution of the two groups");
    plot.label = "Blue: non-diseased, red: diseased, dotted: cut-off";
    plot.x.title = "Test result";
    plot.y.title = "Rel. Frequency";
    const Description first = DescribeSample(run.messages, groups.FirstSample);
    const HistogramClasses classes =
        ChooseClasses(run.form, kClasses, kClassCount, first, groups.N1());
    plot.Add(FrequencyBars(classes, groups.FirstSample, kBlue));
    plot.Add(FrequencyBars(ClassesOfWidth(classes.h, RangeOf(groups.SecondSample)),
                           groups.SecondSample, kRed));
    plot.AddLine({{CutOff, 0}, {CutOff, HighestOf(plot)}}, Pattern::kDotted);
  });
}

void DrawRocCurve(Run& run, const CutOffSweep& sweep) {
  Insist(run.messages, kCurveFault, [&] { AddRocPlot(run, "ROC-curve").AddLine(CurveOf(sweep)); });
}

void DrawRocCurves(Run& run, const CutOffSweep& test1, const CutOffSweep& test2) {
  Insist(run.messages, "Error in plot of Roc-curve comparison routine", [&] {
    Plot& plot = AddRocPlot(run, "Comparison of ROC-curves");
    plot.label = "Blue: test 1, red: test 2";
    plot.AddLine(CurveOf(test1)).colour = kBlue;
    plot.AddLine(CurveOf(test2)).colour = kRed;
  });
}

}  // namespace quorval::diagnostic
