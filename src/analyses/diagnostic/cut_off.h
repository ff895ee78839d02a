// Specificity and sensitivity at one cut-off.
#pragma once

#include "analyses/diagnostic/options.h"

namespace quorval::diagnostic {

// Of groups that are sorted: the sheet, and the plot of the groups.
void EvaluateCutOff(Run& run, const TwoGroups& groups);

}  // namespace quorval::diagnostic
