#include "analyses/reference/confidence_ranks.h"

#include <algorithm>
#include <array>

namespace quorval::reference {
namespace {

// The ranks a and b for samples of up to `last` values, above the row before.
struct Row {
  int last, a, b;
};
constexpr std::array<Row, 44> kRows{{
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
  const auto& row = *std::ranges::find_if(kRows, [&](const Row& r) { return N <= r.last; });
  return {row.a, row.b, N + 1 - row.b, N + 1 - row.a};
}

Real RoundUp(Real value) {
  const Real r = Int(value);
  return r < value ? r + 1 : r;
}

ConfidenceRanks RanksByNormal(Real N) {
  const Real w = 1.645 * Sqrt(0.975 * 0.025 * N);
  return {Int(0.5 + 0.025 * N - w), RoundUp(0.5 + 0.025 * N + w), Int(0.5 + 0.975 * N - w),
          RoundUp(0.5 + 0.975 * N + w)};
}

}  // namespace

std::optional<ConfidenceRanks> FindConfidenceRanks(Real N) {
  if (N < kFirstTabled) return std::nullopt;
  return N <= kLastTabled ? RanksByTable(N) : RanksByNormal(N);
}

}  // namespace quorval::reference
