// Detection limit and lower limit of quantitation as multiples of the SD of a low or zero sample.
// Outliers are listed, and stay in the estimate.
#include "analyses/methodeval/detection_limit.h"

namespace quorval::methodeval::detection {
namespace {

constexpr int kMostOutliersListed = 3;

// The measurements of a low sample, and a multiple of their SD.
struct LowSample {
  Column column;
  Sample x{};
  Description d{};
  Real sds{};
  Real outlier_limit{};
  OutlierMarks outliers{};

  int Count() const { return static_cast<int>(x.size()); }
  Real Limit() const { return sds * d.sd; }
};

LowSample MeasureLowSample(Run& run, const Field& column_field, const Field& sds_field) {
  LowSample sample{.column = ReadColumn(run, TakeColumn(run, column_field))};
  sample.x = sample.column.Numbers(run.notices);
  if (sample.x.size() < 2) run.Refuse(" Sample size < 2: No analysis ");
  const Range range = RangeOf(sample.x);
  if (range.max == range.min) run.Refuse(" No dispersion in variables: No analysis ");
  sample.d = DescribeSample(run.messages, sample.x);
  sample.sds = run.form.WholeNumber32(sds_field);
  sample.outlier_limit = run.form.WholeNumber32(kOutlierLimit);
  sample.outliers = MarkOutliersBySD(run.messages, sample.outlier_limit, sample.x);
  return sample;
}

// --- The sheet

void WriteProject(Run& run) { run.sheet.Row(3, " Project: ", run.context.ProjectName); }

// The count and the limit in `row`; up to three of the outliers from the third row below it.
void WriteOutliers(ResultsSheet& sheet, int row, const LowSample& sample) {
  const OutlierMarks& outliers = sample.outliers;
  if (outliers.count == 0) {
    sheet.Row(row, "No outliers present", Blank{}, "Outlier limit", sample.outlier_limit, "SD");
    return;
  }
  sheet.Row(row, outliers.count, "outlier(s) present", Blank{}, "Outlier limit",
            sample.outlier_limit, "SD");
  int listed = 0;
  for (std::size_t i = 0; i < sample.x.size() && listed < kMostOutliersListed; ++i)
    if (outliers.flags[i])
      sheet.Row(row + 3 + listed++, "No.:", static_cast<int>(i) + 1, "Outlier:", sample.x[i]);
  if (outliers.count > kMostOutliersListed)
    sheet.Row(row + 6, "More than 3 outliers that are not shown ");
}

void WriteDl(Run& run, const LowSample& sample) {
  ResultsSheet& sheet = run.sheet;
  sheet.Row(2, Bold{" Determination of Detection Limit"});
  WriteProject(run);
  sheet.Row(4, " Selected Col.:", sample.column.number);
  sheet.Row(5, "Analyte:", sample.column.header);
  sheet.Row(6, "No of obs:", sample.Count());
  sheet.Row(8, "Mean:", sample.d.mean, "SD:", sample.d.sd);
  sheet.Row(9, "No. of SD´s as DL:", sample.sds);
  sheet.Row(10, "Detection Limit (DL):", Blank{}, sample.Limit());
  sheet.Row(11, "(Consider adding mean of blank)");
  WriteOutliers(sheet, 13, sample);
}

void WriteLoq(Run& run, const LowSample& sample) {
  ResultsSheet& sheet = run.sheet;
  WriteProject(run);
  sheet.Row(20, Bold{"Determination of Lower Limit of Quantitation (LOQ)"});
  sheet.Row(22, " Selected Col.:", sample.column.number);
  sheet.Row(23, "Analyte:", sample.column.header);
  sheet.Row(24, "No of obs:", sample.Count());
  sheet.Row(25, "Mean:", sample.d.mean, "SD:", sample.d.sd);
  sheet.Row(26, "No. of SD´s as LoQ:", sample.sds);
  sheet.Row(27, "LOQ:", Blank{}, sample.Limit());
  WriteOutliers(sheet, 29, sample);
}

void DrawValues(Run& run, std::string_view window, std::string_view caption, std::string_view label,
                const LowSample& sample) {
  Plot& plot = run.AddPlot(window, caption);
  plot.label = label;
  plot.x.title = "Observation no.";
  plot.y.title = sample.column.header;
  plot.AddPoints(AgainstNumber(sample.x));
}

}  // namespace

void RunBySd(Run& run) {
  run.sheet.Clear();
  if (run.form.On(kDl)) {
    const LowSample sample = MeasureLowSample(run, kDlColumn, kDlSds);
    WriteDl(run, sample);
    DrawValues(run, kDlPlot, "Detection limit",
               "Plot of values for estimation of the detection limit", sample);
  }
  if (run.form.On(kLoq)) {
    const LowSample sample = MeasureLowSample(run, kLoqColumn, kLoqSds);
    WriteLoq(run, sample);
    DrawValues(run, kLoqPlot, "Lower limit of quantitation",
               "Plot of values for estimation of the LoQ", sample);
  }
}

}  // namespace quorval::methodeval::detection
