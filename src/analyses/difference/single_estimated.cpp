#include "analyses/difference/estimated_limits.h"
#include "analyses/difference/listing.h"
#include "analyses/difference/plots.h"
#include "analyses/difference/single.h"

namespace quorval::difference {
namespace {

void WriteSamples(ResultsSheet& sheet, const Description& x, const Description& y) {
  sheet.Row(11, "  Mean of X:", x.mean);
  sheet.Row(12, "  SD of X:", x.sd);
  sheet.Row(13, "  Range of X:", x.min, x.max);
  sheet.Row(14, "  Mean of Y:", y.mean);
  sheet.Row(15, "  SD of Y:", y.sd);
  sheet.Row(16, "  Range of Y:", y.min, y.max);
}

void WriteAbsolute(ResultsSheet& sheet, const EstimatedLimits& limits, const PairedData& data,
                   const Options& options) {
  sheet.Row(18, "  Mean paired Y - X difference and SEM: ", limits.mean, limits.SE);
  sheet.Row(19, options.scale.Word("  t-test for paired absolute Y - X differences:",
                                   "  t-test for paired Y - X differences:"));
  sheet.Row(20, "  t and P:", limits.t, limits.P);
  sheet.Row(21, "  95%-interval for differences: ", limits.lower, limits.upper);
  sheet.Row(22, "  t-95% and SD of differences ", limits.t95, limits.SD);
  sheet.Row(24, "  Correlation abs. diff. plot: r= ", limits.r, limits.P_of_r);
  WriteOutliers(sheet, {.count = 28, .first = 31, .more = 41}, limits.outliers,
                options.outlier_limit, data.x, data.y);
}

void WriteRelative(ResultsSheet& sheet, const EstimatedLimits& limits, const PairedData& data,
                   const Options& options) {
  const Scale& scale = options.scale;
  sheet.Row(43, Bold{scale.Word("Results for relative Y-X difference plot",
                                "Results for percent Y-X difference plot")});
  sheet.Row(47,
            scale.Word("  Mean rel. paired Y - X difference and SEM: ",
                       "  Mean percent paired Y - X difference and SEM: "),
            limits.mean, limits.SE);
  sheet.Row(48, scale.Word("  t-test for paired relative Y - X differences:",
                           "  t-test for paired percent Y - X differences:"));
  sheet.Row(49, "  t and P:", limits.t, limits.P);
  sheet.Row(50,
            scale.Word("  95%-interval for rel. differences: ",
                       "  95%-interval for percent differences: "),
            limits.lower, limits.upper);
  sheet.Row(51,
            scale.Word("  t-95% and SD of differences ", "  t-95% and SD of percent differences "),
            limits.t95, limits.SD);
  sheet.Row(
      53, scale.Word("  Correlation rel. diff. plot: r= ", "  Correlation percent diff. plot: r= "),
      limits.r, limits.P_of_r);
  WriteOutliers(sheet, {.count = 55, .first = 60, .more = 72}, limits.outliers,
                options.outlier_limit, data.x, data.y);
}

constexpr ListingLayout kListing{.heading = 73,
                                 .column_heads = 74,
                                 .first_pair = 75,
                                 .percent_heading = "Display of x, y, diffs and percent diffs",
                                 .percent_column = "Percent Y-X"};

}  // namespace

void RunEstimated(Run& run, const PairedData& data, const Options& options) {
  const EstimatedLimits absolute =
      EstimateLimits(run.messages, data.mean, data.difference, options.outlier_limit);
  const EstimatedLimits relative =
      EstimateLimits(run.messages, data.mean, *data.relative, options.outlier_limit);
  const Description x = DescribeSample(run.messages, data.x);
  const Description y = DescribeSample(run.messages, data.y);
  DrawAbsolutePlot(run, data, absolute);
  DrawRelativePlot(run, options.scale.Word(kRelativeCaption, kPercentCaption), data, relative,
                   options.scale);

  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  WriteSingleHead(sheet, "  Results of Difference plots (single)(row 1 - 80)", data);
  WriteSamples(sheet, x, y);
  WriteAbsolute(sheet, absolute, data, options);
  WriteRelative(sheet, relative, data, options);
  if (options.show_data) WriteListing(sheet, kListing, data, options.scale);
}

}  // namespace quorval::difference
