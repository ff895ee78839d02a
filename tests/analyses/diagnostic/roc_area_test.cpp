#include "analyses/diagnostic/roc_area.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "stats/percentile.h"
#include "stats/resampling.h"
#include "support/made_data.h"
#include "support/transcript.h"

namespace quorval::diagnostic {
namespace {

double CountAtMost(const Sample& sample, Real limit) {
  const auto count = std::ranges::count_if(sample, [&](Real x) { return x <= limit; });
  return static_cast<double>(count);
}

// The definition, step by step: every candidate looks at every value.
double PlainArea(const Sample& first, const Sample& second) {
  Sample merged = first;
  merged.insert(merged.end(), second.begin(), second.end());
  std::ranges::sort(merged);
  const auto N1 = static_cast<double>(first.size()), N2 = static_cast<double>(second.size());
  float spec = 0, sens = 1;
  double area = 0;
  for (std::size_t k = 1; k <= merged.size(); ++k) {
    const Real c = k < merged.size() ? (merged[k - 1] + merged[k]) / 2 : merged.back();
    const auto next_spec = static_cast<float>(CountAtMost(first, c) / N1);
    const auto next_sens = static_cast<float>((N2 - CountAtMost(second, c)) / N2);
    area += ((1 - double{spec}) - (1 - double{next_spec})) * (double{sens} + double{next_sens}) / 2;
    spec = next_spec;
    sens = next_sens;
  }
  return area;
}

double MannWhitney(const Sample& first, const Sample& second) {
  double U = 0;
  for (Real x : first)
    for (Real y : second) U += y > x ? 1 : y == x ? 0.5 : 0;
  return U / static_cast<double>(first.size() * second.size());
}

Sample Draw(const Sample& sample, ResampleGenerator& generator) {
  Sample drawn;
  for (std::size_t i = 0; i < sample.size(); ++i)
    drawn.push_back(sample[generator.DrawIndex(sample.size())]);
  return drawn;
}

TEST(RocArea, HasTheBitsOfThePlainSweep) {
  std::mt19937 random(1);
  test::RecordedMessages messages;
  for (int set = 0; set < 200; ++set) {
    const auto sample = [&](unsigned long distinct) {
      return SortAscending(test::TiedSample(random, 1 + random() % 50, 1 + random() % distinct));
    };
    const Sample first = sample(60), second = sample(80);
    const double plain = PlainArea(first, second);
    EXPECT_EQ(AreaUnder(SweepCutOffs(first, second)), plain);
    EXPECT_NEAR(plain, MannWhitney(first, second), 1e-7);
    ResampleGenerator generator;
    for (Real area : ResampleAreas(messages, first, second, 6)) {
      const Sample first_drawn = Draw(first, generator);
      ASSERT_EQ(area, PlainArea(first_drawn, Draw(second, generator))) << set;
    }
  }
  EXPECT_THAT(messages.boxes, testing::IsEmpty());
}

// By hand, but for the last: tests/independent/diagnostic_tests.py.
TEST(CutOffSweep, ChoosesTheLowestOfTheBestCandidates) {
  const struct {
    std::string what;
    Sample first, second;
    double max_sum, max_correct;
  } cases[] = {
      {"separate", {1, 2}, {3, 4}, 2.5, 2.5},
      {"ties within and between", {1, 2, 2, 3}, {2, 3, 3, 5}, 2, 2},
      {"reversed: all are called positive", {3, 4}, {1, 2}, 0.99999, 0.99999},
      {"equal", {1, 2}, {1, 2}, 0.99999, 0.99999},
      {"largest value", {5, 6}, {1}, 0.99999, 6},
      {"below a large value there is no candidate", {2e30}, {1e30}, 1e30, 1e30},
      {"a value that ends on a midpoint", {1, 3}, {2, 4}, 1.5, 1.5},
      // 6/10 + 7/10 and 8/10 + 5/10, which binary fractions hold to be unequal.
      {"equal sums of unequal fractions",
       {4, 5, 6, 7, 8, 9, 12, 13, 19, 20},
       {1, 2, 3, 10, 11, 14, 15, 16, 17, 18},
       9.5,
       9.5},
      {"unequal groups",
       {1, 2, 2, 3, 3, 3, 4, 5, 5, 6, 7, 9},
       {3, 4, 4, 5, 6, 6, 7, 7, 8, 9, 9, 10, 12, 12},
       5,
       3},
  };
  for (const auto& [what, first, second, max_sum, max_correct] : cases) {
    const CutOffSweep sweep = SweepCutOffs(first, second);
    EXPECT_EQ(Real(CutOffOfMaxSum(sweep)), Real(Single(max_sum))) << what;
    EXPECT_EQ(Real(CutOffOfMaxCorrect(sweep)), Real(Single(max_correct))) << what;
  }
}

}  // namespace
}  // namespace quorval::diagnostic
