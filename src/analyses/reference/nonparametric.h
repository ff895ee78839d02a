// Nonparametric estimators: percentiles at positions on the sorted sample.
#pragma once

#include <string_view>

#include "analyses/reference/reference_sample.h"
#include "core/run.h"

namespace quorval::reference {

// Where the percentiles stand among N values.
struct PercentilePositions {
  Real median, lower, upper;
};
PercentilePositions PositionsByNHalf(Real N);   // (p/100)N + 0.5
PercentilePositions PositionsByNPlus1(Real N);  // (p/100)(N + 1)

struct NonparametricEstimate {
  Real median;
  ReferenceInterval interval;
};

// Percentiles at their positions, confidence limits at ranks.  The positions lie within the sample.
NonparametricEstimate EstimateSimple(std::span<const Real> sorted, const PercentilePositions& at);

// Means over R resamples, R at least 5; the limits are 1.645 SDs of the replicates around the mean
// (Efron and Tibshirani, An Introduction to the Bootstrap, 1993).
NonparametricEstimate EstimateByBootstrap(std::span<const Real> sorted,
                                          const PercentilePositions& at, int R);

// The estimator that the nonparametric dialog chooses, and its sheet.
void RunNonparametric(Run& run, const ReferenceSample& sample);

}  // namespace quorval::reference
