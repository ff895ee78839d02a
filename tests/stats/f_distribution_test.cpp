#include "stats/f_distribution.h"

#include <gtest/gtest.h>

namespace quorval {
namespace {

// Expected numbers of all tests here: SciPy (tests/independent/stats_kernels.py).
TEST(GammaFunction, HoldsAtKnownPlaces) {
  EXPECT_EQ(Raw(GammaFunction(1)), 1);
  EXPECT_EQ(Raw(GammaFunction(2)), 1);
  EXPECT_NEAR(Raw(GammaFunction(5)), 24, 24e-13);
  EXPECT_NEAR(Raw(GammaFunction(0.5)), 1.772453850905516, 1e-12);  // the root of pi
  EXPECT_NEAR(Raw(GammaFunction(7.5)), 1871.254305797788, 1e-9);
  EXPECT_NEAR(Raw(GammaFunction(21)), 2432902008176640000.0, 3e6);  // 20!
  EXPECT_THROW(GammaFunction(172), Fault);
  EXPECT_THROW(GammaFunction(0), Fault);
}

TEST(IncompleteBeta, AgreesOnBothSidesOfTheSwitch) {
  const struct {
    double a, b, x, expected;
  } cases[] = {
      {0.5, 0.5, 0.25, 0.33333333333333337},
      {2, 3, 0.4, 0.5247999999999999},
      {10, 0.5, 0.99, 0.6579281751567843},
      {5, 5, 0.5, 0.5000000000000001},
      {1, 1, 0.3, 0.3},
      {2, 3, 0, 0},
      {2, 3, 1, 1},
  };
  for (const auto& [a, b, x, expected] : cases)
    EXPECT_NEAR(Raw(IncompleteBeta(a, b, x)), expected, 1e-12) << a << ' ' << b << ' ' << x;
}

TEST(FUpperTail, AgreesWithTheExactTail) {
  const struct {
    int df1, df2;
    double F, expected;
  } cases[] = {
      {1, 1, 1, 0.5},
      {1, 10, 4.96, 0.050087650566468196},
      {2, 22, 3.44, 0.05012800388205764},
      {3, 5, 0.25, 0.8583866623451469},
      {5, 3, 9.01, 0.0500259222313088},
      {30, 40, 1.74, 0.05077298282688939},
      {2, 300, 4.68, 0.009966997474070611},
      {9, 4, 0, 1},
  };
  for (const auto& [df1, df2, F, expected] : cases)
    EXPECT_NEAR(Raw(FUpperTail(df1, df2, F)), expected, 1e-10) << df1 << ' ' << df2 << ' ' << F;
}

TEST(FUpperTail, KeepsItsDepthWhereTheFractionConvergesSlowly) {
  EXPECT_NEAR(Raw(FUpperTail(160, 160, 1)), 0.4999791659808322, 1e-10);      // exactly 0.5
  EXPECT_NEAR(Raw(FUpperTail(160, 170, 0.999)), 0.5019514617592278, 1e-10);  // exactly 0.50193...
}

TEST(FUpperTail, OverflowsAtLargeDegreesOfFreedom) {
  EXPECT_NO_THROW(FUpperTail(2, 339, 1));
  EXPECT_THROW(FUpperTail(2, 342, 1), Fault);
}

}  // namespace
}  // namespace quorval
