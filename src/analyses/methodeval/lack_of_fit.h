// The line through the means of a dilution series and its lack-of-fit test.
#pragma once

#include <span>

#include "analyses/methodeval/dilution_series.h"

namespace quorval::methodeval::linearity {

struct LackOfFit {
  Real b, a0;  // slope and intercept
  Real SEb, SEa0;
  Real s1sq, s2sq;  // mean squares within the sets of replicates, and of the means about the line
  Real pooled_sq;   // of the replicates about the line
  int df1, df2;     // N - k and k - 2 degrees of freedom of s1sq and s2sq
  int pooled_df;    // N - 2
  Real F, P;        // s2sq / s1sq

  Real At(Real x) const { return a0 + b * x; }
};

// By weighted least squares on the level means, each counted as often as it has replicates (Draper
// and Smith, Applied Regression Analysis, 1998, section 2.1).  Tells why it ends the run: fewer
// than three levels, x or replicates without dispersion.
LackOfFit FitLine(Messages& messages, std::span<const DilutionLevel> levels);

}  // namespace quorval::methodeval::linearity
