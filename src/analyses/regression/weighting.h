// How the regressions take their weights and show them.
#pragma once

#include "analyses/regression/regression.h"
#include "analyses/weighting.h"

namespace quorval::regression {

// Each method has its own captions for these.
inline constexpr Field kWeightingExponent{
    .key = "weighting-exponent",
    .initial = "2",
    .demand = {
        .reading = Reading::kLeadingNumber32, .least = 0, .most = 2, .refusal = kOptionRefused}};
inline constexpr Field kTruncationLimit{
    .key = "truncation-limit",
    .initial = "0",
    .demand = {.reading = Reading::kLeadingNumber32, .least = 0, .refusal = kOptionRefused}};

inline Weighting TakeWeighting(const Form& form) {
  return {form.LeadingNumber32(kWeightingExponent), form.LeadingNumber32(kTruncationLimit)};
}

namespace quantity {
inline constexpr Quantity kWeightedCorrelation{.name = "correlation.weighted", .caption = {}};
inline constexpr Quantity kSDyxFactor{.name = "sd_yx.factor", .caption = {}};
}  // namespace quantity

inline void WriteExponent(ResultsSheet& sheet, int row, const WeightingRows& rows,
                          const Weighting& weighting) {
  sheet.Row(row, rows.exponent(Real(weighting.P)), rows.RelationshipOf(weighting));
}

}  // namespace quorval::regression
