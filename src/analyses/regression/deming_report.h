// What Deming and weighted Deming regression tell alike: rows 18 to 43 of the sheet, the tables and
// the plots.
#pragma once

#include "analyses/regression/distance_residuals.h"
#include "analyses/regression/jackknife.h"
#include "analyses/regression/plots.h"
#include "stats/significance.h"

namespace quorval::regression {

// Hidden in the duplicate form, where it is estimated.
inline constexpr Field kSdRatio{
    .key = "sd-ratio", .initial = "1", .shown = {kSingle}, .demand = kPositiveNumber};

// The data as wide as the fits take them, and the same measurements for the fits.
inline SingleMeasurements TakeSingle(const Form& form, Pairs& data) {
  const Single ratio = form.Number32(kSdRatio);
  SingleMeasurements measured{
      .x = ToSingles(data.x), .y = ToSingles(data.y), .lambda = Single(Square(ratio))};
  data.x = ToReals(measured.x);
  data.y = ToReals(measured.y);
  return measured;
}

// A repetition keeps the lambda of the first run.
inline DuplicateMeasurements TakeDuplicate(const Run& run, const Pairs& data) {
  const auto& [x1, x2, y1, y2] = data.measured;
  return {x1, x2, y1, y2, run.repeated != nullptr ? run.repeated->lambda : std::nullopt};
}

// Row 18: the ratio of the SDs as assigned, or as estimated from the duplicates.
void WriteRatio(Run& run, const DemingLine& line, std::string_view estimated_label);

// A fitted line with all that its report needs.
struct DemingFit {
  const Pairs& data;
  const Levels& levels;
  const DemingLine& line;
  const JackknifeErrors& errors;
  const Sample& e;  // vertical residuals
};

// The bands and residuals, by the tick boxes.
void WriteDemingTables(Run& run, const DemingFit& fit, const Bands& bands,
                       const DistanceResiduals& distances, const Sample& z);

template <class Width>
void ReportDeming(Run& run, const DemingFit& fit, std::span<const PlotWindow> plots) {
  const auto& [data, levels, line, errors, e] = fit;
  const Real df = data.Count() - 2;
  const auto distances = DistancesFromLine<Width>(data, line, e);
  run.sheet.Row(19, "  Test for dev. from linearity", RunsTestClass(run.messages, distances.r));
  WriteIntercept(run, 20, TestAgainst(0, line.a0, errors.se_a0, df));
  WriteCriticalValues(run, 25, levels, errors.estimates);

  const Sample z = Standardise<Width>(run, distances.r);
  const OutlierMarks outliers = MarkOutliers(run, distances.r);
  WriteOutliers(run, {.count = 29, .first = 33, .more = 43}, outliers, data);
  KeepForReanalysis(run, data, outliers);
  if (run.rejection && IsDuplicate(run.form)) run.rejection->lambda = line.lambda;

  const Bands bands = ComputeBands(levels, errors.estimates, CriticalT05(df));
  WriteDemingTables(run, fit, bands, distances, z);
  DrawXYPlot(run, plots[0], data, outliers, {.a0 = line.a0, .b = line.b},
             run.form.On(kPlotBands) ? std::optional(bands) : std::nullopt);
  DrawResidualPlot(run, plots[1], distances.m, z, outliers);
}

}  // namespace quorval::regression
