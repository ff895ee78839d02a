#include "analyses/method_comparison.h"

namespace quorval {

Sample MeansOf(std::span<const Real> a, std::span<const Real> b) {
  Sample means;
  means.reserve(a.size());
  for (std::size_t i = 0; i < a.size(); ++i) means.push_back((a[i] + b[i]) / 2);
  return means;
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
    sheet.Row(rows.count, quantity::kOutliers(outliers.count));
  } else {
    sheet.Row(rows.count, "  No outliers identified");
  }
  sheet.Row(rows.count + 1, quantity::kOutlierLimit(Real(limit)));
  const ResultsSheet::Listing listing(sheet, kOutlierList);
  for (int row = rows.first; std::size_t i : FirstMarked(outliers, kMostOutliersListed)) {
    sheet.Row(row++, "  No.", static_cast<int>(i) + 1);
    sheet.Row(row++, "  Outlier (x, y)", x[i], y[i]);
  }
  if (outliers.count > kMostOutliersListed)
    sheet.Row(rows.more, "More than 5 outlier pairs which are not displayed ");
}

}  // namespace quorval
