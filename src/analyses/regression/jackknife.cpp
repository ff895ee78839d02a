#include "analyses/regression/jackknife.h"

namespace quorval::regression {

JackknifeErrors Jackknife(Messages& messages, const DemingLine& line,
                          std::span<const DemingLine> without_each, const Levels& levels) {
  const Real n = without_each.size();
  const auto se_of = [&](auto&& quantity) {
    const Real Q = quantity(line);
    Sample pseudovalues;
    pseudovalues.reserve(without_each.size());
    for (const DemingLine& without : without_each)
      pseudovalues.push_back(n * Q - (n - 1) * quantity(without));
    return DescribeSample(messages, pseudovalues).sd / Sqrt(n);
  };
  const auto estimate_at = [&](Real u) {
    return Estimate{line.At(u), se_of([&](const DemingLine& one) { return one.At(u); })};
  };
  JackknifeErrors errors{
      .se_b = se_of([](const DemingLine& one) { return one.b; }),
      .se_a0 = se_of([](const DemingLine& one) { return one.a0; }),
      .estimates = {.Yc1 = estimate_at(levels.Xc1.x), .Yc2 = estimate_at(levels.Xc2.x)}};
  std::ranges::transform(levels.u, errors.estimates.bands.begin(), estimate_at);
  return errors;
}

}  // namespace quorval::regression
