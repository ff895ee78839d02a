#include "analyses/reference/sheet_blocks.h"

namespace quorval::reference {

void WriteHead(ResultsSheet& sheet, std::string_view title, std::string_view analyte_label,
               const std::string& AnalyteName, std::span<const Real> RefValues) {
  const auto& [n, min, max] = kHeadQuantities;
  sheet.Frame("  Results of Reference interval estimation", DateBeside::kAnalyst);
  sheet.Row(5, analyte_label, AnalyteName.empty() ? " " : AnalyteName);
  sheet.Row(7, Bold{title});
  sheet.Row(9, n(Real(RefValues.size())));
  sheet.Row(10, min(RefValues.front()), max(RefValues.back()));
}

namespace {

void WritePercentile(ResultsSheet& sheet, int row, const PercentileRows& rows,
                     const Percentile& percentile) {
  sheet.Row(row, rows.value(percentile.value));
  if (const auto& limits = percentile.confidence)
    sheet.Row(row + 1, rows.lower(limits->lower), rows.upper(limits->upper));
  else
    sheet.Row(row + 1, "  90%-confidence interval cannot be estimated ");
}

}  // namespace

void WriteInterval(ResultsSheet& sheet, int row, const ReferenceInterval& interval) {
  WritePercentile(sheet, row, kLowerRows, interval.lower);
  WritePercentile(sheet, row + 2, kUpperRows, interval.upper);
}

void WriteOutliers(ResultsSheet& sheet, const OutlierBlock& block, Single limit,
                   const OutlierMarks& outliers, std::span<const Real> values) {
  if (outliers.count == 0) {
    sheet.Row(block.count, "  No outliers  ");
    sheet.Row(block.count + 1, block.outlier_limit(Real(limit)));
    return;
  }
  sheet.Row(block.count, block.outliers(Real(outliers.count)));
  sheet.Row(block.limit, block.outlier_limit(Real(limit)));
  sheet.Row(block.heading, block.words);
  ListOutliers(sheet, block.heading + 1, outliers, values, block.values);
}

}  // namespace quorval::reference
