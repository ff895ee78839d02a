// Nonparametric estimators: percentiles at positions on the sorted sample.
#pragma once

#include <optional>
#include <span>

#include "analyses/reference/reference_interval.h"

namespace quorval::reference {

// Where the percentiles stand among N values.
struct PercentilePositions {
  Real median, lower, upper;
};
PercentilePositions PositionsByNHalf(Real N);   // (p/100)N + 0.5
PercentilePositions PositionsByNPlus1(Real N);  // (p/100)(N + 1)

// Ranks whose values bound the 90 % confidence intervals: a and b of the lower percentile, c and d
// of the upper one.
struct ConfidenceRanks {
  Real a, b, c, d;
};

// By table up to 1000 values (binomial probabilities: IFCC recommendation on the treatment of
// reference values, 1987), by the normal approximation of the binomial above; none below 120.
std::optional<ConfidenceRanks> FindConfidenceRanks(Real N);

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

}  // namespace quorval::reference
