#pragma once

#include <optional>
#include <span>

#include "analyses/regression/regression.h"

namespace quorval::regression {

// A straight line fitted by ordinary least squares.
struct LineFit {
  Real b, a0;  // slope and intercept
  Real se_b, se_a0;
  Real SDyx;  // residual SD, n - 2 degrees of freedom
  Real n, mean_x;
  Single Sxx;  // 32 bits: rounded at each addition

  Real At(Real u) const { return a0 + b * u; }
  // The standard error of the estimated y at u.
  Real SeAt(Real u) const { return SDyx * Sqrt(1 / n + Square(mean_x - u) / Sxx); }
};

// The least-squares line of y on x, at least 3 points; none when x has no dispersion that 32 bits
// can hold.
std::optional<LineFit> FitLeastSquares(std::span<const Real> x, std::span<const Real> y);

// The 95 % confidence bands of the line at the positions.
Bands ComputeBands(const LineFit& fit, const BandPositions& positions, Real tcrit);

}  // namespace quorval::regression
