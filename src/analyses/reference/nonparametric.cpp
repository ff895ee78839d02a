#include "analyses/reference/nonparametric.h"

#include <algorithm>
#include <array>

#include "stats/percentile.h"
#include "stats/resampling.h"

namespace quorval::reference {
namespace {

// The ranks a and b for samples of up to `last` values, above the row before.
struct RankRow {
  int last, a, b;
};
constexpr std::array<RankRow, 44> kRankRows{{
    {132, 1, 7},   {160, 1, 8},    {187, 1, 9},   {189, 2, 9},   {218, 2, 10},  {248, 2, 11},
    {249, 2, 12},  {279, 3, 12},   {307, 3, 13},  {309, 4, 13},  {340, 4, 14},  {363, 4, 15},
    {372, 5, 15},  {403, 5, 16},   {417, 5, 17},  {435, 6, 17},  {468, 6, 18},  {470, 6, 19},
    {500, 7, 19},  {522, 7, 20},   {533, 8, 20},  {565, 8, 21},  {574, 8, 22},  {598, 9, 22},
    {624, 9, 23},  {631, 10, 23},  {665, 10, 24}, {674, 10, 25}, {698, 11, 25}, {724, 11, 26},
    {732, 12, 26}, {765, 12, 27},  {773, 12, 28}, {799, 13, 28}, {822, 13, 29}, {833, 14, 29},
    {867, 14, 30}, {871, 14, 31},  {901, 15, 31}, {919, 15, 32}, {935, 16, 32}, {967, 16, 33},
    {970, 17, 33}, {1000, 17, 34},
}};

constexpr int kFirstTabled = 120;
constexpr int kLastTabled = 1000;

ConfidenceRanks RanksByTable(Real N) {
  const auto& row = *std::ranges::find_if(kRankRows, [&](const RankRow& r) { return N <= r.last; });
  return {row.a, row.b, N + 1 - row.b, N + 1 - row.a};
}

Real RoundUp(Real value) {
  const Real r = Int(value);
  return r < value ? r + 1 : r;
}

ConfidenceRanks RanksByNormal(Real N) {
  const Real w = kDeviateOf90 * Sqrt(0.975 * 0.025 * N);
  return {Int(0.5 + 0.025 * N - w), RoundUp(0.5 + 0.025 * N + w), Int(0.5 + 0.975 * N - w),
          RoundUp(0.5 + 0.975 * N + w)};
}

}  // namespace

PercentilePositions PositionsByNHalf(Real N) {
  return {MedianPosition(N), 0.025 * N + 0.5, 0.975 * N + 0.5};
}

PercentilePositions PositionsByNPlus1(Real N) {
  return {MedianPosition(N), 0.025 * (N + 1), 0.975 * (N + 1)};
}

std::optional<ConfidenceRanks> FindConfidenceRanks(Real N) {
  if (N < kFirstTabled) return std::nullopt;
  return N <= kLastTabled ? RanksByTable(N) : RanksByNormal(N);
}

NonparametricEstimate EstimateSimple(std::span<const Real> sorted, const PercentilePositions& at) {
  NonparametricEstimate estimate{
      .median = AtPosition(sorted, at.median),
      .interval = {{AtPosition(sorted, at.lower)}, {AtPosition(sorted, at.upper)}}};
  if (const auto ranks = FindConfidenceRanks(sorted.size())) {
    estimate.interval.lower.confidence = {AtRank(sorted, ranks->a), AtRank(sorted, ranks->b)};
    estimate.interval.upper.confidence = {AtRank(sorted, ranks->c), AtRank(sorted, ranks->d)};
  }
  return estimate;
}

NonparametricEstimate EstimateByBootstrap(std::span<const Real> sorted,
                                          const PercentilePositions& at, int R) {
  const Sample positions{at.median, at.lower, at.upper};
  const auto estimates = BootstrapPositions(sorted, positions, R);
  const auto percentile = [](const BootstrapEstimate& estimate) {
    return Percentile{estimate.mean, LimitsAround(estimate.mean, estimate.sd)};
  };
  return {estimates[0].mean, {percentile(estimates[1]), percentile(estimates[2])}};
}

}  // namespace quorval::reference
