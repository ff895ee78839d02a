#include "stats/percentile.h"

#include <gtest/gtest.h>

namespace quorval {
namespace {

TEST(AtPosition, LiesOnTheLineBetweenTwoRanks) {
  const Sample sorted = SortAscending({7, 1, 4, 2});
  const struct {
    Real t, value;
  } cases[] = {{1, 1}, {1.5, 1.5}, {2.25, 2.5}, {3, 4}, {3.5, 5.5}, {4, 7}};
  for (const auto& [t, value] : cases) EXPECT_EQ(AtPosition(sorted, t), value) << Raw(t);
  for (double t : {0.0, 0.8, 4.1, 5.0, -3.0}) EXPECT_THROW(AtPosition(sorted, t), Fault) << t;
}

}  // namespace
}  // namespace quorval
