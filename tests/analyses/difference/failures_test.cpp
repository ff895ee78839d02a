// What a run leaves that fails, and where there is no correlation.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "difference_runs.h"

namespace quorval::test {
namespace {

using testing::ElementsAre;

TEST(Difference, ShowsACorrelationOf0WhereThereIsNone) {
  const Transcript told = RunDifference({{"10", "20", "30"}, {"12", "18", "32"}});
  EXPECT_EQ(told.Value(24, 2), 0);
  EXPECT_EQ(told.Text(24, 3), " n.s.");
}

TEST(Difference, LeavesTheRowsAboveTheFirstNumberThatBadDecimalsStop) {
  Context context;
  context.NDec = "abc";
  const Transcript told =
      RunAnalysis(difference::kDifference, {{"1", "2", "3"}, {"2", "2", "4"}}, {}, context);
  EXPECT_THAT(told.boxes, ElementsAre(kDifferenceFault));
  EXPECT_EQ(told.sheet.DataRowCnt(), 11);
}

}  // namespace
}  // namespace quorval::test
