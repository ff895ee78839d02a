#include "analyses/reference/sheet_blocks.h"

#include "analyses/outlier_list.h"

namespace quorval::reference {
namespace {

void WritePercentile(ResultsSheet& sheet, int row, std::string_view label,
                     const Percentile& percentile) {
  sheet.Row(row, label, percentile.value);
  if (const auto& limits = percentile.confidence) {
    sheet.Row(row + 1, "  90%-confidence interval:", limits->lower, limits->upper);
  } else {
    sheet.Row(row + 1, "  90%-confidence interval cannot be estimated ");
  }
}

}  // namespace

void WriteHead(Run& run, const ReferenceSample& sample, std::string_view analyte_label,
               std::string_view procedure, std::string_view rule) {
  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  sheet.Row(2, Bold{"  Results of Reference interval estimation"});
  sheet.Row(3, "  Project:", run.context.ProjectName);
  sheet.Row(4, "  Analyst: ", Blank{}, "  Date: ");
  sheet.Row(5, analyte_label, sample.AnalyteName.empty() ? " " : sample.AnalyteName);
  sheet.Row(7, Bold{procedure});
  if (!rule.empty()) sheet.Row(8, rule);
  sheet.Row(9, "  Number of observations: ", sample.N());
  sheet.Row(10, "  Total range: ", sample.RefValues.front(), sample.RefValues.back());
}

void WriteInterval(ResultsSheet& sheet, int row, const ReferenceInterval& interval) {
  WritePercentile(sheet, row, "  2.5-Percentile:   ", interval.lower);
  WritePercentile(sheet, row + 2, "  97.5-Percentile:   ", interval.upper);
}

void WriteOutliers(ResultsSheet& sheet, const OutlierRows& rows, const OutlierMarks& outliers,
                   Real limit, std::span<const Real> values) {
  constexpr std::string_view kLimit = "  Number of SDs as outlier limit: ";
  if (outliers.count == 0) {
    sheet.Row(rows.count, "  No outliers  ");
    sheet.Row(rows.count + 1, kLimit, limit);
    return;
  }
  sheet.Row(rows.count, "  Number of outlier(s) detected: ", Real(outliers.count));
  sheet.Row(rows.limit, kLimit, limit);
  sheet.Row(rows.heading, rows.words);
  ListOutliers(sheet, rows.heading + 1, outliers, values);
}

}  // namespace quorval::reference
