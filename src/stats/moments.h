// Shape of a distribution: moment coefficients by population moments (N in the denominators).
#pragma once

#include <span>

#include "core/messages.h"
#include "core/real.h"

namespace quorval {

// Tells "Error in skewness sub" where the values have no spread, or powers that overflow; the
// failure goes up.
Real Skewness(Messages& messages, std::span<const Real> y);

// Excess kurtosis: 0 for a Gaussian distribution.  A Fault where the values have no spread.
Real Kurtosis(std::span<const Real> y);

}  // namespace quorval
