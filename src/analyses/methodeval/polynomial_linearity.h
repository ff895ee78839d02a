// The deviation of a dilution series from linearity, as a polynomial describes it.
#pragma once

#include <optional>
#include <vector>

#include "analyses/methodeval/dilution_series.h"
#include "stats/polynomial_tests.h"

namespace quorval::methodeval::linearity {

// The scatter of the replicates.
struct Repeatability {
  Sample differences;                        // of each level: largest less smallest replicate
  std::vector<std::optional<Real>> percent;  // of the level mean; none where that is 0
  Real pooled_SD;
  std::optional<Real> pooled_CV;  // percent; only where every level mean is above 0
};

Repeatability EvaluateRepeatability(std::span<const DilutionLevel> levels);

// A polynomial on all single pairs, with its residual SD.
struct Curve {
  Polynomial fit;
  PolynomialSums sums;

  Real SDyx() const { return sums.SDyx(); }
};

// The test of the last coefficient against zero, by the supplementary F-test.
struct LastCoefficient {
  Real F, P;   // both 0 where the test was not made
  Real t, SE;  // t has the sign of the coefficient and the square F
};

struct Deviation {
  Real polynomial, line;        // predicted
  Real D;                       // the first less the second
  std::optional<Real> percent;  // of the line; none where that is 0
};

struct PolynomialLinearity {
  Curve polynomial, line;
  LastCoefficient last;
  std::vector<Deviation> deviations;  // of each level
};

// Degree g, 2 or 3.  Refused above the number of pairs less one; a Fault where the levels have too
// few different x.
PolynomialLinearity EvaluatePolynomial(Messages& messages, std::span<const DilutionLevel> levels,
                                       int g);

}  // namespace quorval::methodeval::linearity
