#include "analyses/methodeval/variance_components.h"

namespace quorval::methodeval {
namespace {

Real MeanOf(const Sample& values) { return Sum(values) / values.size(); }

}  // namespace

PooledVariance PoolWithin(std::span<const Sample> groups) {
  Real squares;
  int df = 0;
  for (const Sample& group : groups) {
    const Real mean = MeanOf(group);
    for (Real value : group) squares += Square(value - mean);
    df += static_cast<int>(group.size()) - 1;
  }
  return {squares / df, df};
}

VarianceComponents EstimateComponents(std::span<const Sample> groups) {
  const Real k = groups.size();
  Real N, sum, squared_sizes;
  for (const Sample& group : groups) {
    const Real n = group.size();
    N += n;
    sum += n * MeanOf(group);
    squared_sizes += Square(n);
  }
  VarianceComponents v;
  v.M = sum / N;
  Real squares;
  for (const Sample& group : groups) squares += group.size() * Square(MeanOf(group) - v.M);
  v.MSB = squares / (k - 1);
  v.nav = (N - squared_sizes / N) / (k - 1);

  // Not the square of Sw, which rounding can set apart from an equal MSB.
  const Real within = PoolWithin(groups).variance;
  v.Sw = Sqrt(within);
  if (v.MSB - within < 0) return v;
  v.Sb = Sqrt((v.MSB - within) / v.nav);
  v.St = Sqrt(within + Square(*v.Sb));
  return v;
}

}  // namespace quorval::methodeval
