#include "stats/spline.h"

#include <gtest/gtest.h>

namespace quorval {
namespace {

// Expected numbers: SciPy's natural spline (tests/independent/stats_kernels.py).
TEST(Spline, PassesThroughItsKnotsInAnyOrder) {
  const Spline spline = SplineSetup(Sample{4, 0.5, 7, 2.5, 1}, Sample{2.0, 1.2, 5.5, 2.8, 0.9});
  const double second[] = {0, 4.00722891566265, -3.219277108433735, 1.669879518072289, 0};
  for (std::size_t i = 0; i < 5; ++i) EXPECT_NEAR(Raw(spline.y2[i]), second[i], 1e-12);
  const struct {
    double at, expected;
  } cases[] = {{0.5, 1.2},
               {0.75, 0.987387048192771},
               {1.7, 1.653870950468541},
               {3.3, 2.5750382864792503},
               {6.9, 5.299932128514056},
               {7, 5.5}};
  for (const auto& [at, expected] : cases)
    EXPECT_NEAR(Raw(SplineEvaluate(spline, at)), expected, 1e-12) << at;
}

TEST(Spline, IsAStraightLineThroughTwoKnots) {
  const Spline spline = SplineSetup(Sample{3, 1}, Sample{7, 3});
  EXPECT_DOUBLE_EQ(Raw(SplineEvaluate(spline, 1.5)), 4);
}

TEST(Spline, RefusesEqualLevels) {
  EXPECT_THROW(SplineSetup(Sample{1, 2, 2}, Sample{1, 2, 3}), Fault);
  EXPECT_THROW(SplineSetup(Sample{1}, Sample{1}), Fault);
}

}  // namespace
}  // namespace quorval
