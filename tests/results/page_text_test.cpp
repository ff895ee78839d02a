#include "results/page_text.h"

#include <gtest/gtest.h>

namespace quorval {
namespace {

TEST(ReadPageCodes, PlacesTheTexts) {
  const PageText text = ReadPageCodes("/cOrd. Linear regression/rPage #/p/n", 12);
  EXPECT_EQ(text.left, "");
  EXPECT_EQ(text.centre, "Ord. Linear regression");
  EXPECT_EQ(text.right, "Page #12\n");
  EXPECT_EQ(ReadPageCodes("plain", 1).left, "plain");
  EXPECT_EQ(ReadPageCodes("a//b/", 1).left, "a/b/");
  EXPECT_EQ(ReadPageCodes("/rx/ly", 1).left, "y");
}

}  // namespace
}  // namespace quorval
