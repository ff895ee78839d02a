// P of an F, without a table: the upper tail by the incomplete beta function.
#pragma once

#include "core/real.h"

namespace quorval {

inline namespace BNAMod {

// Gamma(x) for x > 0 by Stirling's series at 7 or above and the recurrence below.  A Fault above
// about 171, where it leaves the 64-bit floats.
Real GammaFunction(Real x);

// B(a, b) = Gamma(a) Gamma(b) / Gamma(a + b); a Fault where one of these overflows.
Real BetaFunction(Real a, Real b);

// The regularised I_x(a, b), 0 <= x <= 1, by its continued fraction (Abramowitz and Stegun,
// 26.5.8), which is always cut at the same depth: near x = (a + 1) / (a + b + 2) with large a and
// b the last digits are lost.
Real IncompleteBeta(Real a, Real b, Real x);

// P(F' > F) of the F distribution with df1 and df2 degrees of freedom.  A Fault where the sum of
// the two is above about 340.
Real FUpperTail(int df1, int df2, Real F);

}  // namespace BNAMod

}  // namespace quorval
