// The Gaussian distribution: its cumulative function, and its curves in plots.
#pragma once

#include <span>

#include "core/messages.h"
#include "core/plot.h"
#include "stats/primitives.h"

namespace quorval {

// The cumulative standard normal by the polynomial 26.2.17 of Abramowitz and Stegun, Handbook of
// Mathematical Functions (1964), with constants of seven digits; off by less than 2.5e-7.  Tells
// "Error in cumulative Gauss routine" where z^2 overflows; the result is then 0.
Real CumGauss(Messages& messages, Real z);

// Curves of 100 points at equal steps from the smallest of the described values to the largest.
// A Fault where the values have no spread.

// The density, multiplied by `scale`: the class width makes it comparable to relative frequencies.
Points DensityCurve(const Description& values, Real scale);
// CumGauss of the standardised abscissae.
Points CumulativeCurve(Messages& messages, const Description& values);

// The sorted values against i / N.
Points CumulativeFrequencies(std::span<const Real> sorted);

}  // namespace quorval
