// Trueness profiles: the levels, and the charts of their true values and measured means.
#pragma once

#include <optional>
#include <vector>

#include "analyses/methodeval/method_evaluation.h"

namespace quorval::methodeval::trueness {

struct Level {
  Real T;                   // the true value
  Real mean;                // of the measured values
  std::optional<Real> SEM;  // the standard error of the mean, where it is known
  int N = 0;                // of raw data

  // Of the true value; none where that is 0.
  std::optional<Real> PercentMean() const { return PercentOf(mean, T); }
  std::optional<Real> PercentSEM() const { return SEM ? PercentOf(*SEM, T) : std::nullopt; }
};

// In percent of the true values, and in measured units.
void DrawProfile(Run& run, const std::vector<Level>& levels);

}  // namespace quorval::methodeval::trueness
