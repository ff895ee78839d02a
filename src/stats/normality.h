// Anderson and Darling's test of a Gaussian distribution whose mean and SD come from the sample.
#pragma once

#include <span>
#include <string>

#include "core/messages.h"
#include "core/real.h"

namespace quorval {

// What the corrected statistic is multiplied by where constants of a transform were estimated from
// the same sample, which makes it look more Gaussian than it is.  After two stages only a P above
// 0.15 speaks for a Gaussian distribution (Linnet, Clin Chem 1987;33:381-386): 1.4 takes about the
// percentage point of 0.15 (0.576) to that of 0.05 (0.787).  For one constant 1.2 takes that of
// 0.10 (0.656) there, which is this procedure's own choice.
inline constexpr double kNothingEstimated = 1;
inline constexpr double kOneConstantEstimated = 1.2;
inline constexpr double kTwoConstantsEstimated = 1.4;

// A P (" > 0.5", " < 0.01", or two decimals between) for a sorted sample.  Tells "Error in
// Anderson-Darling test" where it cannot be computed, as for values without spread or so far out
// that their probability rounds to 0; the text is then empty and the analysis goes on.
std::string AndersonDarling(Messages& messages, std::span<const Real> sorted,
                            Real factor = kNothingEstimated);

// The two steps of the test.

// A2 (1 + 4/N - 25/N^2), N at least 2.  A Fault where it cannot be computed.
Real AndersonDarlingStatistic(Messages& messages, std::span<const Real> sorted);

// P by linear interpolation between tabled percentage points of the statistic.
std::string AndersonDarlingP(Real A);

}  // namespace quorval
