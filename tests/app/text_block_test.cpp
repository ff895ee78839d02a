#include "app/text_block.h"

#include <gtest/gtest.h>

namespace quorval {
namespace {

struct Exchange {
  const char* what;
  TextBlock block;
  std::string text;
};

class TextBlockTest : public testing::TestWithParam<Exchange> {};

TEST_P(TextBlockTest, GoesThereAndBack) {
  const auto& [what, block, text] = GetParam();
  EXPECT_EQ(WriteTextBlock(block), text) << what;
  EXPECT_EQ(ReadTextBlock(text), block) << what;
}

INSTANTIATE_TEST_SUITE_P(
    All, TextBlockTest,
    testing::Values(Exchange{"nothing", {}, ""}, Exchange{"one cell", {{"1.5"}}, "1.5\n"},
                    Exchange{"a block", {{"a", "b"}, {"1", "2"}}, "a\tb\n1\t2\n"},
                    Exchange{"empty cells", {{"", ""}, {"", "x"}}, "\t\n\tx\n"},
                    Exchange{"a tab in a cell", {{"a\tb", "c"}}, "\"a\tb\"\tc\n"},
                    Exchange{"a new line in a cell", {{"a\nb", "c"}}, "\"a\nb\"\tc\n"},
                    Exchange{"a quotation at the start", {{"\"x\" y"}}, "\"\"\"x\"\" y\"\n"},
                    Exchange{"a quotation mark inside", {{"5\" disk"}}, "5\" disk\n"}));

struct Text {
  const char* what;
  std::string text;
  TextBlock block;
};

class ForeignTextTest : public testing::TestWithParam<Text> {};

TEST_P(ForeignTextTest, IsRead) {
  EXPECT_EQ(ReadTextBlock(GetParam().text), GetParam().block) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    All, ForeignTextTest,
    testing::Values(Text{"no last new line", "1\t2\n3\t4", {{"1", "2"}, {"3", "4"}}},
                    Text{"carriage returns", "1\r\n2\r\n", {{"1"}, {"2"}}},
                    Text{"carriage returns alone", "1\r2", {{"1"}, {"2"}}},
                    Text{"rows of unequal length", "1\n2\t3\n", {{"1"}, {"2", "3"}}},
                    Text{"a last empty cell", "1\t", {{"1", ""}}},
                    Text{"an open quotation", "\"a\tb\n", {{"\"a", "b"}}},
                    Text{"a quotation that goes on", "\"a\"b\tc", {{"\"a\"b", "c"}}}));

}  // namespace
}  // namespace quorval
