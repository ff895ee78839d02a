// The names of what many analyses give.  An analysis has its own words for a row, and so its own
// caption; what is the same thing has the same name.
#pragma once

#include "core/quantity.h"

namespace quorval::quantity {

inline constexpr Quantity kCount{.name = "n", .caption = {}, .width = Width::kWhole};
inline constexpr Quantity kOutliers{
    .name = "outliers", .caption = "  Number of outliers identified", .width = Width::kWhole};
inline constexpr Quantity kOutlierLimit{
    .name = "outlier_limit", .caption = "  Outlier limit: No. of SDs", .width = Width::k32};

// One column, or adjacent ones.
inline constexpr Quantity kColumn{.name = "column", .caption = {}, .width = Width::kWhole};
inline constexpr Quantity kFirstColumn{
    .name = "column.first", .caption = {}, .width = Width::kWhole};
inline constexpr Quantity kLastColumn{.name = "column.last", .caption = {}, .width = Width::kWhole};

inline constexpr Quantity kMean{.name = "mean", .caption = {}, .unit = Unit::kMeasurand};
inline constexpr Quantity kSD{.name = "sd", .caption = {}, .unit = Unit::kMeasurand};
inline constexpr Quantity kCV{.name = "cv", .caption = {}, .unit = Unit::kPercent};

}  // namespace quorval::quantity
