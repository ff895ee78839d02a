#include "analyses/reference/plots.h"

#include "analyses/reference/options.h"
#include "core/failure.h"
#include "stats/gaussian.h"

namespace quorval::reference {
namespace {

constexpr std::string_view kValue = "Reference value";
constexpr std::string_view kTransformedValue = "Transformed reference value";
constexpr std::string_view kGaussianHistogramFault =
    "Error in histogram display with gauss distribution";

Plot& AddTitledPlot(Run& run, std::string_view window, std::string_view caption,
                    std::string_view x_title, std::string_view y_title) {
  Plot& plot = run.AddPlot(window, caption);
  plot.x.title = x_title;
  plot.y.title = y_title;
  return plot;
}

HistogramClasses ClassesOf(const Form& form, const Description& described, Real N) {
  return ChooseClasses(form, kClasses, kClassCount, described, N);
}

void AddBars(Plot& plot, const HistogramClasses& classes, std::span<const Real> values) {
  plot.Add(
      Bars(classes, CountInClasses(classes, Sample(values.begin(), values.end())), values.size()));
}

void AddCumulative(Run& run, Plot& plot, std::span<const Real> sorted) {
  plot.AddPoints(CumulativeFrequencies(sorted));
  plot.AddLine(CumulativeCurve(run.messages, DescribeSample(run.messages, sorted)));
}

}  // namespace

void DrawHistogram(Run& run, const ReferenceSample& sample, bool with_gaussian) {
  Plot& plot =
      AddTitledPlot(run, "frmRefHisto", "Histogram of reference values", kValue, "Rel. Frequency");
  const Description described = DescribeSample(run.messages, sample.RefValues);
  const HistogramClasses classes = Insist(run.messages, "Error in histogram display", [&] {
    const HistogramClasses chosen = ClassesOf(run.form, described, sample.N());
    AddBars(plot, chosen, sample.RefValues);
    return chosen;
  });
  if (!with_gaussian) return;
  Insist(run.messages, kGaussianHistogramFault,
         [&] { plot.AddLine(DensityCurve(described, classes.h)); });
}

void DrawCumulative(Run& run, const ReferenceSample& sample, bool with_gaussian) {
  Plot& plot = AddTitledPlot(run, "frmRefCum", "Cumulative distribution of reference values",
                             kValue, "Cum. Frequency");
  if (!with_gaussian) return;
  Insist(run.messages, "Error in cumulative display of reference values",
         [&] { AddCumulative(run, plot, sample.RefValues); });
}

void DrawTransformed(Run& run, std::span<const Real> TransformedValues) {
  Insist(run.messages, kGaussianHistogramFault, [&] {
    Plot& plot = AddTitledPlot(run, "frmRefHistoTrans", "Histogram of transformed reference values",
                               kTransformedValue, "Rel. Frequency");
    const Description described = DescribeSample(run.messages, TransformedValues);
    const HistogramClasses classes = ClassesOf(run.form, described, TransformedValues.size());
    AddBars(plot, classes, TransformedValues);
    plot.AddLine(DensityCurve(described, classes.h));
  });
  Insist(run.messages, "Error in cumulated display of transformed values", [&] {
    AddCumulative(run,
                  AddTitledPlot(run, "frmRefCumTrans",
                                "Cumulative distribution of transformed reference values",
                                kTransformedValue, "Cum. Frequency"),
                  TransformedValues);
  });
}

}  // namespace quorval::reference
