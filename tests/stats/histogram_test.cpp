#include "stats/histogram.h"

#include <gmock/gmock.h>

#include "core/conversion.h"
#include "stats/gaussian.h"
#include "support/data_file.h"
#include "support/made_data.h"
#include "support/transcript.h"

namespace quorval {
namespace {

using testing::ElementsAre;

// Expected numbers: NumPy (tests/independent/resampling_and_shape.py).
TEST(Histogram, DividesByDefaultAfterTheSpread) {
  test::RecordedMessages messages;
  const Sample x = ToReals(ToSingles(ToNumbers(test::ReadDataFile("carbamide.csv")[0])));
  const HistogramClasses classes = DefaultClasses(DescribeSample(messages, x), x.size());
  EXPECT_EQ(classes.k, 6);
  EXPECT_NEAR(Raw(classes.h), 0.8499999841054281, 1e-12);
  const auto counts = CountInClasses(classes, x);
  EXPECT_THAT(counts, ElementsAre(13, 44, 44, 34, 14, 9));

  const Series bars = Bars(classes, counts, x.size());
  ASSERT_EQ(bars.points.size(), 6U);
  EXPECT_NEAR(Raw(bars.points[1].x), 2.5 + 1.5 * 0.85, 1e-6);
  EXPECT_NEAR(Raw(bars.points[1].y), 44 / 158.0, 1e-15);
  EXPECT_EQ(bars.bar_width, classes.h);
}

TEST(Histogram, CountsFromTheLowerBoundToBelowTheUpper) {
  test::RecordedMessages messages;
  const Sample x{4, 0, 1, 2, 2, 3.5};
  const Description described = DescribeSample(messages, x);
  EXPECT_THAT(CountInClasses(DivideRange(described, 2), x), ElementsAre(2, 4));
  EXPECT_THAT(CountInClasses(DivideRange(described, 4), x), ElementsAre(1, 1, 2, 2));
  for (int k : {1, 0, -7}) {
    EXPECT_EQ(DivideRange(described, k).k, 1);
    EXPECT_THAT(CountInClasses(DivideRange(described, k), x), ElementsAre(6));
  }
  const Description two_far_apart = DescribeSample(messages, Sample{0, 1});  // R / h = 0.76
  EXPECT_EQ(DefaultClasses(two_far_apart, 2).k, 1);
  EXPECT_THROW(DefaultClasses(DescribeSample(messages, Sample{1, 1}), 2), Fault);
}

TEST(Histogram, LosesNoValueInItsManyClasses) {
  std::mt19937 random(3);
  test::RecordedMessages messages;
  for (int set = 0; set < 50; ++set) {
    const Sample x = test::TiedSample(random, 200, 1000, 0.125);  // bounds without rounding
    const auto counts = CountInClasses(DivideRange(DescribeSample(messages, x), 1 << set % 8), x);
    EXPECT_EQ(std::accumulate(counts.begin(), counts.end(), 0), 200);
  }
}

TEST(GaussianCurves, RunFromTheSmallestValueToTheLargest) {
  test::RecordedMessages messages;
  const Description described{.mean = 10, .sd = 2, .min = 7, .max = 14};
  const Points density = DensityCurve(described, 0.5);
  const Points cumulative = CumulativeCurve(messages, described);
  for (const Points& points : {density, cumulative}) {
    ASSERT_EQ(points.size(), 100U);
    EXPECT_EQ(points.front().x, 7);
    EXPECT_EQ(points.back().x, 14);
    EXPECT_NEAR(Raw(points[33].x), 7 + 7 / 3.0, 1e-12);
  }
  // Tables of the standard normal at z = -1.5 and 2.
  EXPECT_NEAR(Raw(density.front().y), 0.12952 / 2 * 0.5, 1e-5);
  EXPECT_NEAR(Raw(cumulative.front().y), 0.06681, 1e-5);
  EXPECT_NEAR(Raw(cumulative.back().y), 0.97725, 1e-5);
  const Points steps = CumulativeFrequencies(Sample{1, 1, 3, 8});
  EXPECT_EQ(steps[1].y, 0.5);
  EXPECT_EQ(steps[3].x, 8);
  EXPECT_EQ(steps[3].y, 1);
}

}  // namespace
}  // namespace quorval
