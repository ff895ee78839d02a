#include "stats/significance.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "core/failure.h"
#include "support/transcript.h"

namespace quorval {
namespace {

using testing::DoubleNear;

// --- Against exact quantiles (scipy.stats.t.ppf)

template <std::size_t N>
struct Quantiles {
  int df;
  std::array<double, N> critical;
};

// Two-sided P = 0.10, 0.05, 0.02, 0.01, 0.002, 0.001.
constexpr Quantiles<6> kT[] = {
    {1, {6.3138, 12.7062, 31.8205, 63.6567, 318.3088, 636.6192}},
    {2, {2.9200, 4.3027, 6.9646, 9.9248, 22.3271, 31.5991}},
    {5, {2.0150, 2.5706, 3.3649, 4.0321, 5.8934, 6.8688}},
    {10, {1.8125, 2.2281, 2.7638, 3.1693, 4.1437, 4.5869}},
    {20, {1.7247, 2.0860, 2.5280, 2.8453, 3.5518, 3.8495}},
    {29, {1.6991, 2.0452, 2.4620, 2.7564, 3.3962, 3.6594}},
    {30, {1.6973, 2.0423, 2.4573, 2.7500, 3.3852, 3.6460}},
    {60, {1.6706, 2.0003, 2.3901, 2.6603, 3.2317, 3.4602}},
    {100, {1.6602, 1.9840, 2.3642, 2.6259, 3.1737, 3.3905}},
    {200, {1.6525, 1.9719, 2.3451, 2.6006, 3.1315, 3.3398}},
    {500, {1.6479, 1.9647, 2.3338, 2.5857, 3.1066, 3.3101}},
    {1000, {1.6464, 1.9623, 2.3301, 2.5808, 3.0984, 3.3003}},
};

// r = t / sqrt(df + t^2) for P = 0.10, 0.05, 0.01, 0.001.
constexpr Quantiles<4> kR[] = {
    {5, {0.6694, 0.7545, 0.8745, 0.9509}},   {10, {0.4973, 0.5760, 0.7079, 0.8233}},
    {20, {0.3598, 0.4227, 0.5368, 0.6524}},  {30, {0.2960, 0.3494, 0.4487, 0.5541}},
    {60, {0.2108, 0.2500, 0.3248, 0.4079}},  {100, {0.1638, 0.1946, 0.2540, 0.3211}},
    {150, {0.1339, 0.1593, 0.2083, 0.2643}},
};

// The printed values stand so near the exact ones, and the class changes there.
constexpr double kPrinted = 0.003;
constexpr double kPrintedToThreePlaces = 0.01;

template <std::size_t N>
void ExpectClassesMeetAt(const Quantiles<N>& exact, std::string_view (*class_of)(Real, Real),
                         const std::array<std::string_view, N + 1>& classes,
                         double printed = kPrinted) {
  for (std::size_t k = 0; k < N; ++k) {
    const double q = exact.critical[k];
    EXPECT_EQ(class_of(exact.df, q * (1 - printed)), classes[k]) << exact.df << " " << q;
    EXPECT_EQ(class_of(exact.df, -q * (1 + printed)), classes[k + 1]) << exact.df << " " << q;
  }
}

TEST(TPClass, MeetsTheExactQuantiles) {
  for (const auto& exact : kT)
    ExpectClassesMeetAt<6>(exact, TPClass,
                           {" n.s.", " 0.05 < P < 0.10 ", " 0.02 < P < 0.05 ", " 0.01 < P < 0.02 ",
                            " 0.002 < P < 0.01 ", " 0.001 < P < 0.002 ", " P < 0.001 "});
}

TEST(CorrelationPClass, MeetsTheExactQuantiles) {
  for (const auto& exact : kR)
    ExpectClassesMeetAt<4>(
        exact, CorrelationPClass,
        {" n.s.", " 0.05 < P < 0.10 ", " 0.01 < P < 0.05 ", " 0.001 < P < 0.01 ", " P < 0.001 "});
}

TEST(CorrelationPClass, IsCoarserFrom200DegreesOn) {
  const Quantiles<2> exact[] = {{200, {0.1381, 0.1809}},
                                {300, {0.1129, 0.1480}},
                                {500, {0.0875, 0.1149}},
                                {1000, {0.0619, 0.0813}}};
  for (const auto& at : exact)
    ExpectClassesMeetAt<2>(at, CorrelationPClass, {" n.s.", " 0.01 < P < 0.05 ", " P < 0.01 "},
                           kPrintedToThreePlaces);
  EXPECT_EQ(CorrelationPClass(199, 0.13), " 0.05 < P < 0.10 ");
  EXPECT_EQ(CorrelationPClass(200, 0.13), " n.s.");
  EXPECT_EQ(CorrelationPClass(5000, 0.07), " 0.01 < P < 0.05 ");
}

TEST(CriticalT05, IsTheExactQuantileToThreeFigures) {
  for (const auto& exact : kT) {
    if (exact.df > 120) break;
    EXPECT_THAT(Raw(CriticalT05(exact.df)), DoubleNear(exact.critical[1], 0.004)) << exact.df;
  }
}

TEST(CriticalT05, RunsOnStraightLinesAndJumpsAbove120) {
  EXPECT_EQ(Raw(CriticalT05(0)), 0);
  EXPECT_DOUBLE_EQ(Raw(CriticalT05(35)), 2.03);
  EXPECT_DOUBLE_EQ(Raw(CriticalT05(36)), 2.03 - 0.009 / 5);
  EXPECT_DOUBLE_EQ(Raw(CriticalT05(48)), 2.0104);
  EXPECT_DOUBLE_EQ(Raw(CriticalT05(120)), 1.98);
  EXPECT_DOUBLE_EQ(Raw(CriticalT05(121)), 1.96);
}

TEST(TPClass, HasOneOverlapBetween40And50Degrees) {
  // c2 at 45 is 2.015, but the next class begins at 2.009 - 0.006 = 2.003.
  EXPECT_EQ(TPClass(45, 2.012), " 0.02 < P < 0.05 ");
  EXPECT_EQ(TPClass(45, 2.002), " 0.05 < P < 0.10 ");
  EXPECT_EQ(TPClass(40, 2.015), " 0.02 < P < 0.05 ");
  EXPECT_EQ(TPClass(50, 2.005), " 0.05 < P < 0.10 ");
}

TEST(PClasses, AreEmptyWhereNoRowApplies) {
  EXPECT_EQ(TPClass(0, 5), "");
  EXPECT_EQ(TPClass(7.5, 5), "");
  EXPECT_EQ(CorrelationPClass(0, 0.5), "");
}

// --- Runs test

// Residuals in blocks of `first` and `second`, alternating in sign, one run each.
Sample Blocks(std::initializer_list<int> lengths) {
  Sample residuals;
  Real sign = 1;
  for (int length : lengths) {
    residuals.insert(residuals.end(), static_cast<std::size_t>(length), sign);
    sign = -sign;
  }
  return residuals;
}

struct RunsCase {
  std::string_view what;
  Sample residuals;
  std::string_view expected;
};

class RunsTest : public testing::TestWithParam<RunsCase> {};

TEST_P(RunsTest, GivesItsClass) {
  test::RecordedMessages messages;
  EXPECT_EQ(RunsTestClass(messages, GetParam().residuals), GetParam().expected);
  EXPECT_TRUE(messages.boxes.empty());
}

INSTANTIATE_TEST_SUITE_P(
    , RunsTest,
    testing::Values(
        RunsCase{"all of one sign", Blocks({9}), " n.s. "},
        RunsCase{"m1 2, m2 8", Blocks({2, 8}), " P < 0.05"},
        RunsCase{"m1 2, m2 7 is not listed", Blocks({7, 2}), " n.s. "},
        RunsCase{"m1 3, m2 10, 2 runs", Blocks({3, 10}), " P < 0.01"},
        RunsCase{"m1 3, m2 10, 3 runs", Blocks({5, 3, 5}), "0.01 < P < 0.05"},
        RunsCase{"m1 3, m2 10, 4 runs", Blocks({5, 2, 5, 1}), " n.s. "},
        RunsCase{"m1 6, m2 10, 5 runs", Blocks({4, 3, 3, 3, 3}), "0.01 < P < 0.05"},
        RunsCase{"m1 7, m2 7, 2 runs", Blocks({7, 7}), " P < 0.001"},
        RunsCase{"m1 7, m2 7, 3 runs", Blocks({3, 7, 4}), "0.001 < P < 0.01"},
        RunsCase{"m1 9, m2 10, 5 runs", Blocks({4, 4, 3, 5, 3}), "0.001 < P < 0.01"},
        RunsCase{"m1 10, m2 10, 6 runs", Blocks({4, 4, 3, 3, 3, 3}), "0.01 < P < 0.05"},
        RunsCase{"m2 11 is beyond the table", Blocks({10, 11}), " n.s. "},
        // mean 12, variance 5.238: z = -4.15, -3.28, -2.40, -1.97, -1.53
        RunsCase{"m1 11, m2 11, 2 runs", Blocks({11, 11}), " P < 0.001"},
        RunsCase{"m1 11, m2 11, 4 runs", Blocks({5, 5, 6, 6}), " P < 0.001"},
        RunsCase{"m1 11, m2 11, 6 runs", Blocks({3, 3, 4, 4, 4, 4}), "0.001 < P < 0.01"},
        RunsCase{"m1 11, m2 11, 7 runs", Blocks({3, 3, 3, 4, 3, 4, 2}), "0.01 < P < 0.05"},
        RunsCase{"m1 11, m2 11, 8 runs", Blocks({3, 3, 3, 3, 3, 3, 2, 2}), " n.s. "},
        // A zero counts with the positives and makes runs of its own: 4 runs, not 2.
        RunsCase{"a zero among positives", {1, 1, 0, 1, -1, -1, -1, -1, -1, -1}, " n.s. "}));

}  // namespace
}  // namespace quorval
