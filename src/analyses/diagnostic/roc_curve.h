// The ROC curve of a test, its area and, where it is asked for, the area's standard error.
#pragma once

#include "analyses/diagnostic/options.h"

namespace quorval::diagnostic {

// What stands on the sheet, and beside it.
inline constexpr Quantity kArea{"area", "  Area under ROC-Curve:  "};
inline constexpr Quantity kAreaSe{"area.se", "  SE of Area:  "};
inline constexpr Quantity kAreaLower{"area.lower", "  0.95-Confidence limits: "};
inline constexpr Quantity kAreaUpper{"area.upper", "  0.95-Confidence limits: "};
inline constexpr PlotWindow kRocPlot[] = {RocPlot("ROC-curve")};

void EvaluateRocCurve(Run& run);

}  // namespace quorval::diagnostic
