#pragma once

#include <span>

#include "core/results_sheet.h"
#include "stats/primitives.h"

namespace quorval {

inline constexpr NamedTable kOutlierValues{"outlier_values", "The first five outliers"};

// The first five of the marked values in column 1, from this row down, and a line where there are
// more.
void ListOutliers(ResultsSheet& sheet, int row, const OutlierMarks& outliers,
                  std::span<const Real> values);

}  // namespace quorval
