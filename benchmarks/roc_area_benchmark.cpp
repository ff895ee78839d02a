// The resampled SE of the area under a ROC curve; beside it the plain form, which sorts and sweeps
// every resample.  Argument: the size of each group.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>

#include "analyses/diagnostic/roc_area.h"
#include "stats/percentile.h"
#include "stats/resampling.h"
#include "support/made_data.h"
#include "support/transcript.h"

namespace quorval::diagnostic {
namespace {

constexpr int kReplications = 100;

struct Groups {
  Sample first, second;
};

Groups MakeGroups(std::int64_t n) {
  std::mt19937 random(1);
  const auto sample = [&](Real above) {
    Sample values = test::TiedSample(random, static_cast<std::size_t>(n), 20000);
    for (Real& value : values) value += above;
    return SortAscending(values);
  };
  Groups groups{.first = sample(0), .second = {}};
  groups.second = sample(500);
  return groups;
}

void AreaSE(benchmark::State& state) {
  const Groups groups = MakeGroups(state.range(0));
  test::RecordedMessages messages;
  for (auto _ : state)
    benchmark::DoNotOptimize(
        SummariseReplicates(ResampleAreas(messages, groups.first, groups.second, kReplications)));
}

void PlainAreaSE(benchmark::State& state) {
  const Groups groups = MakeGroups(state.range(0));
  const auto draw = [](const Sample& sorted, ResampleGenerator& generator) {
    Sample drawn(sorted.size());
    for (Real& value : drawn) value = sorted[generator.DrawIndex(sorted.size())];
    std::ranges::sort(drawn);
    return drawn;
  };
  for (auto _ : state) {
    ResampleGenerator generator;
    Sample areas;
    for (int replicate = 0; replicate < kReplications; ++replicate) {
      const Sample first = draw(groups.first, generator);
      areas.push_back(AreaUnder(SweepCutOffs(first, draw(groups.second, generator))));
    }
    benchmark::DoNotOptimize(SummariseReplicates(areas));
  }
}

BENCHMARK(AreaSE)->Arg(100)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK(PlainAreaSE)->Arg(100)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quorval::diagnostic
