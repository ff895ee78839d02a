#include "core/real.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

namespace quorval {
namespace {

TEST(Real, FaultsInsteadOfLeavingTheFiniteNumbers) {
  const Real zero;
  const Real huge = 1e308;
  const std::function<Real()> faults[] = {
      [&] { return 1 / zero; },     [&] { return zero / zero; },
      [&] { return huge * 10; },    [&] { return huge + huge; },
      [&] { return Sqrt(-1); },     [&] { return Log(0); },
      [&] { return Exp(1000); },    [&] { return Pow(0, -1); },
      [&] { return Pow(-8, 0.5); }, [&] { return Real(std::numeric_limits<double>::quiet_NaN()); }};
  for (const auto& fault : faults) EXPECT_THROW(fault(), Fault);
}

TEST(Real, UnderflowsToZeroSilently) { EXPECT_EQ(Raw(Real(1e-200) * 1e-200), 0); }

TEST(Single, RoundsAtEachValueItIsGivenAndComputesIn64Bits) {
  Single sum{Real(16777216)};  // 2^24: the next whole number does not fit 24 bits
  sum += 1;
  EXPECT_EQ(Raw(sum), 16777216.0);
  EXPECT_EQ(Raw(Single(0.1)), 0.10000000149011612);
  EXPECT_EQ(Raw(Single(1) / Single(3)), 1.0 / 3);
  EXPECT_THROW(Single(1e39), Fault);
  EXPECT_EQ(Raw(Single(1e-60)), 0.0);
}

TEST(Pow, TakesTheSmallWholeExponentsAsProducts) {
  for (double m : {1.1, 2.7182818284590452, 1e-7, 12345.678}) {
    EXPECT_EQ(Raw(Pow(m, 2)), m * m);
    EXPECT_EQ(Raw(Pow(m, 1)), m);
    EXPECT_EQ(Raw(Pow(m, 0)), 1.0);
  }
  EXPECT_EQ(Raw(Pow(-2, 3)), -8.0);
}

}  // namespace
}  // namespace quorval
