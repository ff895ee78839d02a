// The natural cubic spline through given points.
#pragma once

#include <span>

#include "core/real.h"

namespace quorval {

inline namespace BNAMod {

struct Spline {
  Sample x, y;  // the knots by ascending x
  Sample y2;    // the second derivatives there; 0 at both ends
};

// The spline through the points (x, y), at least 2, in any order.  A Fault where two x are equal.
Spline SplineSetup(std::span<const Real> x, std::span<const Real> y);

// Its value at X; outside the knots the nearest piece goes on.
Real SplineEvaluate(const Spline& spline, Real X);

}  // namespace BNAMod

}  // namespace quorval
