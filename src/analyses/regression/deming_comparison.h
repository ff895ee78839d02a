// What Deming and weighted Deming regression share: their input, the rows 18 to 43 of the sheet,
// the tables and the plots.
#pragma once

#include <variant>

#include "analyses/regression/distance_residuals.h"
#include "analyses/regression/jackknife.h"
#include "analyses/regression/plots.h"
#include "stats/significance.h"

namespace quorval::regression {

// Hidden in the duplicate form, where it is estimated.
inline constexpr Field kSdRatio{
    .key = "sd-ratio", .initial = "1", .shown = {kSingleMode}, .demand = kPositiveNumber};

// --- Input

using Measurements = std::variant<SingleMeasurements, DuplicateMeasurements>;

struct DemingInput : ParametricInput {
  Measurements measured;  // the data for the fits
  Single sd_ratio;        // SDax / SDay as assigned, of single measurements
};

// Takes the ratio of the analytical SDs from the dialog, for single measurements: these are rounded
// to 32 bits, in the pairs too.  A repetition keeps the lambda that the first run estimated from
// duplicates.
DemingInput TakeDemingOptions(const Run& run, Pairs data);

// --- Computation

struct DemingResult {
  DemingLine line;
  JackknifeErrors errors;
  TTest slope;
  Sample e{};  // vertical residuals
  DistanceResiduals distances{};
  Sample z{};  // distances, standardised
  OutlierMarks outliers{};
  Bands bands{};
};

// Calls `work` with the measurements' width as its template argument.
template <class Work>
auto AsWideAs(const Measurements& measured, Work&& work) {
  return std::visit(
      [&]<class Kind>(const Kind&) { return work.template operator()<typename Kind::Width>(); },
      measured);
}

// --- Rows of the sheet

inline constexpr Quantity kSdRatioRow{"sd_ratio", "  Assigned   SDax/SDay", Unit::kNone,
                                      Width::k32};
inline constexpr Quantity kEstimatedSdRatioRow{"sd_ratio.estimated", "  Estimated SDax/SDay"};
inline constexpr auto kDemingQuantities =
    Joined(std::array{kSdRatioRow, kEstimatedSdRatioRow}, kInterceptRows.All(),
           kCriticalValueQuantities, kOutlierQuantities);

// From row 18 on; the distances from the line, the marks and the bands are computed between rows.
void ReportDeming(Messages& messages, ResultsSheet& sheet, const DemingInput& input,
                  DemingResult& result, std::string_view estimated_ratio);

// --- Plots

void DrawDeming(Plots& plots, std::span<const PlotWindow> windows, const DemingInput& input,
                const DemingResult& result);

// --- Re-analysis

std::optional<Rejection> KeepDeming(const DemingInput& input, const DemingResult& result);

}  // namespace quorval::regression
