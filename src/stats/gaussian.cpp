#include "stats/gaussian.h"

#include <numbers>

#include "core/failure.h"

namespace quorval {
namespace {

constexpr int kCurvePoints = 100;

// The curve of a function of z = (x - mean) / sd.
template <class FunctionOfZ>
Points Curve(const Description& values, FunctionOfZ&& y_of) {
  Points points;
  const Real step = (values.max - values.min) / (kCurvePoints - 1);
  for (int i = 0; i < kCurvePoints; ++i) {
    const Real x = i == kCurvePoints - 1 ? values.max : values.min + i * step;
    points.push_back({x, y_of((x - values.mean) / values.sd)});
  }
  return points;
}

}  // namespace

Real CumGauss(Messages& messages, Real z) {
  Real P;
  Attempt(messages, "Error in cumulative Gauss routine", [&] {
    const Real t = 1 / (1 + 0.2316419 * Abs(z));
    const Real d = 0.3989423 * Exp(-Square(z) / 2);
    P = 1 -
        d * t * (0.3193815 + t * (-0.3565638 + t * (1.781478 + t * (-1.821256 + t * 1.330274))));
    if (z < 0) P = 1 - P;
  });
  return P;
}

Points DensityCurve(const Description& values, Real scale) {
  const Real peak = 1 / (values.sd * Sqrt(2 * std::numbers::pi));
  return Curve(values, [&](Real z) { return Exp(-Square(z) / 2) * peak * scale; });
}

Points CumulativeCurve(Messages& messages, const Description& values) {
  return Curve(values, [&](Real z) { return CumGauss(messages, z); });
}

Points CumulativeFrequencies(std::span<const Real> sorted) {
  Points points;
  const Real N = sorted.size();
  for (std::size_t i = 0; i < sorted.size(); ++i) points.push_back({sorted[i], (i + 1) / N});
  return points;
}

}  // namespace quorval
