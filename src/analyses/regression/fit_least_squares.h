#pragma once

#include <optional>
#include <span>

#include "analyses/regression/regression.h"

namespace quorval::regression {

// A straight line fitted by least squares, all weights being 1 in the ordinary form.
struct LineFit {
  Real b, a0;  // slope and intercept
  Real se_b, se_a0;
  Real SDyx;        // residual SD, n - 2 degrees of freedom
  Real Sw, mean_x;  // sum of the weights, weighted mean
  Single Sxx;       // 32 bits: rounded at each addition

  Real At(Real u) const { return a0 + b * u; }
  // The standard error of the estimated y at u.
  Real SeAt(Real u) const { return SDyx * Sqrt(1 / Sw + Square(mean_x - u) / Sxx); }
};

// The least-squares line of y on x, at least 3 points; none when x has no dispersion that 32 bits
// can hold.
std::optional<LineFit> FitLeastSquares(std::span<const Real> x, std::span<const Real> y);

// The line's estimates, with their standard errors, at the levels.
Estimates EstimateAt(const LineFit& fit, const Levels& levels);

// The points about a line.
struct LeastSquaresResiduals : Residuals {
  Sample q;   // vertical, times the root of the weight
  Real SDyx;  // the SD shown, and the unit of z; the fit's own stays in the standard errors

  void Standardise() {
    for (Real weighted : q) z.push_back(weighted / SDyx);
  }
};
// SDyx and z are not computed yet.
LeastSquaresResiduals ResidualsOf(const LineFit& line, const Pairs& data, std::span<const Real> w);

}  // namespace quorval::regression
