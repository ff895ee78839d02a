// The names of the numbers on the sheets of the difference plots.
#pragma once

#include <array>

#include "analyses/method_comparison.h"

namespace quorval::difference {

// --- The measurements of a method

struct MethodRows {
  Quantity mean, sd, min, max;

  constexpr std::array<Quantity, 4> All() const { return {mean, sd, min, max}; }
};
inline constexpr MethodRows kXRows{.mean = {"x.mean", "  Mean of X:", Unit::kMeasurand},
                                   .sd = {"x.sd", "  SD of X:", Unit::kMeasurand},
                                   .min = {"x.min", "  Range of X:", Unit::kMeasurand},
                                   .max = {"x.max", "  Range of X:", Unit::kMeasurand}};
inline constexpr MethodRows kYRows{.mean = {"y.mean", "  Mean of Y:", Unit::kMeasurand},
                                   .sd = {"y.sd", "  SD of Y:", Unit::kMeasurand},
                                   .min = {"y.min", "  Range of Y:", Unit::kMeasurand},
                                   .max = {"y.max", "  Range of Y:", Unit::kMeasurand}};

// --- Estimated limits

// Of absolute differences, and of relative ones as fractions or in percent.
struct DifferenceRows {
  Quantity mean, se, t, lower, upper, t95, sd, r, outliers, outlier_limit;
  NamedTable outlier_list;

  constexpr std::array<Quantity, 10> All() const {
    return {mean, se, t, lower, upper, t95, sd, r, outliers, outlier_limit};
  }
};
inline constexpr std::string_view kOutliersCaption = quantity::kOutliers.caption;
inline constexpr std::string_view kLimitCaption = quantity::kOutlierLimit.caption;
constexpr DifferenceRows RowsOf(std::array<std::string_view, 10> names, Unit unit,
                                std::string_view mean, std::string_view interval,
                                std::string_view spread, std::string_view correlation,
                                NamedTable outlier_list) {
  const auto& [name, se, t, lower, upper, t95, sd, r, outliers, outlier_limit] = names;
  return {.mean = {name, mean, unit},
          .se = {se, mean, unit},
          .t = {t, "  t and P:"},
          .lower = {lower, interval, unit},
          .upper = {upper, interval, unit},
          .t95 = {t95, spread},
          .sd = {sd, spread, unit},
          .r = {r, correlation},
          .outliers = {outliers, kOutliersCaption, Unit::kNone, Width::kWhole},
          .outlier_limit = {outlier_limit, kLimitCaption, Unit::kNone, Width::k32},
          .outlier_list = outlier_list};
}
inline constexpr DifferenceRows kAbsoluteRows =
    RowsOf({"difference.mean", "difference.mean.se", "difference.t", "difference.lower_limit",
            "difference.upper_limit", "difference.t95", "difference.sd", "difference.correlation",
            "outliers", "outlier_limit"},
           Unit::kMeasurand, "  Mean paired Y - X difference and SEM: ",
           "  95%-interval for differences: ", "  t-95% and SD of differences ",
           "  Correlation abs. diff. plot: r= ", kOutlierList);
inline constexpr NamedTable kRelativeOutliers{"relative_difference.outlier_list",
                                              "The outliers by their relative differences"};
inline constexpr DifferenceRows kFractionRows =
    RowsOf({"relative_difference.mean", "relative_difference.mean.se", "relative_difference.t",
            "relative_difference.lower_limit", "relative_difference.upper_limit",
            "relative_difference.t95", "relative_difference.sd", "relative_difference.correlation",
            "relative_difference.outliers", "relative_difference.outlier_limit"},
           Unit::kNone, "  Mean rel. paired Y - X difference and SEM: ",
           "  95%-interval for rel. differences: ", "  t-95% and SD of differences ",
           "  Correlation rel. diff. plot: r= ", kRelativeOutliers);
inline constexpr DifferenceRows kPercentRows =
    RowsOf({"percent_difference.mean", "percent_difference.mean.se", "percent_difference.t",
            "percent_difference.lower_limit", "percent_difference.upper_limit",
            "percent_difference.t95", "percent_difference.sd", "percent_difference.correlation",
            "percent_difference.outliers", "percent_difference.outlier_limit"},
           Unit::kPercent, "  Mean percent paired Y - X difference and SEM: ",
           "  95%-interval for percent differences: ", "  t-95% and SD of percent differences ",
           "  Correlation percent diff. plot: r= ", kRelativeOutliers);

// --- Limits that the user sets

inline constexpr Quantity kConstantLimit{
    "limit", "  User set constant limits for differences (y-x)(+/-):", Unit::kMeasurand,
    Width::k32};
inline constexpr Quantity kDivision{"limit.division",
                                    "  up to division point of:", Unit::kMeasurand, Width::k32};
// Percentage limits stand twice on a sheet, first among the limits as they were set.
inline constexpr Quantity kPercentLimitSet{
    "limit.percent.set", "  User set limits (percent) for differences (y-x)(+/-):", Unit::kPercent};
inline constexpr Quantity kPercentLimit{
    "limit.percent", "  User set percent limits for differences (y-x)(+/-):", Unit::kPercent};
inline constexpr Quantity kOutside{
    "outside_limits", "  Proportion (%) differences outside the limits: ", Unit::kPercent};
inline constexpr std::array kUserLimitQuantities{kConstantLimit, kDivision, kPercentLimitSet,
                                                 kPercentLimit, kOutside};

// --- The listing of all pairs

inline constexpr NamedTable kPairsTable{"pairs", "x, y, y - x and the relative difference"};

}  // namespace quorval::difference
