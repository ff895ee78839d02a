// The difference plots of two methods that measured every sample twice (results window frmBAd).
#pragma once

#include "core/run.h"

namespace quorval::difference {

// On the means of the replicates, with estimated limits.  What is relative is left out without a
// word when a measurement is zero or negative.
void RunDuplicate(Run& run);

}  // namespace quorval::difference
