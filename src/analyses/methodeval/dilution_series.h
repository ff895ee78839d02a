// A dilution series measured with replicates: one worksheet column for each level, headed by its x.
#pragma once

#include <vector>

#include "analyses/methodeval/method_evaluation.h"

namespace quorval::methodeval::linearity {

struct DilutionLevel {
  Real x;
  Sample y;    // replicates
  Real mean;   // of y
  Real w = 1;  // weight of each replicate

  Real n() const { return y.size(); }
};

struct DilutionSeries {
  ColumnSpan columns;
  std::vector<DilutionLevel> levels{};  // in the order of the columns

  int k() const { return static_cast<int>(levels.size()); }
  int N() const;  // of all replicates
};

inline constexpr Field kStartColumn{.key = "start-column",
                                    .caption = "Reading x and y values from column No. (Start):",
                                    .demand = kDataColumn};
inline constexpr Field kLastColumn{
    .key = "last-column", .caption = "Column No. (Last):", .demand = kDataColumn};

// At least three levels of at least two replicates, from the columns 1 to 30.
DilutionSeries ReadDilutionSeries(Run& run);

}  // namespace quorval::methodeval::linearity
