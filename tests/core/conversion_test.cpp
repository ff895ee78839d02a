#include "core/conversion.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace quorval {
namespace {

struct Reading {
  std::string_view text;
  bool whole;      // the whole text is a number
  double leading;  // the number it starts with
};

class Numbers : public testing::TestWithParam<Reading> {};

TEST_P(Numbers, AreReadByOneRule) {
  const auto& [text, whole, leading] = GetParam();
  EXPECT_EQ(IsNumber(text), whole) << text;
  EXPECT_EQ(Raw(LeadingNumber(text)), leading) << text;
  if (whole) {
    EXPECT_EQ(Raw(ToNumber(text)), leading) << text;
  } else {
    EXPECT_THROW(ToNumber(text), Fault) << text;
  }
}

INSTANTIATE_TEST_SUITE_P(
    , Numbers,
    testing::Values(Reading{"3.5", true, 3.5}, Reading{"  -2 ", true, -2},
                    Reading{"+.5", true, 0.5}, Reading{"7.", true, 7}, Reading{"1e3", true, 1000},
                    Reading{"1E-2", true, 0.01}, Reading{"1e-400", true, 0}, Reading{"", false, 0},
                    Reading{"  ", false, 0}, Reading{".", false, 0}, Reading{"-", false, 0},
                    Reading{"n.d.", false, 0}, Reading{"1,234", false, 1},
                    Reading{"1 234", false, 1}, Reading{"3,5", false, 3}, Reading{"2x", false, 2},
                    Reading{"1.2.3", false, 1.2}, Reading{"1e", false, 1},
                    Reading{"0x10", false, 0}, Reading{"inf", false, 0}, Reading{"nan", false, 0}));

TEST(ToNumber, BeyondTheRangeAreAFaultAndTinyOnesAreZero) {
  for (std::string_view text : {"1e309", "-1e309", "1e99999", "1e5000"})
    EXPECT_THROW(ToNumber(text), Fault) << text;
  for (std::string_view text : {"1e-5000", "-1e-99999"}) EXPECT_EQ(Raw(ToNumber(text)), 0) << text;
}

TEST(ToInt16, RoundsHalvesToEvenAndRefusesTheRest) {
  const std::pair<std::string_view, int> whole[] = {
      {"2", 2},       {"2.5", 2},         {"3.5", 4},        {"-0.5", 0},
      {" 500 ", 500}, {"32767.4", 32767}, {"-32768", -32768}};
  for (const auto& [text, number] : whole) EXPECT_EQ(ToInt16(text), number) << text;
  for (std::string_view text : {"", "2x", "40000", "32767.5", "-32769", "1e400"})
    EXPECT_THROW(ToInt16(text), Fault) << text;
}

TEST(ShortestText, HasNoExponentInTheUsualRange) {
  const std::pair<double, std::string_view> texts[] = {{0.1, "0.1"},
                                                       {-0.0, "0"},
                                                       {25, "25"},
                                                       {1e-5, "0.00001"},
                                                       {9.9e-6, "9.9e-06"},
                                                       {1e15, "1e+15"},
                                                       {999999999999999.0, "999999999999999"},
                                                       {1.0 / 3, "0.3333333333333333"}};
  for (const auto& [value, text] : texts) EXPECT_EQ(ShortestText(value), text);
}

TEST(NarrowestText, HasNoMoreDigitsThanTheWidthOfItsNumber) {
  for (std::string_view text : {"11.874", "0.1", "19.25", "0"})
    EXPECT_EQ(NarrowestText(Single(ToNumber(text))), text);
  EXPECT_EQ(NarrowestText(11.874), "11.874");
  EXPECT_EQ(NarrowestText(1e200), "1e+200");
  EXPECT_EQ(ShortestText(Single(11.874)), "11.87399959564209");
}

TEST(ShortestText, ReadsBackToTheSameDouble) {
  for (double value : {0.1, 1.0 / 3, 1e22, 5e-324, 1.7976931348623157e308, 123456.789e-9})
    EXPECT_EQ(Raw(ToNumber(ShortestText(value))), value);
}

TEST(FixedText, RoundsTheValueAndGivesZeroNoSign) {
  EXPECT_EQ(FixedText(2.5, 0), "2");
  EXPECT_EQ(FixedText(1.00449, 3), "1.004");
  EXPECT_EQ(FixedText(-0.00001, 4), "0.0000");
  EXPECT_EQ(FixedText(-12.5, 1), "-12.5");
  EXPECT_EQ(FixedText(1e300, 30).size(), 301u + 31u);
}

}  // namespace
}  // namespace quorval
