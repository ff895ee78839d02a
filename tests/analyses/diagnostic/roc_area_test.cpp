#include "analyses/diagnostic/roc_area.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "stats/percentile.h"
#include "stats/resampling.h"
#include "support/made_data.h"
#include "support/transcript.h"

namespace quorval::diagnostic {
namespace {

// The definition, step by step: every candidate looks at every value.
struct PlainCurve {
  std::vector<float> spec{0}, sens{1};
};

PlainCurve DrawCurve(const Sample& first, const Sample& second) {
  const auto fraction_above = [](const Sample& sample, Real cut_off) {
    const auto above = std::ranges::count_if(sample, [&](Real x) { return x > cut_off; });
    return static_cast<double>(above) / static_cast<double>(sample.size());
  };
  const auto fraction_below = [](const Sample& sample, Real cut_off) {
    const auto below = std::ranges::count_if(sample, [&](Real x) { return x <= cut_off; });
    return static_cast<double>(below) / static_cast<double>(sample.size());
  };
  Sample merged = first;
  merged.insert(merged.end(), second.begin(), second.end());
  std::ranges::sort(merged);
  PlainCurve curve;
  for (std::size_t k = 1; k <= merged.size(); ++k) {
    const Real c = k < merged.size() ? (merged[k - 1] + merged[k]) / 2 : merged.back();
    curve.spec.push_back(static_cast<float>(fraction_below(first, c)));
    curve.sens.push_back(static_cast<float>(fraction_above(second, c)));
  }
  return curve;
}

double PlainArea(const Sample& first, const Sample& second) {
  const auto [spec, sens] = DrawCurve(first, second);
  double area = 0;
  for (std::size_t k = 1; k < spec.size(); ++k)
    area += ((1 - double{spec[k - 1]}) - (1 - double{spec[k]})) *
            (double{sens[k - 1]} + double{sens[k]}) / 2;
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

TEST(CutOffSweep, KeepsTheCurveOfThePlainSweep) {
  std::mt19937 random(2);
  for (int set = 0; set < 50; ++set) {
    const Sample first = SortAscending(test::TiedSample(random, 1 + random() % 30, 25));
    const Sample second = SortAscending(test::TiedSample(random, 1 + random() % 30, 40));
    const CutOffSweep sweep = SweepCutOffs(first, second);
    const PlainCurve plain = DrawCurve(first, second);
    ASSERT_EQ(sweep.SpecAt.size(), plain.spec.size());
    for (std::size_t k = 0; k < plain.spec.size(); ++k) {
      EXPECT_EQ(Real(sweep.SpecAt[k]), plain.spec[k]);
      EXPECT_EQ(Real(sweep.SensAt[k]), plain.sens[k]);
    }
  }
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
