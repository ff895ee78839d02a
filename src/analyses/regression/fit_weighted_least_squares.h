#pragma once

#include <optional>
#include <span>

#include "analyses/regression/fit_least_squares.h"
#include "analyses/regression/weighting.h"

namespace quorval::regression {

// A line by weighted least squares.  Its SDyx is the factor of proportionality: a point of weight w
// scatters about the line with the SD SDyx / sqrt(w).
struct WeightedLineFit : LineFit {
  Real rw;   // weighted correlation
  Sample w;  // one for each point
};

// The line of y on x, at least 3 points, each weighing 1 / x^P or, below the limit of truncation,
// 1 / T^P.  None where a weight or a sum cannot be formed.
std::optional<WeightedLineFit> FitWeightedLeastSquares(std::span<const Real> x,
                                                       std::span<const Real> y,
                                                       const Weighting& weighting);

}  // namespace quorval::regression
