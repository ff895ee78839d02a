// Specificity and sensitivity of a test at one cut-off.
#pragma once

#include "analyses/diagnostic/options.h"

namespace quorval::diagnostic {

// What stands on the sheet, and beside it.
struct ProportionRows {
  Quantity estimate, se, lower, upper;
};
inline constexpr Quantity kCutOff{"cut_off", "  Cut-Off value(dotted line): ", Unit::kMeasurand,
                                  Width::k32};
inline constexpr ProportionRows kSpecificity{{"specificity", "  Specificity with SE: "},
                                             {"specificity.se", "  Specificity with SE: "},
                                             {"specificity.lower", "  95%-conf. limits: "},
                                             {"specificity.upper", "  95%-conf. limits: "}};
inline constexpr ProportionRows kSensitivity{{"sensitivity", "  Sensitivity with SE: "},
                                             {"sensitivity.se", "  Sensitivity with SE: "},
                                             {"sensitivity.lower", "  95%-conf. limits: "},
                                             {"sensitivity.upper", "  95%-conf. limits: "}};
inline constexpr PlotWindow kGroupsPlot[] = {
    DiaPlot("Distribution of the two groups", "Test result", "Rel. Frequency")};

void EvaluateCutOff(Run& run);

}  // namespace quorval::diagnostic
