// Acceptance limits of agreement that the user sets, and the test of the proportion of differences
// that lie outside them.
#pragma once

#include <span>

#include "core/real.h"

namespace quorval::difference {

enum class LimitKind { kConstant, kPercentage, kConstantThenPercentage };  // A, B and C

struct UserLimits {
  LimitKind kind;
  Single constant{};  // A and C: in units of the measurements
  Single division{};  // C: the largest pair mean to which the constant limits hold
  Single percent{};   // B and C: percent of the pair mean

  bool IsConstantAt(Real mean) const {
    return kind == LimitKind::kConstant ||
           (kind == LimitKind::kConstantThenPercentage && mean <= division);
  }
};

// How many in a hundred pairs lie outside the limits; a value at a limit is inside.  `relative`
// holds the differences in percent or as fractions, and `relative_limit` the limit likewise.
Real ProportionOutside(const UserLimits& limits, Real relative_limit, std::span<const Real> mean,
                       std::span<const Real> difference, std::span<const Real> relative);

enum class Agreement { kAgrees, kDoesNotAgree, kNotTested };

// Tests the null hypothesis that at least 95 % of the differences lie within the limits, by a table
// of the smallest percentage within them that agrees with it; from 20 to 1000 pairs.
Agreement TestProportion(int n, Real proportion_outside);

}  // namespace quorval::difference
