// The blocks of rows that the sheets of the procedures share.
#pragma once

#include <string_view>

#include "analyses/reference/reference_sample.h"
#include "core/run.h"
#include "stats/primitives.h"

namespace quorval::reference {

// Row 5 bears one of two labels.
inline constexpr std::string_view kAnalyte = "  Analyte: ";
inline constexpr std::string_view kVariable = " Variable:";

// Clears the sheet and writes rows 2 to 10.
void WriteHead(Run& run, const ReferenceSample& sample, std::string_view analyte_label,
               std::string_view procedure, std::string_view rule = {});

// Four rows: each percentile, and its confidence interval below it.
void WriteInterval(ResultsSheet& sheet, int row, const ReferenceInterval& interval);

// Where an outlier block stands, and how its list is headed.
struct OutlierRows {
  int count;
  int limit;    // where outliers were found; directly below the count otherwise
  int heading;  // the values stand in the five rows below it, and what is not listed below these
  std::string_view words;
};
inline constexpr OutlierRows kOutlierRows{22, 24, 25, "  Outliers: "};
inline constexpr OutlierRows kTransformedOutlierRows{39, 40, 41, "  Outliers (transformed): "};

// The number of marked values, the limit, and the first five of them.
void WriteOutliers(ResultsSheet& sheet, const OutlierRows& rows, const OutlierMarks& outliers,
                   Real limit, std::span<const Real> values);

}  // namespace quorval::reference
