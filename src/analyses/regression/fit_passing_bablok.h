// The nonparametric line of Passing and Bablok (1983), with the shift iterated to the slope that it
// leads to.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "core/messages.h"
#include "core/real.h"

namespace quorval::regression {

// Spearman's coefficient; equal values have successive ranks in the order of the data.
Real RankCorrelation(std::span<const Real> x, std::span<const Real> y);

struct PassingBablokLine {
  Real b;
  Real bL, bU;         // 95 % confidence limits
  Real a0, aL, aU;     // the intercepts at b, bU and bL
  std::int64_t K = 0;  // the shift

  Real At(Real u) const { return b * u + a0; }
};

// The line through n points of which some differ in x.  Where the limits' ranks leave the list they
// and the intercepts are 0.  Tells "Error in rank sub" or "Error in slope iteration sub" of central
// slopes that have no rank or, where there are two, no geometric mean; there is then no line.
std::optional<PassingBablokLine> PassingBablokFit(Messages& messages, std::span<const Real> x,
                                                  std::span<const Real> y);

}  // namespace quorval::regression
