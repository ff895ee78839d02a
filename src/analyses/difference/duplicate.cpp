#include "analyses/difference/duplicate.h"

#include "analyses/difference/estimated_limits.h"
#include "analyses/difference/listing.h"
#include "analyses/difference/plots.h"

namespace quorval::difference {
namespace {

constexpr std::string_view kSD = "  SD:";
constexpr std::string_view kSE = "  SE:";
constexpr std::string_view kP = "  P:";
constexpr std::string_view kOutlierLimit = "Outlier limit:";

void WriteHead(ResultsSheet& sheet, const PairedData& data) {
  sheet.Frame("  Results of Difference plots (dupl.)(row 1 - 55)", DateBeside::kAnalyst);
  sheet.Row(8, "  No of (x1 ,x2, y1, y2) obs: ", data.Count());
  sheet.Row(9, "  X = (x1+x2)/2 and Y = (y1+y2)/2 ");
  sheet.Row(11, "  x1: Col:", data.columns[0]);
  sheet.Row(12, "  x2: Col:", data.columns[1]);
  sheet.Row(13, "  y1: Col:", data.columns[2]);
  sheet.Row(14, "  y2: Col:", data.columns[3]);
}

void WriteSamples(ResultsSheet& sheet, const Description& X, const Description& Y) {
  sheet.Row(16, "  Mean of X:", X.mean, kSD, X.sd);
  sheet.Row(17, "  Range of X (min - max):", X.min, X.max);
  sheet.Row(19, "  Mean of Y:", Y.mean, kSD, Y.sd);
  sheet.Row(20, "  Range of Y (min - max):", Y.min, Y.max);
}

// From `row` on: the label and both means of up to five outliers, and whether there are more.
void ListOutliers(ResultsSheet& sheet, int row, const OutlierMarks& outliers,
                  const PairedData& data) {
  const int more = row + kMostOutliersListed;
  for (std::size_t i = 0; i < outliers.flags.size() && row < more; ++i)
    if (outliers.flags[i]) sheet.Row(row++, data.ids[i], data.x[i], data.y[i]);
  if (outliers.count > kMostOutliersListed)
    sheet.Row(more, "  More than 5 outliers that are not shown");
}

void WriteAbsolute(ResultsSheet& sheet, const EstimatedLimits& limits, const PairedData& data,
                   const Options& options) {
  const Real outlier_limit = options.outlier_limit;
  sheet.Row(22, "  Mean paired Y - X diff.:", limits.mean, kSD, limits.SD, kSE, limits.SE);
  sheet.Row(23, "  t-test for paired Y - X diff.: t = ", limits.t, kP, limits.P);
  sheet.Row(24, "  95%-interval for differences: ", limits.lower, limits.upper);
  sheet.Row(25, "  Correlation for abs. Y-X diff. plot: r = ", limits.r, kP, limits.P_of_r);
  if (limits.outliers.count > 0) {
    sheet.Row(27, "  No. of outliers identified for Y-X diff.:", limits.outliers.count,
              kOutlierLimit, outlier_limit, "SD");
  } else {
    sheet.Row(27, "  No outliers identified for Y-X diff. ", kOutlierLimit, outlier_limit, "SD");
  }
  ListOutliers(sheet, 28, limits.outliers, data);
}

void WriteRelative(ResultsSheet& sheet, const EstimatedLimits& limits, const PairedData& data,
                   const Options& options) {
  const Scale& scale = options.scale;
  sheet.Row(35, scale.Word("  Results for relative paired Y - X diff.:",
                           "  Results for percent paired Y - X diff.:"));
  sheet.Row(39, scale.Word("  Mean paired rel. Y - X diff.:", "  Mean paired perc. Y - X diff.:"),
            limits.mean, kSD, limits.SD, kSE, limits.SE);
  sheet.Row(40,
            scale.Word("  t-test for paired Y - X diff.: t = ",
                       "  t-test for paired perc. Y - X diff.: t = "),
            limits.t, kP, limits.P);
  sheet.Row(
      41,
      scale.Word("  95%-interval for rel. differences: ", "  95%-interval for perc. differences: "),
      limits.lower, limits.upper);
  sheet.Row(42,
            scale.Word("  Correlation for rel. Y-X diff. plot: r = ",
                       "  Correlation for perc. Y-X diff. plot: r = "),
            limits.r, kP, limits.P_of_r);
  if (limits.outliers.count > 0) {
    sheet.Row(44,
              scale.Word("  No. of outliers for rel. Y-X diff.:",
                         "  No. of outliers for perc. Y-X diff.:"),
              limits.outliers.count, kOutlierLimit, Real(options.outlier_limit), "SD");
  } else {
    sheet.Row(
        44, scale.Word("  No outliers for rel. Y-X diff. ", "  No outliers for perc. Y-X diff. "));
  }
  ListOutliers(sheet, 45, limits.outliers, data);
}

constexpr ListingLayout kListing{.heading = 52, .column_heads = 53, .first_pair = 54};

}  // namespace

void RunDuplicate(Run& run) {
  const Options options = ReadOptions(run.form);
  const Scale& scale = options.scale;
  const PairedData data = ReadDuplicate(run, scale);
  const EstimatedLimits absolute =
      EstimateLimits(run.messages, data.mean, data.difference, options.outlier_limit);
  std::optional<EstimatedLimits> relative;
  if (data.relative)
    relative = EstimateLimits(run.messages, data.mean, *data.relative, options.outlier_limit);
  const Description X = DescribeSample(run.messages, data.x);
  const Description Y = DescribeSample(run.messages, data.y);
  DrawAbsolutePlot(run, data, absolute);
  if (relative)
    DrawRelativePlot(
        run,
        scale.Word("Relative Bland-Altman Plot (Rel. y-x differences against mean of x and y)",
                   "Percent Bland-Altman Plot (Perc. y-x differences against mean of x and y)"),
        data, *relative, scale);

  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  WriteHead(sheet, data);
  WriteSamples(sheet, X, Y);
  WriteAbsolute(sheet, absolute, data, options);
  if (!relative) return;
  WriteRelative(sheet, *relative, data, options);
  if (options.show_data) WriteListing(sheet, kListing, data, scale);
}

}  // namespace quorval::difference
