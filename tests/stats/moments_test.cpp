#include "stats/moments.h"

#include <gmock/gmock.h>

#include "core/conversion.h"
#include "core/failure.h"
#include "support/data_file.h"
#include "support/transcript.h"

namespace quorval {
namespace {

// Expected numbers: SciPy (tests/independent/resampling_and_shape.py), or by hand.
TEST(Moments, AreThePopulationCoefficients) {
  test::RecordedMessages messages;
  const Sample carbamide = ToReals(ToSingles(ToNumbers(test::ReadDataFile("carbamide.csv")[0])));
  EXPECT_NEAR(Raw(Skewness(messages, carbamide)), 0.4821773068603023, 1e-12);
  EXPECT_NEAR(Raw(Kurtosis(carbamide)), -0.057927431961410036, 1e-12);

  const Sample symmetric{-2, -1, 0, 1, 2};  // m2 = 2, m4 = 34 / 5
  EXPECT_EQ(Skewness(messages, symmetric), 0);
  EXPECT_NEAR(Raw(Kurtosis(symmetric)), 6.8 / 4 - 3, 1e-12);
  EXPECT_TRUE(messages.boxes.empty());
}

TEST(Moments, FailWithoutSpread) {
  test::RecordedMessages messages;
  const Sample equal(5, 3);
  EXPECT_THROW(Skewness(messages, equal), Failure);
  EXPECT_THAT(messages.boxes, testing::ElementsAre("Error in skewness sub"));
  EXPECT_THROW(Kurtosis(equal), Fault);
}

}  // namespace
}  // namespace quorval
