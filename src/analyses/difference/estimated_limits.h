// The limits of agreement estimated from the differences (Bland and Altman, Lancet 1986;1:307-310),
// by Student's t in place of 1.96.
#pragma once

#include <span>
#include <string_view>

#include "core/messages.h"
#include "core/real.h"
#include "stats/primitives.h"

namespace quorval::difference {

struct EstimatedLimits {
  Real mean, SD, SE;        // of the differences; n - 1 in the denominator of the SD
  Real t;                   // of the mean difference against 0, n - 1 degrees of freedom
  std::string_view P;       // its class
  Real t95;                 // two-sided, n - 1 degrees of freedom
  Real lower, upper;        // mean -/+ t95 SD: of single differences, not of their mean
  Real r;                   // of the differences' size with the pair mean
  std::string_view P_of_r;  // its class, n - 2 degrees of freedom
  OutlierMarks outliers;
};

// Of one scale: absolute, fractional or percent differences, at least 3.  Differences that do not
// vary are a Fault.  Differences all of one size have no correlation, which is told, and r is 0.
// Outliers are marked on a 32-bit copy of the differences.
EstimatedLimits EstimateLimits(Messages& messages, std::span<const Real> pair_mean,
                               std::span<const Real> difference, Single outlier_limit);

}  // namespace quorval::difference
