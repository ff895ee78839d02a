// Outliers on a sheet: all are counted, the first five are listed.
#pragma once

#include <span>
#include <string_view>

#include "core/results_sheet.h"
#include "stats/primitives.h"

namespace quorval {

inline constexpr int kMostOutliersListed = 5;

// Calls `write` for each of the first five that are marked, with the number of those listed before
// it and with its place among the values, both from 0.  Where there are more, `words` say so in the
// row `more`.
template <class Write>
void ListFirstMarked(ResultsSheet& sheet, const NamedTable& table, const OutlierMarks& outliers,
                     int more, std::string_view words, Write&& write) {
  const ResultsSheet::Listing listing(sheet, table);
  for (int listed = 0; std::size_t i : FirstMarked(outliers, kMostOutliersListed))
    write(listed++, i);
  if (outliers.count > kMostOutliersListed) sheet.Row(more, words);
}

inline constexpr NamedTable kOutlierValues{"outlier_values", "The first five outliers"};

// The values themselves in column 1, from this row down.
void ListOutliers(ResultsSheet& sheet, int row, const OutlierMarks& outliers,
                  std::span<const Real> values, const NamedTable& table = kOutlierValues);

}  // namespace quorval
