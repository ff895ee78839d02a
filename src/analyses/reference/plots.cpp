#include "analyses/reference/plots.h"

#include "analyses/distribution_plots.h"
#include "analyses/reference/options.h"
#include "core/failure.h"
#include "stats/gaussian.h"

namespace quorval::reference {
namespace {

constexpr std::string_view kValue = "Reference value";
constexpr std::string_view kTransformedValue = "Transformed reference value";

HistogramClasses ClassesOf(const Form& form, const Description& described, Real N) {
  return ChooseClasses(form, kClasses, kClassCount, described, N);
}

}  // namespace

void DrawHistogram(Run& run, const ReferenceSample& sample, bool with_gaussian) {
  Plot& plot = AddTitledPlot(run, "frmRefHisto", "Histogram of reference values", kValue,
                             kRelativeFrequency);
  const Description described = DescribeSample(run.messages, sample.RefValues);
  const HistogramClasses classes = Insist(run.messages, kHistogramFault, [&] {
    const HistogramClasses chosen = ClassesOf(run.form, described, sample.N());
    AddBars(plot, chosen, sample.RefValues, sample.N());
    return chosen;
  });
  if (!with_gaussian) return;
  Insist(run.messages, kGaussianHistogramFault,
         [&] { plot.AddLine(DensityCurve(described, classes.h)); });
}

void DrawCumulative(Run& run, const ReferenceSample& sample, bool with_gaussian) {
  Plot& plot = AddTitledPlot(run, "frmRefCum", "Cumulative distribution of reference values",
                             kValue, kCumulativeFrequency);
  if (!with_gaussian) return;
  Insist(run.messages, kCumulativeFault,
         [&] { AddCumulative(run.messages, plot, sample.RefValues); });
}

void DrawTransformed(Run& run, std::span<const Real> TransformedValues) {
  Insist(run.messages, kGaussianHistogramFault, [&] {
    Plot& plot = AddTitledPlot(run, "frmRefHistoTrans", "Histogram of transformed reference values",
                               kTransformedValue, kRelativeFrequency);
    const Description described = DescribeSample(run.messages, TransformedValues);
    const HistogramClasses classes = ClassesOf(run.form, described, TransformedValues.size());
    AddBars(plot, classes, TransformedValues, TransformedValues.size());
    plot.AddLine(DensityCurve(described, classes.h));
  });
  Insist(run.messages, "Error in cumulated display of transformed values", [&] {
    AddCumulative(run.messages,
                  AddTitledPlot(run, "frmRefCumTrans",
                                "Cumulative distribution of transformed reference values",
                                kTransformedValue, kCumulativeFrequency),
                  TransformedValues);
  });
}

}  // namespace quorval::reference
