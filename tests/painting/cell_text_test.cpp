#include "painting/cell_text.h"

#include <gtest/gtest.h>

namespace quorval {
namespace {

struct TextCase {
  const char* locale;
  const char* stored;
  const char* shown;
};

class ShownTexts : public testing::TestWithParam<TextCase> {};

TEST_P(ShownTexts, HaveTheLocalesDecimalSign) {
  const QLocale locale(QString(GetParam().locale));
  EXPECT_EQ(ShownText(GetParam().stored, locale).toStdString(), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(, ShownTexts,
                         testing::Values(TextCase{"C", "3.5", "3.5"},
                                         TextCase{"en_US", "1234567.5", "1234567.5"},
                                         TextCase{"de_DE", "1234567.5", "1234567,5"},
                                         TextCase{"de_DE", " -0.5e-3 ", " -0,5e-3 "},
                                         TextCase{"de_DE", "P < 0.001", "P < 0.001"},
                                         TextCase{"de_DE", "1.2.3", "1.2.3"},
                                         TextCase{"de_DE", "Größe", "Größe"}));

class StoredTexts : public testing::TestWithParam<TextCase> {};

TEST_P(StoredTexts, HaveAPointWhereTheUserTypedANumber) {
  const QLocale locale(QString(GetParam().locale));
  EXPECT_EQ(StoredText(QString(GetParam().shown), locale).toStdString(), GetParam().stored);
}

// A thousands mark is never read: "1,234" must not become a number a thousand times smaller.
INSTANTIATE_TEST_SUITE_P(
    , StoredTexts,
    testing::Values(TextCase{"C", "3,5", "3,5"}, TextCase{"en_US", "1,234", "1,234"},
                    TextCase{"de_DE", "3.5", "3,5"}, TextCase{"de_DE", " 1.5E3", " 1,5E3"},
                    TextCase{"de_DE", "3.5", "3.5"}, TextCase{"de_DE", "1.234,5", "1.234,5"},
                    TextCase{"de_DE", "x, y", "x, y"}, TextCase{"de_DE", "1,2,3", "1,2,3"}));

TEST(CellText, NumberCellIsRoundedToItsDecimalsAndStandsRight) {
  Cell cell;
  cell.look.type = CellType::kNumber;
  cell.look.decimals = 2;
  cell.value = -1234.565;
  EXPECT_EQ(ShownText(cell, QLocale("de_DE")), QString("-1234,57"));
  EXPECT_TRUE(ShowsNumber(cell));
  cell = {};
  EXPECT_FALSE(ShowsNumber(cell));
  cell.text = "12";
  EXPECT_TRUE(ShowsNumber(cell));
  cell.text = "s12";
  EXPECT_FALSE(ShowsNumber(cell));
}

}  // namespace
}  // namespace quorval
