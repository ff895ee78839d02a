// Expected numbers come from tests/independent/linearity.py.
#include "stats/polynomial_tests.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/transcript.h"

namespace quorval::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Sample kX{1, 1, 1, 2, 2, 3, 3, 3, 4, 4, 5, 5};
const Sample kY{2.1, 1.9, 2.0, 4.4, 4.1, 7.0, 6.7, 6.9, 10.2, 9.9, 14.0, 13.6};

PolynomialTests TestDegree(Messages& messages, int degree) {
  return TestPolynomial(messages, kX, kY, SumsOf(kX, kY, PolynomialFit(kX, kY, degree)));
}

TEST(PolynomialTests, EqualTheClassicalTestOfTheLastCoefficient) {
  RecordedMessages messages;
  const PolynomialTests second = TestDegree(messages, 2);
  EXPECT_NEAR(Raw(second.overall->P), 7.843812764160463e-14, 1e-19);
  EXPECT_NEAR(Raw(second.last->F), 9.145610526350824 * 9.145610526350824, 1e-8);
  EXPECT_NEAR(Raw(second.last->P), 7.486115926885898e-06, 1e-14);
  const PolynomialTests third = TestDegree(messages, 3);
  EXPECT_NEAR(Raw(third.last->F), 0.53046941762163 * 0.53046941762163, 1e-9);
  EXPECT_NEAR(Raw(third.last->P), 0.6101911035867726, 1e-9);
  EXPECT_THAT(messages.boxes, IsEmpty());
}

TEST(PolynomialTests, LeaveOutTheLastCoefficientWhereItMakesNoSense) {
  RecordedMessages messages;
  EXPECT_TRUE(TestDegree(messages, 1).overall);
  EXPECT_FALSE(TestDegree(messages, 1).last);
  const Sample flat{1, 2, 1.5, 2, 1, 1.5, 1, 2, 2, 1, 1, 2};  // the overall P is far above 0.05
  const PolynomialTests none =
      TestPolynomial(messages, kX, flat, SumsOf(kX, flat, PolynomialFit(kX, flat, 2)));
  EXPECT_TRUE(none.overall);
  EXPECT_FALSE(none.last);
  EXPECT_THAT(messages.boxes, IsEmpty());
}

TEST(PolynomialTests, TakeWhatRoundingDecidesForNoReduction) {
  RecordedMessages messages;
  const Sample line{0.5, 1.5, 1, 1.5, 2.5, 2.5, 3.5, 3, 3.5, 4.5, 4.5, 5.5};  // means on y = x
  const PolynomialTests tests =
      TestPolynomial(messages, kX, line, SumsOf(kX, line, PolynomialFit(kX, line, 2)), 1e-12);
  ASSERT_TRUE(tests.last);
  EXPECT_EQ(tests.last->F, 0);
  EXPECT_EQ(tests.last->P, 1);
  EXPECT_THAT(messages.boxes, IsEmpty());
}

TEST(PolynomialTests, TellWhyTheyCanNotBeMade) {
  RecordedMessages messages;
  const Sample zero(12);
  TestPolynomial(messages, kX, zero, SumsOf(kX, zero, PolynomialFit(kX, zero, 2)));
  PolynomialSums worse = SumsOf(kX, kY, PolynomialFit(kX, kY, 2));
  worse.SSres *= 100;  // above that of the line
  EXPECT_FALSE(TestPolynomial(messages, kX, kY, worse).last);
  EXPECT_THAT(messages.boxes,
              ElementsAre("zero residuals variation: no F-test",
                          "Supplementary F-test for last coefficient can not be performed"));
}

}  // namespace
}  // namespace quorval::test
