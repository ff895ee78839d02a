// Ranks whose values bound the 90 % confidence intervals of the two reference limits.
#pragma once

#include <optional>

#include "core/real.h"

namespace quorval::reference {

// a and b of the lower percentile, c and d of the upper one.
struct ConfidenceRanks {
  Real a, b, c, d;
};

// By table up to 1000 values (binomial probabilities: IFCC recommendation on the treatment of
// reference values, 1987), by the normal approximation of the binomial above; none below 120.
std::optional<ConfidenceRanks> FindConfidenceRanks(Real N);

}  // namespace quorval::reference
