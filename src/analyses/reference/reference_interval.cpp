// The central 95 % interval of a population, from one column of reference values: both limits with
// their 90 % confidence intervals.
//
// Seven procedures share the intake, the refusals and the plots told here.  Outliers are reported
// by the parametric ones and never removed.
#include <algorithm>

#include "analyses/reference/nonparametric.h"
#include "analyses/reference/options.h"
#include "analyses/reference/parametric.h"
#include "analyses/reference/plots.h"
#include "analyses/reference/two_stage.h"
#include "analyses/registry.h"
#include "core/failure.h"
#include "stats/percentile.h"

namespace quorval::reference {
namespace {

// A column number that the intake refuses ends the run with the intake's box alone.
Column TakeColumn(Run& run) {
  try {
    return ReadColumnWithId(run);
  } catch (const Failure&) {
    throw Refusal{};
  }
}

ReferenceSample TakeSample(Run& run) {
  const Column column = TakeColumn(run);
  Sample values = column.Numbers32(run.notices);
  if (values.size() < 20) run.Refuse(" N < 20: No data analysis! ");
  ReferenceSample sample{SortAscending(std::move(values)), column.header};
  if (sample.RefValues.front() == sample.RefValues.back())
    run.Refuse("No dispersion of reference values");
  return sample;
}

void CheckParametric(const Run& run, const ReferenceSample& sample, bool needs_positive) {
  if (!run.form.HoldsNumber(kOutlierLimit) || run.form.WholeNumber32(kOutlierLimit) <= 0)
    run.Refuse("Outlier detection limit should be a positive number of SD´s");
  if (needs_positive && sample.RefValues.front() <= 0)
    run.Refuse("Transformation not possible on non-positive numbers!");
}

struct TransformProcedure {
  std::string_view word;
  bool needs_positive;
  Sample (*run)(Run&, const ReferenceSample&);
};
constexpr TransformProcedure kTransformProcedures[] = {
    {"log", true, RunLog},
    {"power", true, RunPower},
    {"exponential", false, RunExponential},
    {"power-modulus", true, RunPowerModulus},
    {"exponential-modulus", false, RunExponentialModulus},
};

void RunReferenceInterval(Run& run) {
  const Form& form = run.form;
  const ReferenceSample sample = TakeSample(run);
  const bool direct = form.Is(kProcedure, "direct");
  const bool with_gaussian = direct && form.On(kShowGaussian);

  if (form.Is(kProcedure, "nonparametric")) {
    RunNonparametric(run, sample);
    DrawHistogram(run, sample, with_gaussian);
  } else if (direct) {
    CheckParametric(run, sample, false);
    RunDirect(run, sample);
    DrawHistogram(run, sample, with_gaussian);
    DrawCumulative(run, sample, with_gaussian);
  } else {
    const auto& procedure =
        *std::ranges::find(kTransformProcedures, form.Text(kProcedure), &TransformProcedure::word);
    CheckParametric(run, sample, procedure.needs_positive);
    const Sample TransformedValues = procedure.run(run, sample);
    DrawHistogram(run, sample, with_gaussian);
    DrawTransformed(run, TransformedValues);
  }
  // The histogram of the values is drawn first and shown last, above the others.
  std::rotate(run.plots.begin(), run.plots.begin() + 1, run.plots.end());
}

constexpr Procedure frmRefResults[] = {{
    .window = "frmRefResults",
    .title = "Quorval      Reference Interval",
    .menu = {.save = "&Save As"},
    .print_header = "/cReference Interval/rPage #/p/n",
    .plot_jobs = kPlotJobs,
    .failure = {.fault = "Error", .second = "Error", .aftermath = Aftermath::kWindowNotShown},
    .run = RunReferenceInterval,
}};

}  // namespace

constinit const Analysis kReference{
    .id = "reference",
    .dialog = &frmRefOptions,
    .procedures = frmRefResults,
    .manual = "reference-interval.md",
};

}  // namespace quorval::reference
