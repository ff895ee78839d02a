// Weights for an error that grows with the concentration.
#pragma once

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "core/quantity.h"
#include "core/run.h"

namespace quorval {

// A point at u weighs 1 / u^P, and one below T as much as one at T.
struct Weighting {
  Single P, T;

  Real Truncated(Real u) const { return u < T ? Real(T) : u; }
  Real At(Real u) const { return 1 / Pow(Truncated(u), P); }
};

// What has no weight.
inline void RefuseNegativeOrZero(const Run& run, std::span<const Real> values,
                                 std::string_view words) {
  if (std::ranges::any_of(values, [](Real value) { return value <= 0; })) run.Refuse(words);
}

namespace quantity {
inline constexpr Quantity kExponent{
    .name = "weighting_exponent", .caption = {}, .width = Width::k32};
inline constexpr Quantity kTruncationLimit{
    .name = "truncation_limit", .caption = {}, .unit = Unit::kMeasurand, .width = Width::k32};
}  // namespace quantity

// A method's own words for its weights.
struct WeightingRows {
  Quantity exponent, limit;
  std::string_view square_root, proportional;  // what the exponents 1 and 2 mean

  constexpr std::array<Quantity, 2> All() const { return {exponent, limit}; }
  // Empty for other exponents.
  std::string_view RelationshipOf(const Weighting& weighting) const {
    if (weighting.P == 1) return square_root;
    return weighting.P == 2 ? proportional : std::string_view{};
  }
};

}  // namespace quorval
