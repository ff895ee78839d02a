#include "analyses/method_comparison.h"

namespace quorval {

Sample MeansOf(std::span<const Real> a, std::span<const Real> b) {
  Sample means;
  means.reserve(a.size());
  for (std::size_t i = 0; i < a.size(); ++i) means.push_back((a[i] + b[i]) / 2);
  return means;
}

void WriteXYColumns(ResultsSheet& sheet, int count, const std::array<int, 4>& columns) {
  const auto& [n, x, y, x1, x2, y1, y2] = kHeadQuantities;
  sheet.Row(6, n(count));
  sheet.Row(7, x(columns[0]));
  sheet.Row(8, y(columns[1]));
}

Points Select(std::span<const Real> x, std::span<const Real> y, const OutlierMarks& outliers,
              bool marked) {
  Points points;
  for (std::size_t i = 0; i < x.size(); ++i)
    if (outliers.flags[i] == marked) points.push_back({x[i], y[i]});
  return points;
}

void WriteOutliers(ResultsSheet& sheet, const OutlierRows& rows, const OutlierMarks& outliers,
                   Single limit, std::span<const Real> x, std::span<const Real> y) {
  if (outliers.count > 0) {
    sheet.Row(rows.count, rows.outliers(outliers.count));
  } else {
    sheet.Row(rows.count, "  No outliers identified");
  }
  sheet.Row(rows.count + 1, rows.outlier_limit(Real(limit)));
  ListFirstMarked(sheet, rows.list, outliers, rows.more,
                  "More than 5 outlier pairs which are not displayed ",
                  [&](int listed, std::size_t i) {
                    const int row = rows.first + 2 * listed;
                    sheet.Row(row, "  No.", static_cast<int>(i) + 1);
                    sheet.Row(row + 1, "  Outlier (x, y)", x[i], y[i]);
                  });
}

}  // namespace quorval
