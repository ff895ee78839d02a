// Standard errors by leaving out one row at a time (Linnet, 1990).
#pragma once

#include <span>

#include "analyses/regression/fit_deming.h"
#include "analyses/regression/regression.h"

namespace quorval::regression {

struct JackknifeErrors {
  Real se_b, se_a0;
  Estimates estimates;  // of the full line, with their standard errors
};

// The SD of the pseudovalues n Q - (n - 1) Q(j) over the root of n, for the slope, the intercept
// and the estimates at the levels.  Q is the full line's, Q(j) that of the line without row j.  The
// estimate stays Q; their mean plays no part.
JackknifeErrors Jackknife(Messages& messages, const DemingLine& line,
                          std::span<const DemingLine> without_each, const Levels& levels);

}  // namespace quorval::regression
