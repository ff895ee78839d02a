#include "analyses/general/one_sample.h"
#include "analyses/outlier_list.h"

namespace quorval::general {
namespace {

void WriteOutliers(ResultsSheet& sheet, const OneSample& sample) {
  if (sample.outliers.count == 0) {
    sheet.Row(18, "  No outliers  ");
    sheet.Row(19, "  No. of SDs as outlier limit: ", sample.outlier_limit);
    return;
  }
  sheet.Row(18, "  Number of outlier(s) detected: ", sample.outliers.count);
  sheet.Row(19, "  Number of SDs as outlier limit: ", sample.outlier_limit);
  sheet.Row(20, "  Outliers: ");
  ListOutliers(sheet, 21, sample.outliers, sample.x);
}

void WriteUserPercentile(ResultsSheet& sheet, int row, std::string_view heading,
                         const std::optional<UserPercentile>& percentile) {
  if (!percentile) return;
  sheet.Row(row, heading);
  sheet.Row(row + 1, "  Percentile:", percentile->text);
  sheet.Row(row + 2, "  Value:", percentile->value);
  if (percentile->se)
    sheet.Row(row + 3, "  Bootstrap SE of User-specified percentile:", *percentile->se);
}

void WritePercentiles(ResultsSheet& sheet, const Percentiles& percentiles) {
  constexpr std::array<std::string_view, 9> kLabels{
      "  10-percentile:", "  20-percentile:", "  30-percentile:",
      "  40-percentile:", "  50-percentile:", "  60-percentile:",
      "  70-percentile:", "  80-percentile:", "  90-percentile:"};
  sheet.Row(27, "  Display of percentiles (nonparametric)");
  for (std::size_t i = 0; i < kLabels.size(); ++i)
    sheet.Row(28 + static_cast<int>(i), kLabels[i], percentiles.tens[i]);
  WriteUserPercentile(sheet, 37, "  User-specified percentile(s):", percentiles.user[0]);
  WriteUserPercentile(sheet, 41, "  User-specified percentile:", percentiles.user[1]);
}

}  // namespace

void WriteOneSample(Run& run, const OneSample& sample) {
  ResultsSheet& sheet = run.sheet;
  const Real N = sample.N();
  const Real skewness_sd = Sqrt(6 / N);
  sheet.Clear();
  sheet.Row(2, Bold{"  General statistics - one sample"});
  sheet.Row(3, "  Project:", run.context.ProjectName);
  sheet.Row(4, "  Analyte: ", sample.name.empty() ? " " : sample.name, "  Analyst: ", Blank{},
            "  Date: ");
  sheet.Row(5, "  Number of observations: ", static_cast<int>(sample.x.size()));
  sheet.Row(6, "  Minimum: ", sample.described.min);
  sheet.Row(7, "  Maximum: ", sample.described.max);
  sheet.Row(8, "  Median(see dot plot): ", sample.median);
  sheet.Row(9, "  Mean: ", sample.described.mean);
  sheet.Row(10, "  SD: ", sample.described.sd);
  sheet.Row(11, "  SEM: ", sample.described.sd / Sqrt(N));
  sheet.Row(12, "  Skewness: ", sample.skewness, "  SD of skewness: ", skewness_sd);
  sheet.Row(13, "  Kurtosis: ", sample.kurtosis, "  SD of kurtosis: ", 2 * skewness_sd);
  sheet.Row(15, "  Result of Normality test (Anderson-Darling): ");
  sheet.Row(16, "  P ", sample.normality_P);
  WriteOutliers(sheet, sample);
  if (sample.percentiles) WritePercentiles(sheet, *sample.percentiles);
}

}  // namespace quorval::general
