#include "analyses/difference/user_limits.h"

#include <algorithm>
#include <array>

namespace quorval::difference {
namespace {

struct Band {
  int last_n;
  int critical;  // percent within the limits
};

constexpr int kSmallestN = 20;
constexpr std::array<Band, 6> kBands{
    {{25, 86}, {29, 87}, {79, 90}, {99, 91}, {149, 92}, {1000, 93}}};

}  // namespace

Real ProportionOutside(const UserLimits& limits, Real relative_limit, std::span<const Real> mean,
                       std::span<const Real> difference, std::span<const Real> relative) {
  int outside = 0;
  for (std::size_t i = 0; i < mean.size(); ++i) {
    const bool constant = limits.IsConstantAt(mean[i]);
    const Real value = constant ? difference[i] : relative[i];
    const Real limit = constant ? Real(limits.constant) : relative_limit;
    if (value < -limit || value > limit) ++outside;
  }
  return Real(100) * outside / mean.size();
}

Agreement TestProportion(int n, Real proportion_outside) {
  if (n < kSmallestN || n > kBands.back().last_n) return Agreement::kNotTested;
  const auto band = std::ranges::find_if(kBands, [&](const Band& b) { return n <= b.last_n; });
  return 100 - proportion_outside < band->critical ? Agreement::kDoesNotAgree : Agreement::kAgrees;
}

}  // namespace quorval::difference
