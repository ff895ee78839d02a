#include "analyses/methodeval/method_evaluation.h"

namespace quorval::methodeval {

void RefuseWithoutDispersion(const Run& run, std::span<const Real> values) {
  const Range range = RangeOf(values);
  if (range.max == range.min) run.Refuse(" No dispersion in variables: No analysis ");
}

std::optional<Real> PercentOf(Real part, Real whole) {
  if (whole == 0) return std::nullopt;
  return 100 * part / whole;
}

Points AgainstNumber(std::span<const Real> values) {
  Points points;
  for (Real value : values) points.push_back({points.size() + 1, value});
  return points;
}

void AddSdLines(Plot& plot, Real mean, Real sd, const Range& x) {
  const auto add = [&](int sds, Pattern pattern, Colour colour) {
    const Real level = mean + sds * sd;
    plot.AddLine({{x.min, level}, {x.max, level}}, pattern).colour = colour;
  };
  add(0, Pattern::kSolid, kBlue);
  add(-2, Pattern::kDotted, kGreen);
  add(2, Pattern::kDotted, kGreen);
  add(-3, Pattern::kDotted, kRed);
  add(3, Pattern::kDotted, kRed);
}

}  // namespace quorval::methodeval
