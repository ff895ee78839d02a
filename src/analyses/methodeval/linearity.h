// The options of linearity evaluation, and its procedures.
#pragma once

#include <array>

#include "analyses/methodeval/method_evaluation.h"

namespace quorval::methodeval::linearity {

inline constexpr Field kStartColumn{.key = "start-column",
                                    .caption = "Reading x and y values from column No. (Start):",
                                    .demand = kDataColumn};
inline constexpr Field kLastColumn{
    .key = "last-column", .caption = "Column No. (Last):", .demand = kDataColumn};
inline constexpr Field kOutlierLimit{.key = "outlier-limit",
                                     .caption = "Outlier limit: No. of SD units:",
                                     .initial = "4",
                                     .demand = kPositiveLimit};

inline constexpr std::array<Choice, 3> kProcedureChoices{
    {{"ols",
      "Linearity evaluation on the basis of Ordinary Least-Squares Regression Analysis (OLR)"},
     {"wls",
      "Linearity evaluation on the basis of Weighted Least-Squares Regression Analysis (WLR)"},
     {"polynomial",
      "Linearity evaluation on the basis of polynomial fit (recommended NCCLS EP6 A "
      "procedure)"}}};
inline constexpr Field kProcedure{
    .key = "procedure", .kind = FieldKind::kChoice, .initial = "ols", .choices = kProcedureChoices};
inline constexpr When kOlr{kProcedure.key, "ols"}, kWlr{kProcedure.key, "wls"},
    kPolynomial{kProcedure.key, "polynomial"};

inline constexpr std::string_view kWeightingGroup = "Weighting:";
inline constexpr Field kExponent{
    .key = "weighting-exponent",
    .group = kWeightingGroup,
    .caption = "Weighting exponent (0 - 2; 2 corr. to proportional weighting)",
    .initial = "2",
    .enabled = {kWlr}};
inline constexpr Field kTruncation{.key = "truncation-limit",
                                   .group = kWeightingGroup,
                                   .caption = "Truncation of weighting at lower limit:",
                                   .initial = "0",
                                   .enabled = {kWlr}};

inline constexpr std::array<Choice, 2> kDegrees{
    {{"2", "Second degree polynomial fit"}, {"3", "Third degree polynomial fit"}}};
inline constexpr Field kDegree{.key = "degree",
                               .kind = FieldKind::kChoice,
                               .group = "Polynomial fit:",
                               .initial = "2",
                               .choices = kDegrees,
                               .enabled = {kPolynomial}};

inline constexpr std::string_view kGoalGroup = "Linearity goal:";
inline constexpr std::array<Choice, 2> kGoals{
    {{"percent", "Maximum percent deviation:"}, {"absolute", "Maximum abs. deviation:"}}};
inline constexpr Field kGoal{.key = "goal",
                             .kind = FieldKind::kChoice,
                             .group = kGoalGroup,
                             .initial = "percent",
                             .choices = kGoals,
                             .enabled = {kPolynomial}};
inline constexpr When kByPercent{kGoal.key, "percent"}, kByAmount{kGoal.key, "absolute"};
inline constexpr Field kPercentGoal{.key = "percent-goal",
                                    .group = kGoalGroup,
                                    .initial = "5",
                                    .enabled = {kPolynomial, kByPercent},
                                    .beside = kByPercent};
inline constexpr Field kAbsoluteGoal{.key = "absolute-goal",
                                     .group = kGoalGroup,
                                     .enabled = {kPolynomial, kByAmount},
                                     .beside = kByAmount};

void RunLackOfFit(Run& run);
void RunPolynomial(Run& run);

}  // namespace quorval::methodeval::linearity
