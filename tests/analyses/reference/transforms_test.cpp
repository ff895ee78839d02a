#include "analyses/reference/transforms.h"

#include <gmock/gmock.h>

#include "analyses/reference/nonparametric.h"
#include "analyses/reference/parametric.h"
#include "core/failure.h"
#include "support/transcript.h"

namespace quorval::reference {
namespace {

TEST(Transforms, AreUndoneByTheirInverses) {
  for (double c : {-1.5, -0.25, 0.0, 0.005, 0.5, 1.0, 2.0})
    for (double x : {0.01, 0.7, 1.0, 3.5, 5.0})
      for (const Transform* transform : {&kPower, &kExponential})
        EXPECT_NEAR(Raw(transform->inverse(transform->forward(x, c), c)), x, 1e-6 * x)
            << c << ' ' << x;
  for (double lambda : {-1.0, -0.2, 0.0, 0.8, 1.2, 3.0})
    for (double z : {-4.0, -0.3, 0.0, 0.3, 4.0})
      EXPECT_NEAR(Raw(InverseModulus(ModulusTransform(z, lambda), lambda)), z, 1e-12)
          << lambda << ' ' << z;
  EXPECT_EQ(kPower.forward(5, 0), Log(5));
  EXPECT_EQ(kExponential.forward(5, 0), 5);
  EXPECT_NEAR(Raw(ModulusTransform(-3, 2)), -7.5, 1e-15);  // (4^2 - 1) / 2
  EXPECT_EQ(InverseModulus(0, 0.8), 0);
  EXPECT_THROW(kExponential.inverse(2, -0.5), Fault);  // c v + 1 = 0
  EXPECT_THROW(kPower.inverse(-3, 0.4), Fault);
}

// Squares become symmetric under the square root, exponentials of an even grid under the logarithm.
TEST(SearchSymmetry, EndsAtAConstantThatRemovesSkewness) {
  test::RecordedMessages messages;
  Sample squares, exponentials;
  for (int i = 1; i <= 21; ++i) {
    squares.push_back(Square(i));
    exponentials.push_back(Exp(Real(i) / 5));
  }
  EXPECT_EQ(SearchSymmetry(messages, kPower, squares).SymmetryConstant, 0.5);  // at once
  const SymmetricValues logs = SearchSymmetry(messages, kPower, exponentials);
  EXPECT_EQ(logs.SymmetryConstant, 0);  // 0.5, 0.25, 0
  EXPECT_EQ(logs.y.back(), Log(exponentials.back()));
  Sample even;
  for (int i = -10; i <= 10; ++i) even.push_back(Real(i) / 100);
  EXPECT_EQ(SearchSymmetry(messages, kExponential, even).SymmetryConstant, 0.005);
  EXPECT_TRUE(messages.boxes.empty());
}

TEST(EstimateGaussian, WidensTheFactorForSmallSamples) {
  const ReferenceInterval interval = EstimateGaussian(0, 1, 20);
  EXPECT_NEAR(Raw(interval.upper.value), 1.96 / (1 - 1 / 76.0), 1e-15);
  EXPECT_EQ(interval.lower.value, -interval.upper.value);
  EXPECT_NEAR(Raw(EstimateGaussian(0, 1, 1e9).upper.value), 1.96, 1e-8);
}

// The probability that fewer than `rank` of N values lie below the 2.5th percentile.
double FewerBelow(int rank, int N) {
  double probability = 0;
  for (int k = 0; k < rank; ++k)
    probability += std::exp(std::lgamma(N + 1) - std::lgamma(k + 1) - std::lgamma(N - k + 1) +
                            k * std::log(0.025) + (N - k) * std::log(0.975));
  return probability;
}

// The narrowest ranks that leave at most 5 % on either side.
TEST(ConfidenceRanks, AreThoseOfTheBinomialDistribution) {
  EXPECT_FALSE(FindConfidenceRanks(119));
  for (int N = 120; N <= 1000; ++N) {
    const ConfidenceRanks ranks = *FindConfidenceRanks(N);
    const int a = static_cast<int>(Raw(ranks.a)), b = static_cast<int>(Raw(ranks.b));
    EXPECT_LE(FewerBelow(a, N), 0.05) << N;
    EXPECT_GT(FewerBelow(a + 1, N), 0.05) << N;
    EXPECT_GE(FewerBelow(b, N), 0.95) << N;
    EXPECT_LT(FewerBelow(b - 1, N), 0.95) << N;
    EXPECT_EQ(ranks.c, N + 1 - ranks.b);
    EXPECT_EQ(ranks.d, N + 1 - ranks.a);
  }
}

TEST(ConfidenceRanks, ChangeAtTheEndsOfTheTablesRows) {
  const struct {
    int N;
    std::array<int, 4> ranks;
  } cases[] = {
      {120, {1, 7, 114, 120}},
      {132, {1, 7, 126, 132}},
      {133, {1, 8, 126, 133}},
      {249, {2, 12, 238, 248}},
      {250, {3, 12, 239, 248}},
      {1000, {17, 34, 967, 984}},
      // 0.5 + 25.025 -/+ 8.126 and 0.5 + 975.975 -/+ 8.126
      {1001, {17, 34, 968, 985}},
  };
  for (const auto& [N, ranks] : cases) {
    const ConfidenceRanks found = *FindConfidenceRanks(N);
    EXPECT_THAT((std::array{found.a, found.b, found.c, found.d}),
                testing::ElementsAre(ranks[0], ranks[1], ranks[2], ranks[3]))
        << N;
  }
}

}  // namespace
}  // namespace quorval::reference
