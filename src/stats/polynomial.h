// Least-squares polynomials.
#pragma once

#include <span>

#include "core/real.h"

namespace quorval {

struct Polynomial {
  Sample b;  // b0, b1, ... of the powers of x
  Real s;    // residual scatter: the root of the residual sum of squares over N - 1, any degree

  // The estimated y at x.
  Real At(Real x) const;
};

inline namespace BNAMod {

// The polynomial of `degree` (at least 0) by least squares on the N points (x, y), by polynomials
// that are orthonormal on these points, with a three-term recurrence (Forsythe, 1957).  A Fault
// where x has too few different values.
Polynomial PolynomialFit(std::span<const Real> x, std::span<const Real> y, int degree);

}  // namespace BNAMod

}  // namespace quorval
