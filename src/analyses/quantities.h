// The names of what many analyses give.  An analysis has its own words for a row, and so its own
// caption; what is the same thing has the same name.
#pragma once

#include "core/quantity.h"

namespace quorval::quantity {

inline constexpr Quantity kCount{.name = "n", .caption = {}, .width = Width::kWhole};
inline constexpr Quantity kMin{"min", "  Minimum: ", Unit::kMeasurand};
inline constexpr Quantity kMax{"max", "  Maximum: ", Unit::kMeasurand};
inline constexpr Quantity kMedian{"median", "  Median: ", Unit::kMeasurand};
inline constexpr Quantity kMean{"mean", "  Mean: ", Unit::kMeasurand};
inline constexpr Quantity kMeanSe{"mean.se", "  SEM: ", Unit::kMeasurand};
inline constexpr Quantity kSd{"sd", "  SD: ", Unit::kMeasurand};
inline constexpr Quantity kCv{.name = "cv", .caption = {}, .unit = Unit::kPercent};
inline constexpr Quantity kSkewness{"skewness", "  Skewness: "};
inline constexpr Quantity kKurtosis{"kurtosis", "  Kurtosis: "};
// Of the test of normality, where its P is a number and no class.
inline constexpr Quantity kNormalityP{"normality.p", "  P "};
inline constexpr Quantity kOutliers{
    .name = "outliers", .caption = "  Number of outliers identified", .width = Width::kWhole};
inline constexpr Quantity kOutlierLimit{
    .name = "outlier_limit", .caption = "  Outlier limit: No. of SDs", .width = Width::k32};

// One column, or adjacent ones.
inline constexpr Quantity kColumn{.name = "column", .caption = {}, .width = Width::kWhole};
inline constexpr Quantity kFirstColumn{
    .name = "first.column", .caption = {}, .width = Width::kWhole};
inline constexpr Quantity kLastColumn{.name = "last.column", .caption = {}, .width = Width::kWhole};

}  // namespace quorval::quantity
