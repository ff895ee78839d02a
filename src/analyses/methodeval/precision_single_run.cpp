// Mean, SD and CV% of one column.  Outliers are listed and drawn apart, and stay in the estimates.
#include "analyses/methodeval/precision.h"

namespace quorval::methodeval::precision {
namespace {

constexpr int kMostOutliersListed = 5;

void WriteOutliers(ResultsSheet& sheet, Real limit, std::span<const Real> x,
                   const OutlierMarks& outliers) {
  if (outliers.count > 0) {
    sheet.Row(11, "  Outlier(s) present", outliers.count);
  } else {
    sheet.Row(11, "  No outlier(s) present");
  }
  sheet.Row(12, "  Outlier Limit (no. of SDs):", limit);
  int row = 13;
  for (std::size_t i = 0; i < x.size() && row < 13 + kMostOutliersListed; ++i)
    if (outliers.flags[i]) sheet.Row(row++, "  Outlier:", x[i], "  No.:", static_cast<int>(i) + 1);
  if (outliers.count > kMostOutliersListed)
    sheet.Row(row, "  More than 5 outliers that are not shown");
}

void DrawValues(Run& run, std::span<const Real> x, const Description& d,
                const OutlierMarks& outliers) {
  Plot& plot = run.AddPlot(kValuesWindow, "Sample values");
  plot.label = "Plot of Sample Values with mean, +/- 2SD and +/-3SD";
  plot.x.title = "Observation no.";
  plot.AddPoints(AgainstNumber(x));
  AddSdLines(plot, d.mean, d.sd, {1, x.size()});
  if (outliers.count == 0) return;
  Points marked;
  for (std::size_t i = 0; i < x.size(); ++i)
    if (outliers.flags[i]) marked.push_back({i + 1, x[i]});
  plot.AddPoints(std::move(marked), Mark::kCross);
}

}  // namespace

void RunSingle(Run& run) {
  const Column column = ReadColumn(run, TakeColumn(run, kColumn));
  const Sample x = column.Numbers(run.notices);
  if (x.size() < 2) run.Refuse(" Sample size < 2: No analysis ");
  const Range range = RangeOf(x);
  if (range.max == range.min) run.Refuse(" No dispersion in variables: No analysis ");
  const Description d = DescribeSample(run.messages, x);
  const Real limit = run.form.WholeNumber32(kOutlierLimit);
  const OutlierMarks outliers = MarkOutliersBySD(run.messages, limit, x);

  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  sheet.Row(2, Bold{"  Mean, SD and CV% for a single run"});
  sheet.Row(3, "  Project:", run.context.ProjectName);
  sheet.Row(4, "  Selected Col.:  ", column.number);
  sheet.Row(5, "   Analyte: ", column.header.empty() ? " " : column.header);
  sheet.Row(6, "  No of obs:  ", static_cast<int>(x.size()));
  sheet.Row(7, "  Mean:  ", d.mean);
  sheet.Row(8, "  SD:  ", d.sd);
  if (d.mean == 0) {
    sheet.Row(9, "  CV% n. d. ");
  } else {
    sheet.Row(9, "  CV%: ", 100 * d.sd / Abs(d.mean));
  }
  WriteOutliers(sheet, limit, x, outliers);
  DrawValues(run, x, d, outliers);
}

}  // namespace quorval::methodeval::precision
