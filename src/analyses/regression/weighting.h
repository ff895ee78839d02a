// Weights for an error that grows with the concentration.
#pragma once

#include "analyses/regression/regression.h"

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

// A point at u weighs 1 / u^P, and not more than at T where T is above 0.
struct Weighting {
  Single P, T;
  Real At(Real u) const { return 1 / Pow(u, P); }
};

inline Weighting TakeWeighting(const Form& form) {
  return {form.Number32(kWeightingExponent), form.Number32(kTruncationLimit)};
}

namespace quantity {
inline constexpr Quantity kExponent{
    .name = "weighting_exponent", .caption = {}, .width = Width::k32};
inline constexpr Quantity kTruncationLimit{
    .name = "truncation_limit", .caption = {}, .unit = Unit::kMeasurand, .width = Width::k32};
inline constexpr Quantity kWeightedCorrelation{.name = "correlation.weighted", .caption = {}};
inline constexpr Quantity kSDyxFactor{.name = "sd_yx.factor", .caption = {}};
}  // namespace quantity

// A method's own words for its weights.
struct WeightingRows {
  Quantity exponent, limit;
  std::string_view square_root, proportional;  // what the exponents 1 and 2 mean

  constexpr std::array<Quantity, 2> All() const { return {exponent, limit}; }
};

inline void WriteExponent(ResultsSheet& sheet, int row, const WeightingRows& rows,
                          const Weighting& weighting) {
  std::string_view relationship;
  if (weighting.P == 1) relationship = rows.square_root;
  if (weighting.P == 2) relationship = rows.proportional;
  sheet.Row(row, rows.exponent(Real(weighting.P)), relationship);
}

inline void RefuseNegativeOrZero(const Run& run, std::span<const Real> values,
                                 std::string_view words) {
  if (std::ranges::any_of(values, [](Real value) { return value <= 0; })) run.Refuse(words);
}

}  // namespace quorval::regression
