// The ROC curve of a test, its area and, where it is asked for, the area's standard error.
#pragma once

#include "analyses/diagnostic/options.h"

namespace quorval::diagnostic {

// Of groups that are sorted: the sheet, and the plot of the curve.
void EvaluateRocCurve(Run& run, const TwoGroups& groups);

}  // namespace quorval::diagnostic
