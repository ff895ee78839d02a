#include "analyses/outlier_list.h"

namespace quorval {

void ListOutliers(ResultsSheet& sheet, int row, const OutlierMarks& outliers,
                  std::span<const Real> values) {
  constexpr int kMostListed = 5;
  const ResultsSheet::Listing listing(sheet, kOutlierValues);
  int listed = 0;
  for (std::size_t i = 0; i < values.size() && listed < kMostListed; ++i)
    if (outliers.flags[i]) sheet.Row(row + listed++, values[i]);
  if (outliers.count > kMostListed)
    sheet.Row(row + kMostListed, "  More than 5 outliers that are not displayed ");
}

}  // namespace quorval
