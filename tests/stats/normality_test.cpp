#include "stats/normality.h"

#include <gmock/gmock.h>

#include "core/conversion.h"
#include "stats/gaussian.h"
#include "stats/percentile.h"
#include "support/data_file.h"
#include "support/transcript.h"

namespace quorval {
namespace {

Sample Carbamide() {
  return SortAscending(ToReals(ToSingles(ToNumbers(test::ReadDataFile("carbamide.csv")[0]))));
}

Sample ExponentialSample() {
  Sample sample;
  for (int i = 0; i < 40; ++i) sample.push_back(Exp(-1 + Real(3 * i) / 39));
  return sample;
}

TEST(CumGauss, IsTheNormalWithinTheBoundOfItsPolynomial) {
  test::RecordedMessages messages;
  for (int i = -800; i <= 800; ++i) {
    const double z = i / 100.0;
    EXPECT_NEAR(Raw(CumGauss(messages, z)), 0.5 * std::erfc(-z / std::sqrt(2.0)), 2.5e-7) << z;
  }
  EXPECT_TRUE(messages.boxes.empty());
  EXPECT_EQ(CumGauss(messages, 1e200), 0);
  EXPECT_THAT(messages.boxes, testing::ElementsAre("Error in cumulative Gauss routine"));
}

// Expected: SciPy's statistic, whose normal is exact (tests/independent/resampling_and_shape.py).
TEST(AndersonDarling, HasTheStatisticOfAnIndependentTool) {
  test::RecordedMessages messages;
  EXPECT_NEAR(Raw(AndersonDarlingStatistic(messages, Carbamide())), 0.8698236534725775, 2e-4);
  EXPECT_NEAR(Raw(AndersonDarlingStatistic(messages, ExponentialSample())), 2.0404243826014574,
              2e-4);
}

TEST(AndersonDarling, FindsPInItsBands) {
  const struct {
    double A;
    const char* P;
  } cases[] = {
      {-1, " > 0.5"},   {0.34999, " > 0.5"}, {0.35, "0.5"},    {0.42, "0.38"},  // 0.375
      {0.4543, "0.31"},                                                         // 0.31375
      {0.462, "0.3"},   {0.49, "0.25"},      {0.576, "0.15"},  {0.656, "0.1"},
      {0.787, "0.05"},  {0.9385, "0.03"},    {1.0899, "0.01"}, {1.09, " < 0.01"},
      {1e9, " < 0.01"}, {0.8248, "0.05"},    {0.8249, "0.04"},  // 0.04501 and 0.044997
  };
  for (const auto& [A, P] : cases) EXPECT_EQ(AndersonDarlingP(A), P) << A;
}

TEST(AndersonDarling, LowersPWithItsFactor) {
  test::RecordedMessages messages;
  const Sample sorted = Carbamide();
  // P = 0.05 - 0.04 (A - 0.787) / 0.303, A = 0.8698 and 1.2 times that.
  EXPECT_EQ(AndersonDarling(messages, sorted), "0.04");
  EXPECT_EQ(AndersonDarling(messages, sorted, kOneConstantEstimated), "0.02");
  EXPECT_EQ(AndersonDarling(messages, sorted, kTwoConstantsEstimated), " < 0.01");
  EXPECT_TRUE(messages.boxes.empty());
}

TEST(AndersonDarling, StaysEmptyWhereItFails) {
  Sample far(400, 0);
  far.back() = 1;  // 20 SDs out
  const Sample equal(20, 5);
  for (const Sample& sorted : {far, equal}) {
    test::RecordedMessages messages;
    EXPECT_EQ(AndersonDarling(messages, sorted), "");
    EXPECT_THAT(messages.boxes, testing::ElementsAre("Error in Anderson-Darling test"));
  }
}

}  // namespace
}  // namespace quorval
