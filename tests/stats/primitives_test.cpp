#include "stats/primitives.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/transcript.h"

namespace quorval {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Primitives : public testing::Test {
 protected:
  test::RecordedMessages messages;
};

TEST_F(Primitives, DescribeASample) {
  const Description d = DescribeSample(messages, Sample{3, 1, 4, 2});
  EXPECT_DOUBLE_EQ(Raw(d.mean), 2.5);
  EXPECT_DOUBLE_EQ(Raw(d.sd), 1.2909944487358056);
  EXPECT_EQ(Raw(d.min), 1);
  EXPECT_EQ(Raw(d.max), 4);
  EXPECT_THAT(messages.boxes, IsEmpty());
}

TEST_F(Primitives, TakeTheSdInTwoPasses) {
  // 1e8 + 1, 2, 3: one pass over squares would lose all digits.
  EXPECT_DOUBLE_EQ(Raw(DescribeSample(messages, Sample{100000001, 100000002, 100000003}).sd), 1);
}

TEST_F(Primitives, KeepWhatCouldBeComputed) {
  const Description none = DescribeSample(messages, {});
  const Description one = DescribeSample(messages, Sample{7});
  EXPECT_THAT(messages.boxes, ElementsAre("Error occurred", "Error occurred"));
  EXPECT_EQ(Raw(none.mean), 0);
  EXPECT_EQ(Raw(one.mean), 7);
  EXPECT_EQ(Raw(one.sd), 0);
  EXPECT_EQ(Raw(one.min), 0);
  EXPECT_EQ(Raw(one.max), 0);
}

TEST_F(Primitives, Correlate) {
  EXPECT_DOUBLE_EQ(Raw(PearsonR(messages, Sample{1, 2, 3}, Sample{2, 4, 6})), 1);
  EXPECT_DOUBLE_EQ(Raw(PearsonR(messages, Sample{1, 2, 3}, Sample{3, 2, 1})), -1);
  // By hand: Sxy = 8, Sxx = 10, Syy = 10.
  EXPECT_DOUBLE_EQ(Raw(PearsonR(messages, Sample{1, 2, 3, 4, 5}, Sample{2, 1, 4, 3, 5})), 0.8);
  EXPECT_THAT(messages.boxes, IsEmpty());
  EXPECT_EQ(Raw(PearsonR(messages, Sample{1, 1, 1}, Sample{1, 2, 3})), 0);
  EXPECT_EQ(Raw(PearsonR(messages, {}, {})), 0);
  EXPECT_THAT(messages.boxes,
              ElementsAre("Error in correlation computation", "Error in correlation computation"));
}

TEST_F(Primitives, MarkOutliersStrictlyBeyondTheLimit) {
  // Mean 0, SD 1: the ends lie at exactly 1 SD.
  const Sample exact{-1, 0, 1};
  EXPECT_EQ(MarkOutliersBySD(messages, 1, exact).count, 0);
  EXPECT_THAT(MarkOutliersBySD(messages, 0.999, exact).flags, ElementsAre(true, false, true));
  EXPECT_THAT(MarkOutliersBySD(messages, 0, exact).flags, ElementsAre(true, false, true));
  EXPECT_THAT(messages.boxes, IsEmpty());
}

TEST_F(Primitives, MarkNothingWithoutSpread) {
  const OutlierMarks marks = MarkOutliersBySD(messages, 2, Sample{5, 5, 5});
  EXPECT_EQ(marks.count, 0);
  EXPECT_THAT(marks.flags, ElementsAre(false, false, false));
  EXPECT_THAT(messages.boxes, ElementsAre("Error in outlier evaluation"));
}

}  // namespace
}  // namespace quorval
