// The blocks of rows that the sheets of the procedures share.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "analyses/outlier_list.h"
#include "analyses/quantities.h"
#include "analyses/reference/reference_interval.h"
#include "core/results_sheet.h"
#include "stats/primitives.h"

namespace quorval::reference {

// --- Rows 2 to 10: the titles, the number of values and their range

inline constexpr std::array kHeadQuantities{
    Captioned(quantity::kCount, "  Number of observations: "),
    Captioned(quantity::kMin, "  Total range: "), Captioned(quantity::kMax, "  Total range: ")};

void WriteHead(ResultsSheet& sheet, std::string_view title, std::string_view analyte_label,
               const std::string& AnalyteName, std::span<const Real> RefValues);

// --- Four rows: each percentile, and its confidence interval below it

struct PercentileRows {
  Quantity value, lower, upper;

  constexpr std::array<Quantity, 3> All() const { return {value, lower, upper}; }
};
inline constexpr std::string_view kConfidence = "  90%-confidence interval:";
inline constexpr PercentileRows kLowerRows{
    .value = {"lower_limit", "  2.5-Percentile:   ", Unit::kMeasurand},
    .lower = {"lower_limit.lower", kConfidence, Unit::kMeasurand},
    .upper = {"lower_limit.upper", kConfidence, Unit::kMeasurand}};
inline constexpr PercentileRows kUpperRows{
    .value = {"upper_limit", "  97.5-Percentile:   ", Unit::kMeasurand},
    .lower = {"upper_limit.lower", kConfidence, Unit::kMeasurand},
    .upper = {"upper_limit.upper", kConfidence, Unit::kMeasurand}};
inline constexpr auto kIntervalQuantities = Joined(kLowerRows.All(), kUpperRows.All());

void WriteInterval(ResultsSheet& sheet, int row, const ReferenceInterval& interval);

// --- The number of outliers, the limit, and the first five of them

struct OutlierBlock {
  int count;
  int limit;    // where outliers were found; directly below the count otherwise
  int heading;  // the values stand in the five rows below it, and what is not listed below these
  std::string_view words;
  Quantity outliers, outlier_limit;
  NamedTable values;

  constexpr std::array<Quantity, 2> All() const { return {outliers, outlier_limit}; }
};
inline constexpr std::string_view kOutliersCaption = "  Number of outlier(s) detected: ";
inline constexpr std::string_view kLimitCaption = "  Number of SDs as outlier limit: ";
inline constexpr OutlierBlock kOutliers{
    .count = 22,
    .limit = 24,
    .heading = 25,
    .words = "  Outliers: ",
    .outliers = Captioned(quantity::kOutliers, kOutliersCaption),
    .outlier_limit = Captioned(quantity::kOutlierLimit, kLimitCaption),
    .values = kOutlierValues,
};
inline constexpr OutlierBlock kTransformedOutliers{
    .count = 39,
    .limit = 40,
    .heading = 41,
    .words = "  Outliers (transformed): ",
    .outliers = {"transformed.outliers", kOutliersCaption, Unit::kNone, Width::kWhole},
    .outlier_limit = {"transformed.outlier_limit", kLimitCaption, Unit::kNone, Width::k32},
    .values = {"transformed.outlier_list", "The outliers on the scale of the transform"},
};

void WriteOutliers(ResultsSheet& sheet, const OutlierBlock& block, Single limit,
                   const OutlierMarks& outliers, std::span<const Real> values);

}  // namespace quorval::reference
