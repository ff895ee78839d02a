#include "analyses/reference/nonparametric.h"

#include <algorithm>

#include "analyses/reference/confidence_ranks.h"
#include "analyses/reference/options.h"
#include "analyses/reference/sheet_blocks.h"
#include "core/failure.h"
#include "stats/percentile.h"
#include "stats/resampling.h"

namespace quorval::reference {
namespace {

struct Estimator {
  std::string_view word;  // of the percentile rule
  PercentilePositions (*positions)(Real N);
  bool bootstrap;
  int lower_margin;  // the lower position may reach N less this
  std::string_view analyte_label, procedure, rule;
};
constexpr Estimator kEstimators[] = {
    {"simple-n-half", PositionsByNHalf, false, 1, kAnalyte,
     "  Simple nonparametric procedure (default)",
     "  Percentiles as (2.5/100)N+0.5 and (97.5/100)N+0.5"},
    {"simple-n-plus-1", PositionsByNPlus1, false, 1, kVariable, "  Simple nonparametric procedure ",
     "  Percentiles as (2.5/100)(N+1) and (97.5/100)(N+1)"},
    {"bootstrap-n-half", PositionsByNHalf, true, 0, kAnalyte,
     "  Bootstrap nonparametric procedure ", "  Bootstraps of (2.5/100)N+0.5 and (97.5/100)N+0.5"},
    {"bootstrap-n-plus-1", PositionsByNPlus1, true, 1, kVariable,
     "  Bootstrap nonparametric procedure ", "  Bootstraps of (2.5/100)(N+1) and (97.5/100)(N+1)"},
};

// Reads the number of replications; fewer than 5 are refused.
int TakeReplications(Run& run) {
  const int R = Insist(run.messages, "Error", [&] { return run.form.Column(kReplications); });
  if (R < 5) {
    run.messages.Tell("No. of bootstrap replications < 5: No analysis!");
    throw Failure{};
  }
  return R;
}

void CheckPositions(Run& run, const Estimator& estimator, const PercentilePositions& at, Real N) {
  const auto refuse = [&](std::string_view words) {
    if (estimator.bootstrap) {
      Note(run.notices, {"arithmetic", Counted(static_cast<std::size_t>(Raw(N)), "value") +
                                           " are too few for the 2.5th and 97.5th percentile "
                                           "by this rule"});
    }
    run.messages.Tell(estimator.bootstrap ? "Error" : words);
    throw Failure{};
  };
  if (at.lower < 1 || at.lower > N - estimator.lower_margin)
    refuse("The desired lower percentile is too extreme in relation to sample size!");
  if (at.upper > N || at.upper < 1)
    refuse("The desired upper percentile is too extreme in relation to sample size!");
}

NonparametricEstimate Estimate(Run& run, const Estimator& estimator,
                               const ReferenceSample& sample) {
  const int R = estimator.bootstrap ? TakeReplications(run) : 0;
  const PercentilePositions at = estimator.positions(sample.N());
  CheckPositions(run, estimator, at, sample.N());
  return estimator.bootstrap ? EstimateByBootstrap(sample.RefValues, at, R)
                             : EstimateSimple(sample.RefValues, at);
}

}  // namespace

PercentilePositions PositionsByNHalf(Real N) {
  return {MedianPosition(N), 0.025 * N + 0.5, 0.975 * N + 0.5};
}

PercentilePositions PositionsByNPlus1(Real N) {
  return {MedianPosition(N), 0.025 * (N + 1), 0.975 * (N + 1)};
}

NonparametricEstimate EstimateSimple(std::span<const Real> sorted, const PercentilePositions& at) {
  NonparametricEstimate estimate{
      .median = AtPosition(sorted, at.median),
      .interval = {{AtPosition(sorted, at.lower)}, {AtPosition(sorted, at.upper)}}};
  if (const auto ranks = FindConfidenceRanks(sorted.size())) {
    estimate.interval.lower.confidence = {AtRank(sorted, ranks->a), AtRank(sorted, ranks->b)};
    estimate.interval.upper.confidence = {AtRank(sorted, ranks->c), AtRank(sorted, ranks->d)};
  }
  return estimate;
}

NonparametricEstimate EstimateByBootstrap(std::span<const Real> sorted,
                                          const PercentilePositions& at, int R) {
  const Sample positions{at.median, at.lower, at.upper};
  const auto estimates = BootstrapPositions(sorted, positions, R);
  const auto percentile = [](const BootstrapEstimate& estimate) {
    return Percentile{estimate.mean, LimitsAround(estimate.mean, estimate.sd)};
  };
  return {estimates[0].mean, {percentile(estimates[1]), percentile(estimates[2])}};
}

void RunNonparametric(Run& run, const ReferenceSample& sample) {
  const auto& estimator =
      *std::ranges::find(kEstimators, run.form.Text(kPercentileRule), &Estimator::word);
  const NonparametricEstimate estimate = Estimate(run, estimator, sample);
  WriteHead(run, sample, estimator.analyte_label, estimator.procedure, estimator.rule);
  run.sheet.Row(11, "  Median: ", estimate.median);
  run.sheet.Row(12, "  Nonparametric reference interval estimates: ");
  WriteInterval(run.sheet, 13, estimate.interval);
}

}  // namespace quorval::reference
