// The nonparametric estimators of a reference interval, the bootstrap beside its plain form, which
// sorts every resample; and the SE of one percentile.  Arguments: sample size, replications.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>

#include "analyses/reference/nonparametric.h"
#include "stats/percentile.h"
#include "stats/resampling.h"
#include "support/made_data.h"

namespace quorval::reference {
namespace {

Sample SortedSample(std::int64_t n) {
  std::mt19937 random(1);
  return SortAscending(test::TiedSample(random, static_cast<std::size_t>(n), 2000));
}

void Simple(benchmark::State& state) {
  const Sample sorted = SortedSample(state.range(0));
  for (auto _ : state)
    benchmark::DoNotOptimize(EstimateSimple(sorted, PositionsByNHalf(sorted.size())));
}

void Bootstrap(benchmark::State& state) {
  const Sample sorted = SortedSample(state.range(0));
  for (auto _ : state)
    benchmark::DoNotOptimize(EstimateByBootstrap(sorted, PositionsByNHalf(sorted.size()),
                                                 static_cast<int>(state.range(1))));
}

void PlainBootstrap(benchmark::State& state) {
  const Sample sorted = SortedSample(state.range(0));
  const PercentilePositions at = PositionsByNHalf(sorted.size());
  for (auto _ : state) {
    ResampleGenerator generator;
    Sample drawn(sorted.size());
    Real sum;
    for (std::int64_t replicate = 0; replicate < state.range(1); ++replicate) {
      for (Real& value : drawn) value = sorted[generator.DrawIndex(sorted.size())];
      std::ranges::sort(drawn);
      sum +=
          AtPosition(drawn, at.median) + AtPosition(drawn, at.lower) + AtPosition(drawn, at.upper);
    }
    benchmark::DoNotOptimize(sum);
  }
}

void PercentileSE(benchmark::State& state) {
  const Sample sorted = SortedSample(state.range(0));
  const Sample position{0.9 * Real(sorted.size()) + 0.5};
  for (auto _ : state) benchmark::DoNotOptimize(BootstrapPositions(sorted, position, 200));
}

BENCHMARK(Simple)->Arg(158)->Arg(1000)->Arg(9999);
BENCHMARK(Bootstrap)
    ->ArgsProduct({{158, 1000, 9999}, {200, 2000, 32767}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(PlainBootstrap)
    ->ArgsProduct({{158, 1000, 9999}, {200, 2000}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(PercentileSE)->Arg(158)->Arg(1000)->Arg(9999)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quorval::reference
