// One-way analysis of variance of measurements in groups, such as runs or samples.  A group is the
// replicates of one worksheet column; groups may differ in size.
#pragma once

#include <optional>
#include <span>

#include "core/real.h"

namespace quorval::methodeval {

struct PooledVariance {
  Real variance;
  int df;

  Real SD() const { return Sqrt(variance); }
};

// Within groups: the squared deviations from the groups' own means over their degrees of freedom.
// A Fault where no group has two values.
PooledVariance PoolWithin(std::span<const Sample> groups);

struct VarianceComponents {
  Real M;    // the mean of the group means, weighted by size: the mean of all values
  Real Sw;   // within groups
  Real MSB;  // mean square between groups
  Real nav;  // average group size
  // Between groups, and in total; none where the estimate of the variance between is negative.
  std::optional<Real> Sb{}, St{};
};

// By the method of moments (Searle, Casella and McCulloch, Variance Components, 1992, chapter 3).
// A Fault of a single group.
VarianceComponents EstimateComponents(std::span<const Sample> groups);

}  // namespace quorval::methodeval
