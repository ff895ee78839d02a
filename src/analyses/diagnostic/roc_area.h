// The area under a ROC curve, and its standard error by resampling.
#pragma once

#include "analyses/diagnostic/cut_off_sweep.h"
#include "core/messages.h"

namespace quorval::diagnostic {

// By the trapezoid rule over the points (1 - specificity, sensitivity) of the sweep.  A value of
// both samples counts half: but for rounding, this is the Mann-Whitney U over N1 N2.
Real AreaUnder(const CutOffSweep& sweep);

// The areas of B resamples of ascending samples, each of at most 9999 values.
Sample ResampleAreas(Messages& messages, std::span<const Real> first, std::span<const Real> second,
                     int B);

}  // namespace quorval::diagnostic
