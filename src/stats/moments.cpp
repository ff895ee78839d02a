#include "stats/moments.h"

#include "core/failure.h"

namespace quorval {
namespace {

struct Moments {
  Real m2, m3, m4;
};

Moments CentralMoments(std::span<const Real> y) {
  const Real N = y.size();
  const Real mean = Sum(y) / N;
  Real squares, cubes, fourths;
  for (Real value : y) {
    const Real d = value - mean;
    squares += d * d;
    cubes += d * d * d;
    fourths += d * d * d * d;
  }
  return {squares / N, cubes / N, fourths / N};
}

}  // namespace

Real Skewness(Messages& messages, std::span<const Real> y) {
  return Insist(messages, "Error in skewness sub", [&] {
    const Moments m = CentralMoments(y);
    const Real sd = Sqrt(m.m2);
    return m.m3 / (sd * sd * sd);
  });
}

Real Kurtosis(std::span<const Real> y) {
  const Moments m = CentralMoments(y);
  const Real sd = Sqrt(m.m2);
  return m.m4 / (sd * sd * sd * sd) - 3;
}

}  // namespace quorval
