// Significance by printed tables of critical values: a class of P, never its value.
#pragma once

#include <span>
#include <string_view>

#include "core/messages.h"
#include "core/real.h"

namespace quorval {

inline namespace MCregaM2 {

// Student's t for two-sided P = 0.05: tabled to 30 degrees of freedom, straight lines between knots
// to 120, 1.96 above; 0 below 1 degree.
Real CriticalT05(Real df);

// The class of the two-sided P of Student's t, of either sign.  Tabled for whole df from 1 to 29,
// linear between knots to 1000; empty where no row applies.
std::string_view TPClass(Real df, Real t);

// The class of the two-sided P of a correlation coefficient, of either sign; from 200 degrees of
// freedom on there are three classes only.
std::string_view CorrelationPClass(Real df, Real r);

// The one-sided runs test on the signs of residuals in data order: too few runs tell of a deviation
// from linearity.  By table (Swed and Eisenhart, 1943) up to 10 residuals of the rarer sign, by the
// normal approximation above.  Tells "Error in Linearity test" of an arithmetic failure, which goes
// up.
std::string_view RunsTestClass(Messages& messages, std::span<const Real> residuals);

}  // namespace MCregaM2

// An estimate against its expected value, by Student's t.
struct TTest {
  Real estimate, se;
  Real t;
  Real lower, upper;  // 95 % confidence limits
  std::string_view P;
};

// A SE of 0 is a Fault.
TTest TestAgainst(Real expected, Real estimate, Real se, Real df);

}  // namespace quorval
