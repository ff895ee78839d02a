// The options of the difference plots: the dialog frmBAOpt and, behind its button, frmBASupplOpt.
#pragma once

#include <string_view>

#include "analyses/difference/user_limits.h"
#include "analyses/method_comparison.h"

namespace quorval::difference {

extern const Dialog frmBAOpt;

// Whether relative differences are fractions of the pair mean or percent of it.
struct Scale {
  bool percent = false;

  // The relative difference of a pair with this mean.  A mean of 0 is a Fault.
  Real Relative(Real difference, Real mean) const {
    return percent ? 100 * difference / mean : difference / mean;
  }
  // A percentage as a number of this scale, and back.
  Real FromPercent(Real value) const { return percent ? value : value / 100; }
  Real ToPercent(Real value) const { return percent ? value : value * 100; }

  // The text for this scale.
  std::string_view Word(std::string_view fraction_text, std::string_view percent_text) const {
    return percent ? percent_text : fraction_text;
  }
};

struct Options {
  Scale scale;
  Single outlier_limit;  // in SDs
  bool show_data;
};

Options ReadOptions(const Form& form);

// While frmBASupplOpt holds no limits of the user's.
inline constexpr When kLimitsEstimated{"limits", "none"};

// The limits set in frmBASupplOpt.  An empty field or a word in it is a Fault.
UserLimits ReadUserLimits(const Form& form);

}  // namespace quorval::difference
