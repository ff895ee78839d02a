#include "analyses/regression/deming_comparison.h"

namespace quorval::regression {
namespace {

constexpr int kBandsRow = 44;
constexpr int kResidualsRow = 57;

// The short tables of a re-analysis.
void WriteShortTables(ResultsSheet& sheet, const DemingInput& input, const DemingResult& result) {
  if (input.show_bands) WriteBands(sheet, kBandsRow, {}, result.bands);
  if (!input.show_residuals) return;
  const ResultsSheet::Listing listing(sheet, kResidualsTable);
  sheet.Row(kResidualsRow, "  x value", "  y value",
            "  Residual distances at an angle to the line");
  for (std::size_t i = 0; i < result.e.size(); ++i)
    sheet.Row(kResidualsRow + 1 + static_cast<int>(i), input.data.x[i], input.data.y[i],
              result.distances.r[i]);
}

void WriteTables(ResultsSheet& sheet, const DemingInput& input, const DemingResult& result) {
  if (input.repeated) return WriteShortTables(sheet, input, result);
  if (input.show_bands) WriteBands(sheet, kBandsRow, "Estim. y", result.bands);
  if (!input.show_residuals) return;
  Residuals residuals{.estimate = {}, .e = result.e, .z = result.z};
  for (Real x : input.data.x) residuals.estimate.push_back(result.line.b * x + result.line.a0);
  WriteResiduals(sheet, kResidualsRow,
                 {"  x value", "  y value", "  Estim. y", "  Res. (vertical: y - (a0+bx))",
                  "  St. res. at an angle to the line"},
                 input.data, residuals);
}

}  // namespace

DemingInput TakeDemingOptions(const Run& run, Pairs data) {
  if (IsDuplicate(run.form)) {
    const auto& [x1, x2, y1, y2] = data.measured;
    const auto lambda = run.repeated != nullptr ? run.repeated->lambda : std::nullopt;
    DuplicateMeasurements measured{x1, x2, y1, y2, lambda};
    return {TakeParametricOptions(run, std::move(data), 4), std::move(measured), Single{}};
  }
  const Single ratio = run.form.LeadingNumber32(kSdRatio);
  SingleMeasurements measured{
      .x = ToSingles(data.x), .y = ToSingles(data.y), .lambda = Single(Square(ratio))};
  data.x = ToReals(measured.x);
  data.y = ToReals(measured.y);
  return {TakeParametricOptions(run, std::move(data), 4), std::move(measured), ratio};
}

void ReportDeming(Messages& messages, ResultsSheet& sheet, const DemingInput& input,
                  DemingResult& result, std::string_view estimated_ratio) {
  const auto& [line, errors, slope, e, distances, z, outliers, bands] = result;
  const Real df = input.data.Count() - 2;
  if (input.duplicate) {
    sheet.Row(18, estimated_ratio, kEstimatedSdRatioRow(Sqrt(line.lambda)));
  } else {
    sheet.Row(18, kSdRatioRow(Real(input.sd_ratio)));
  }
  result.distances = AsWideAs(input.measured, [&]<class Width>() {
    return DistancesFromLine<Width>(input.data, result.line, result.e);
  });
  sheet.Row(19, kLinearityTest, RunsTestClass(messages, distances.r));
  WriteTest(sheet, 20, kInterceptRows, TestAgainst(0, line.a0, errors.se_a0, df));
  WriteCriticalValues(sheet, 25, input.levels, errors.estimates);

  result.z = AsWideAs(input.measured, [&]<class Width>() {
    return Standardise<Width>(messages, result.distances.r);
  });
  result.outliers = MarkOutliers(messages, input, distances.r);
  WriteOutliers(sheet, {.count = 29, .first = 33, .more = 43}, input, outliers);

  result.bands = ComputeBands(input.levels, errors.estimates, CriticalT05(df));
  WriteTables(sheet, input, result);
}

void DrawDeming(Plots& plots, std::span<const PlotWindow> windows, const DemingInput& input,
                const DemingResult& result) {
  DrawComparison(plots, windows, input, result.outliers, result.bands,
                 {{.a0 = result.line.a0, .b = result.line.b}, result.distances.m, result.z});
}

std::optional<Rejection> KeepDeming(const DemingInput& input, const DemingResult& result) {
  std::optional<Rejection> kept = KeepForReanalysis(input, result.outliers);
  if (kept && input.duplicate) kept->lambda = result.line.lambda;
  return kept;
}

}  // namespace quorval::regression
