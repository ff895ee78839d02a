// The regressions whose time grows fastest with the number of points: the fits and their limits or
// standard errors, columns in, numbers out.
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>

#include "analyses/regression/fit_passing_bablok.h"
#include "analyses/regression/fit_weighted_deming.h"
#include "support/transcript.h"

namespace quorval::regression {
namespace {

struct Columns {
  Sample x, y;
};

// A comparison over one and a half decades, the error growing with the level; rounded to `unit`.
Columns MakeColumns(std::size_t n, double unit) {
  std::mt19937 random(1);
  const auto uniform = [&] { return static_cast<double>(random()) / 4294967296.0; };
  const auto error = [&] { return uniform() + uniform() + uniform() - 1.5; };
  const auto rounded = [&](double value) {
    return unit == 0 ? value : std::round(value / unit) * unit;
  };
  Columns columns;
  for (std::size_t i = 0; i < n; ++i) {
    const double truth = 3 + 97 * uniform();
    columns.x.push_back(rounded(truth * (1 + 0.05 * error())));
    columns.y.push_back(rounded(1.03 * truth * (1 + 0.05 * error())));
  }
  return columns;
}

SingleMeasurements Measure(std::size_t n) {
  const Columns columns = MakeColumns(n, 0);
  return {.x = ToSingles(columns.x), .y = ToSingles(columns.y), .lambda = Single(1)};
}

// The pair quotients, nothing stored: what the machine does at best.
void Yardstick(benchmark::State& state) {
  const Columns columns = MakeColumns(9999, 0);
  std::vector<double> x, y;
  for (Real value : columns.x) x.push_back(Raw(value));
  for (Real value : columns.y) y.push_back(Raw(value));
  for (auto _ : state) {
    double below = 0;
    for (std::size_t i = 0; i < x.size(); ++i)
      for (std::size_t j = i + 1; j < x.size(); ++j)
        below += (y[j] - y[i]) / (x[j] - x[i]) < 1 ? 1 : 0;
    benchmark::DoNotOptimize(below);
  }
}
BENCHMARK(Yardstick)->Unit(benchmark::kMillisecond);

// The second argument is the unit of rounding in hundredths; 0: none.
void PassingBablok(benchmark::State& state) {
  const Columns columns = MakeColumns(static_cast<std::size_t>(state.range(0)),
                                      static_cast<double>(state.range(1)) / 100);
  test::RecordedMessages messages;
  for (auto _ : state) benchmark::DoNotOptimize(PassingBablokFit(messages, columns.x, columns.y));
}
BENCHMARK(PassingBablok)
    ->ArgsProduct({{100, 1000, 3000, 9999}, {0, 1, 100}})
    ->Unit(benchmark::kMillisecond);

void DemingJackknife(benchmark::State& state) {
  const SingleMeasurements measured = Measure(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(FitDemingWithoutEach(measured));
}
BENCHMARK(DemingJackknife)->Arg(100)->Arg(1000)->Arg(9999)->Unit(benchmark::kMillisecond);

// One fit after the other, on copies without a point.
void PlainDemingJackknife(benchmark::State& state) {
  const SingleMeasurements measured = Measure(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    for (std::ptrdiff_t j = 0; j < std::ssize(measured.x); ++j) {
      SingleMeasurements rest = measured;
      rest.x.erase(rest.x.begin() + j);
      rest.y.erase(rest.y.begin() + j);
      benchmark::DoNotOptimize(FitDeming(rest));
    }
  }
}
BENCHMARK(PlainDemingJackknife)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

// The second argument is ten times the weighting exponent.
void WeightedDemingJackknife(benchmark::State& state) {
  const SingleMeasurements measured = Measure(static_cast<std::size_t>(state.range(0)));
  const Weighting weighting{.P = Single(static_cast<double>(state.range(1)) / 10), .T = Single(0)};
  for (auto _ : state) benchmark::DoNotOptimize(FitWeightedDemingWithoutEach(measured, weighting));
}
BENCHMARK(WeightedDemingJackknife)
    ->Args({100, 20})
    ->Args({1000, 20})
    ->Args({9999, 20})
    ->Args({1000, 15})
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quorval::regression
