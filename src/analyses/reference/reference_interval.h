// What every estimator of a reference interval ends in.
#pragma once

#include <optional>

#include "core/real.h"

namespace quorval::reference {

struct Limits {
  Real lower, upper;
};

struct Percentile {
  Real value;
  std::optional<Limits> confidence{};  // 90 %; none where the sample is too small
};

// The percentiles 2.5 and 97.5.
struct ReferenceInterval {
  Percentile lower, upper;
};

// The normal deviate of a two-sided 90 % confidence interval.
inline constexpr double kDeviateOf90 = 1.645;

// Estimate -/+ 1.645 of its standard errors.
inline Limits LimitsAround(Real estimate, Real se) {
  return {estimate - kDeviateOf90 * se, estimate + kDeviateOf90 * se};
}

}  // namespace quorval::reference
