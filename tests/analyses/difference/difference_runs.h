// Data and runs that the tests of the difference plots share.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "analyses/registry.h"
#include "support/analysis_cases.h"

namespace quorval::test {

constexpr std::string_view kDifferenceFault = "Error occurred in Difference Plot analysis";

// Runs the difference plots with six decimals.
inline Transcript RunDifference(const Columns& columns, const Settings& settings = {}) {
  Context context;
  context.ProjectName = "Peak flow";
  context.NDec = "6";
  return RunAnalysis(difference::kDifference, columns, settings, context);
}

// x is 10, 20 to 240.  Pairs 13, 15 to 23 differ by 20, and pair 1 by 6, far from the others in
// relative units.
struct MadePairs {
  std::vector<double> x, y;
};
inline MadePairs MakePairs() {
  constexpr std::array<double, 6> kSmall{1, -1, 2, -2, 0.5, -0.5};
  MadePairs pairs;
  for (int i = 1; i <= 24; ++i) {
    double d = kSmall[static_cast<std::size_t>((i - 1) % 6)];
    if (i == 1) d = 6;
    if (i >= 13 && i % 2 == 1) d = i % 4 == 1 ? 20 : -20;
    pairs.x.push_back(10 * i);
    pairs.y.push_back(10 * i + d);
  }
  return pairs;
}
inline Columns MadeColumns() {
  const auto [x, y] = MakePairs();
  return {TextsOf(x), TextsOf(y)};
}

// x and y whose differences are `outside` times 6 and else 1 or -1, by turns; means near 100.
inline Columns PairsWithDifferences(int n, int outside) {
  Columns columns(2);
  for (int i = 0; i < n; ++i) {
    const int d = i < outside ? 6 : (i % 2 == 0 ? 1 : -1);
    columns[0].push_back(std::to_string(100 + i % 7));
    columns[1].push_back(std::to_string(100 + i % 7 + d));
  }
  return columns;
}

}  // namespace quorval::test
