// Rank tests of two samples.  Small samples are classed by printed tables, larger ones by the
// normal approximation with a continuity correction of 0.5; ties do not change its SD.
#pragma once

#include <span>
#include <string_view>

#include "core/real.h"

namespace quorval::general {

// The ranks of the values by size, from 1, in the order of the values.  Equal values share the mean
// of their ranks.
Sample MeanRanks(std::span<const Real> values);

inline constexpr std::size_t kFewestRanked = 5;

struct RankSumTest {
  Real R1, R2;              // the rank sums of x and y in the combined sample
  std::string_view PClass;  // two-sided
};

// Mann and Whitney's test of two independent samples, each of at least kFewestRanked values.
RankSumTest TestRankSums(std::span<const Real> x, std::span<const Real> y);

// The class of the two-sided P of Wilcoxon's test of paired samples, by their differences.  A
// difference of zero is ranked as well, and adds half its rank to either side.  Empty below 7
// pairs.
std::string_view SignedRankClass(std::span<const Real> differences);

}  // namespace quorval::general
