// What the plot window of the diagnostic tests shows.
#pragma once

#include "analyses/diagnostic/cut_off_sweep.h"
#include "analyses/diagnostic/diagnostic.h"

namespace quorval::diagnostic {

// Histograms of the relative frequencies of both groups in classes of the same width, and the
// cut-off as a dotted line.
void DrawGroups(Run& run, const TwoGroups& groups, Single CutOff);

// From (1, 1) to (0, 0).
void DrawRocCurve(Run& run, const CutOffSweep& sweep);
void DrawRocCurves(Run& run, const CutOffSweep& test1, const CutOffSweep& test2);

}  // namespace quorval::diagnostic
