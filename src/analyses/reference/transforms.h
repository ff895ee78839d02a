// Transforms to symmetry with one constant, estimated from the sample.
#pragma once

#include <span>
#include <string_view>

#include "core/messages.h"
#include "core/real.h"

namespace quorval::reference {

struct Transform {
  Real (*forward)(Real x, Real c);
  Real (*inverse)(Real v, Real c);  // a Fault where v has no counterpart
  Real start;                       // of the search for c
  std::string_view fault;           // the words of the search
};

// (x^c - 1) / c, or ln x for c = 0, of positive values (Box and Cox, J R Stat Soc B 1964).
extern const Transform kPower;
// (exp(c x) - 1) / c, or x for c = 0 (Manly, The Statistician 1976).
extern const Transform kExponential;

struct SymmetricValues {
  Real SymmetryConstant;
  Sample y;  // transformed with it, ascending
};

// Walks from the transform's start to a constant that leaves a skewness of at most 0.01 in absolute
// value; each change of its sign halves the step.  A Failure after 40 iterations, without words,
// and of arithmetic, with the transform's own.
SymmetricValues SearchSymmetry(Messages& messages, const Transform& transform,
                               std::span<const Real> x);

// --- The modulus transform (John and Draper, Appl Stat 1980)

// s ((|z| + 1)^lambda - 1) / lambda, or s ln(|z| + 1) for lambda = 0; s is the sign of z.
Real ModulusTransform(Real z, Real lambda);
Real InverseModulus(Real v, Real lambda);

struct MesokurticValues {
  Real ModulusExponent;
  Sample w;  // transformed with it, ascending
};

// Walks to an exponent that leaves a kurtosis of less than 0.01 in absolute value.  After 40
// iterations it tells that there is no solution and gives the last one; of arithmetic it fails
// with words of its own.
MesokurticValues SearchModulus(Messages& messages, std::span<const Real> z);

}  // namespace quorval::reference
