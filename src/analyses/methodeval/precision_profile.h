// Precision profiles: the levels, and the plots of their SDs and CVs.
#pragma once

#include <optional>
#include <vector>

#include "analyses/methodeval/method_evaluation.h"

namespace quorval::methodeval::precision_profile {

struct Level {
  Real x, SD;
  std::optional<Real> CV;  // percent; none at level 0
  int N = 0;               // of raw data
};

inline Level LevelOf(Real x, Real SD, int N = 0) { return {x, SD, PercentOf(SD, Abs(x)), N}; }

bool HasUndefinedCV(const std::vector<Level>& levels);

// Both plots, or that of the SDs alone where a CV is not defined.  The curves are splines or
// straight lines.  A Fault of a spline through equal levels, or through one.
void DrawProfile(Run& run, const std::vector<Level>& levels, bool smooth);

}  // namespace quorval::methodeval::precision_profile
