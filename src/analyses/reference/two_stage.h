// Two-stage estimators: a transform to symmetry, then the modulus transform of the standardised
// values, which removes kurtosis (Boyd and Lacher, Clin Chem 1982;28:1735-1741).
#pragma once

#include "analyses/reference/reference_sample.h"
#include "core/run.h"

namespace quorval::reference {

// Each with its sheet.  The transformed values are handed back for the plots.
Sample RunPowerModulus(Run& run, const ReferenceSample& sample);
Sample RunExponentialModulus(Run& run, const ReferenceSample& sample);

}  // namespace quorval::reference
