#include "stats/histogram.h"

#include <algorithm>

namespace quorval {

HistogramClasses DefaultClasses(const Description& values, Real N) {
  const Real width = 2.15 * values.sd * Pow(N, -0.2);
  // The range is less than N widths, so the number is small.
  return DivideRange(values, static_cast<int>(Raw(Int((values.max - values.min) / width))));
}

HistogramClasses DivideRange(const Description& values, int k) {
  const int classes = std::max(k, 1);
  return {values.min, (values.max - values.min) / classes, classes};
}

std::vector<int> CountInClasses(const HistogramClasses& classes, Sample values) {
  std::ranges::sort(values);
  const auto below = [&](Real bound) {
    return static_cast<int>(std::ranges::lower_bound(values, bound) - values.begin());
  };
  std::vector<int> counts;
  for (int i = 0; i < classes.k - 1; ++i) {
    const Real a = classes.smallest + i * classes.h;
    counts.push_back(below(a + classes.h) - below(a));
  }
  const Real last = classes.smallest + (classes.k - 1) * classes.h;
  counts.push_back(static_cast<int>(values.size()) - below(last));
  return counts;
}

Series Bars(const HistogramClasses& classes, std::span<const int> counts, Real divisor) {
  Series bars{.draw = Draw::kBars, .bar_width = classes.h};
  for (std::size_t i = 0; i < counts.size(); ++i)
    bars.points.push_back({classes.smallest + (Real(i) + 0.5) * classes.h, counts[i] / divisor});
  return bars;
}

}  // namespace quorval
