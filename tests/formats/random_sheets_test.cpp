// Any worksheet comes back from any file of ours as it was.  QUORVAL_SHEETS says how many random
// ones each format gets; the number of a sheet is the seed that makes it again.
#include <gtest/gtest.h>
#include <utf8.h>

#include <bit>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <random>
#include <string>

#include "formats/project_file.h"
#include "formats/worksheet_file.h"
#include "support/temporary_folder.h"

namespace quorval {
namespace {

using test::TemporaryFolder;

class RandomSheet {
 public:
  RandomSheet(unsigned seed, bool with_nul) : random_(seed), with_nul_(with_nul) {
    // A record of the old workbooks holds 8224 bytes: 8 of the table's head, and of each text 3
    // before its characters.  The first text leaves from 0 to 11 bytes of it.
    grid_.SetText(1, 1, Text(8213 - seed % 12, 1 + Below(2)));
    const int columns = 1 + Below(4), rows = 1 + Below(60);
    for (int row = 1; row <= rows; ++row)
      for (int column = 1; column <= columns; ++column)
        if (column > 1 || row > 1) Fill(column, row);
  }
  const Grid& grid() const { return grid_; }

 private:
  int Below(unsigned long n) { return static_cast<int>(random_() % n); }

  void Fill(int column, int row) {
    switch (Below(6)) {
      case 0:
        return;  // empty
      case 1:
        return grid_.SetValue(column, row, AnyNumber());
      case 2:
        return grid_.SetNumber(column, row, AnyNumber(), static_cast<std::uint8_t>(Below(31)));
      case 3:
        return grid_.SetText(column, row, Special());
      default:
        return grid_.SetText(column, row, Text(Length(), Below(5)));
    }
  }

  double AnyNumber() {
    if (Below(2) == 0) return (Below(2000001) - 1000000) / std::pow(10.0, Below(8));
    const double any = std::bit_cast<double>(std::uint64_t{random_()} << 32 | random_());
    return std::isfinite(any) ? any : 0;
  }

  int Length() {
    switch (Below(25)) {
      case 0:
        return 4090 + Below(40);  // a record of characters of two bytes
      case 1:
        return 8200 + Below(40);  // of one byte
      case 2:
        return Below(32768);  // the most that a cell of a workbook takes
      default:
        return 1 + Below(60);
    }
  }

  // `length` units of UTF-16; the higher the alphabet the more letters it has.
  std::string Text(int length, int alphabet) {
    std::u16string wide;
    while (static_cast<int>(wide.size()) < length) {
      const bool room_for_pair = static_cast<int>(wide.size()) + 2 <= length;
      if (alphabet == 4 && room_for_pair && Below(3) == 0) {
        wide += static_cast<char16_t>(0xD800 + Below(0x400));
        wide += static_cast<char16_t>(0xDC00 + Below(0x400));
      } else {
        wide += Letter(alphabet);
      }
    }
    return utf8::utf16to8(wide);
  }

  char16_t Letter(int alphabet) {
    if (alphabet >= 3 && Below(2) == 0)
      return static_cast<char16_t>(Below(2) == 0 ? 0x100 + Below(0xD700) : 0xE000 + Below(0x2000));
    if (alphabet == 2) return static_cast<char16_t>(0x80 + Below(0x80));
    if (alphabet == 0) return static_cast<char16_t>(with_nul_ ? Below(0x80) : 1 + Below(0x7F));
    return static_cast<char16_t>(' ' + Below(0x5F));
  }

  std::string Special() {
    static const std::string kSpecial[] = {" ",
                                           "  007 ",
                                           "2.50",
                                           "-0.00",
                                           "-0",
                                           "1e5",
                                           "1,5",
                                           "9999999999999999",
                                           "-12.125",
                                           "\n",
                                           "two\r\nlines\r",
                                           "\"quoted\"",
                                           "a,b\tc",
                                           "=1+1",
                                           "'",
                                           "_x0041_",
                                           "_x00",
                                           "_x000D_",
                                           "<a href=\"x\">&amp;]]>",
                                           "\xEF\xBB\xBF",
                                           "\xEF\xBF\xBE\xEF\xBF\xBF",
                                           "TRUE",
                                           "#N/A"};
    return kSpecial[static_cast<std::size_t>(Below(std::size(kSpecial)))];
  }

  std::mt19937 random_;
  bool with_nul_;
  Grid grid_{500, 10000};
};

// "2.50" goes into a workbook as a number with two decimals: its zeros are a matter of its look.
std::string WithoutLastZeros(std::string text) {
  const bool plain = text.find_first_not_of("-0123456789.") == text.npos && text.size() <= 15;
  if (!plain || text.find('.') == text.npos) return text;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text == "-0" ? "0" : text;
}

void ExpectSame(const Grid& read, const Grid& written, const std::string& extension) {
  const bool numbers_by_look = extension.starts_with(".xls");
  ASSERT_EQ(read.DataColCnt(), written.DataColCnt());
  for (int column = 1; column <= written.DataColCnt(); ++column)
    for (int row = 1; row <= written.DataRowCnt(); ++row) {
      const bool as_number = numbers_by_look && row > 1 && !written.At(column, row).value;
      const auto shown = [&](const Grid& grid) {
        const std::string text = grid.Value(column, row);
        return as_number ? WithoutLastZeros(text) : text;
      };
      ASSERT_EQ(shown(read), shown(written)) << "column " << column << ", row " << row;
      if (extension != ".qvl" || row == 1) continue;
      ASSERT_EQ(read.At(column, row), written.At(column, row)) << column << ", " << row;
    }
}

Grid WrittenAndRead(const std::filesystem::path& path, const Grid& grid) {
  if (path.extension() == ".qvl") {
    WriteProjectFile(path, grid, {});
    return ReadProjectFile(path).grid;
  }
  Worksheet worksheet;
  EXPECT_EQ(WriteGrid(path, grid), std::nullopt);
  EXPECT_EQ(ReadWorksheet(path, worksheet), std::nullopt);
  return worksheet.grid();
}

class RandomSheets : public testing::TestWithParam<std::string> {};

TEST_P(RandomSheets, ComeBackAsTheyWere) {
  const char* const wanted = std::getenv("QUORVAL_SHEETS");
  const unsigned sheets = wanted != nullptr ? static_cast<unsigned>(std::atoi(wanted)) : 50;
  const TemporaryFolder folder;
  const bool with_nul = GetParam() != ".csv" && GetParam() != ".tsv";  // which RFC 4180 knows not
  for (unsigned seed = 0; seed < sheets; ++seed) {
    SCOPED_TRACE(GetParam() + ", sheet " + std::to_string(seed));
    const RandomSheet sheet(seed, with_nul);
    ExpectSame(WrittenAndRead(folder / ("a" + GetParam()), sheet.grid()), sheet.grid(), GetParam());
    if (HasFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(, RandomSheets, testing::Values(".qvl", ".xls", ".xlsx", ".csv", ".tsv"),
                         [](const auto& format) { return format.param.substr(1); });

}  // namespace
}  // namespace quorval
