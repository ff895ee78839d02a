#include "analyses/outlier_list.h"

namespace quorval {

void ListOutliers(ResultsSheet& sheet, int row, const OutlierMarks& outliers,
                  std::span<const Real> values, const NamedTable& table) {
  ListFirstMarked(sheet, table, outliers, row + kMostOutliersListed,
                  "  More than 5 outliers that are not displayed ",
                  [&](int listed, std::size_t i) { sheet.Row(row + listed, values[i]); });
}

}  // namespace quorval
