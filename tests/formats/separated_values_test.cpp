#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "formats/worksheet_file.h"
#include "support/temporary_folder.h"

namespace quorval {
namespace {

using namespace std::string_literals;
using test::TemporaryFolder;
using testing::AllOf;
using testing::HasSubstr;
using Rows = std::vector<std::vector<std::string>>;

// The used range, row 0 first.
Rows RowsOf(const Worksheet& worksheet) {
  Rows rows(static_cast<std::size_t>(worksheet.DataRowCnt()));
  const int columns = worksheet.DataColCnt();
  for (std::size_t row = 0; row < rows.size(); ++row)
    for (int column = 1; column <= columns; ++column)
      rows[row].push_back(worksheet.Text(column, static_cast<int>(row)));
  return rows;
}

std::string Repeated(std::string_view text, int count) {
  std::string repeated;
  for (int i = 0; i < count; ++i) repeated += text;
  return repeated;
}

// --- What is read

struct Readable {
  std::string name, file, bytes;
  Rows rows;
};
void PrintTo(const Readable& readable, std::ostream* out) { *out << readable.name; }

class SeparatedValues : public testing::TestWithParam<Readable> {};

TEST_P(SeparatedValues, BecomeCells) {
  const TemporaryFolder folder;
  Worksheet worksheet;
  worksheet.SetText(7, 7, "from before");
  const auto path = folder / GetParam().file;
  test::WriteBytes(path, GetParam().bytes);
  ASSERT_EQ(ReadWorksheet(path, worksheet), std::nullopt);
  EXPECT_EQ(RowsOf(worksheet), GetParam().rows);
  EXPECT_EQ(worksheet.grid().At(1, 1).look.colour, kGrey);
}

INSTANTIATE_TEST_SUITE_P(
    , SeparatedValues,
    testing::Values(
        Readable{
            "plain", "a.csv", "ID,x,y\ns1,1.5,-2e3\n", {{"ID", "x", "y"}, {"s1", "1.5", "-2e3"}}},
        Readable{"no last line end", "a.csv", "x\n1", {{"x"}, {"1"}}},
        Readable{"an empty file", "a.csv", "", {}},
        Readable{
            "a byte order mark before a quote", "a.csv", "\xEF\xBB\xBF\"x\"\n1\n", {{"x"}, {"1"}}},
        Readable{"CR LF",
                 "a.csv",
                 "x,y\r\n1,2\r\n\r\n3,4\r\n",
                 {{"x", "y"}, {"1", "2"}, {"", ""}, {"3", "4"}}},
        Readable{"CR alone", "a.csv", "x\r1\r\r2\r", {{"x"}, {"1"}, {""}, {"2"}}},
        Readable{"LF, and blank lines are rows",
                 "a.csv",
                 "\nx\n\n\n1",
                 {{""}, {"x"}, {""}, {""}, {"1"}}},
        Readable{"rows of unequal length",
                 "a.csv",
                 "x\n1,2,3\n,,\n4,5\n",
                 {{"x", "", ""}, {"1", "2", "3"}, {"", "", ""}, {"4", "5", ""}}},
        Readable{"separators, quotes and line ends in quotes",
                 "a.csv",
                 "\"a,b\",\"say \"\"no\"\"\",\"two\r\nlines\"\n\"\",\"\"\"\",x\n",
                 {{"a,b", "say \"no\"", "two\r\nlines"}, {"", "\"", "x"}}},
        Readable{
            "blanks are kept", "a.csv", " x , 1 \n\t2\t,\" \"\n", {{" x ", " 1 "}, {"\t2\t", " "}}},
        Readable{"letters of other alphabets",
                 "a.csv",
                 "\xC2\xB5mol/L,\xE5\xB0\xBF\n",
                 {{"\xC2\xB5mol/L", "\xE5\xB0\xBF"}}},
        Readable{"tabs",
                 "a.tsv",
                 "x\ty, z\n\"1\"\t\"a\tb\"\r\n2\t\n",
                 {{"x", "y, z"}, {"1", "a\tb"}, {"2", ""}}},
        Readable{"an extension in capitals", "A.CSV", "x,y", {{"x", "y"}}},
        Readable{"nothing but separators beyond the edges",
                 "a.csv",
                 "x" + Repeated(",", 600) + Repeated("\n", 10050),
                 {{"x"}}}));

// Apart from the table, whose rows every test program would hold and copy at its start.
TEST(SeparatedValuesTest, ReachTheLastRowAndTheLastColumn) {
  const TemporaryFolder folder;
  test::WriteBytes(folder / "a.csv", Repeated("\n", 9999) + Repeated(",", 499) + "end");
  Worksheet worksheet;
  ASSERT_EQ(ReadWorksheet(folder / "a.csv", worksheet), std::nullopt);
  EXPECT_EQ(worksheet.DataRowCnt(), 10000);
  EXPECT_EQ(worksheet.DataColCnt(), 500);
  EXPECT_EQ(worksheet.Text(500, 9999), "end");
}

// --- What is refused

struct Refused {
  std::string name, file, bytes, reason;
};
void PrintTo(const Refused& refused, std::ostream* out) { *out << refused.name; }

class RefusedFile : public testing::TestWithParam<Refused> {};

TEST_P(RefusedFile, IsNamedAndLeavesTheWorksheet) {
  const TemporaryFolder folder;
  Worksheet worksheet;
  worksheet.SetText(2, 1, "5");
  const Worksheet before = worksheet;
  const auto path = folder / GetParam().file;
  test::WriteBytes(path, GetParam().bytes);
  EXPECT_THAT(ReadWorksheet(path, worksheet).value_or("read"),
              AllOf(HasSubstr(path.string()), HasSubstr(GetParam().reason)));
  EXPECT_EQ(worksheet.grid(), before.grid());
}

INSTANTIATE_TEST_SUITE_P(
    , RefusedFile,
    testing::Values(
        Refused{"501 columns", "a.csv", "x\n" + Repeated(",", 500) + "1", "500 columns"},
        Refused{"10001 rows", "a.csv", Repeated("1\n", 10001), "10000 rows"},
        Refused{"a NUL byte", "a.csv", "x\n1\n2\0003"s, "NUL byte in row 2"},
        Refused{"Latin-1", "a.csv", "x\n\xB5mol/L\n", "not UTF-8 in row 1"},
        Refused{"UTF-16", "a.csv", "\xFF\xFEx\0\n\0"s, "in row 0"},
        Refused{"a broken sequence at the end", "a.csv", "x\n1\xE5\xB0", "not UTF-8 in row 1"},
        Refused{"a quote that is not closed", "a.csv", "x\n\"1\n2\n", "not closed in row 1"},
        Refused{"text behind a closing quote", "a.csv", "x\n\"1\"2\n", "quote"},
        Refused{"a quote inside a value", "a.tsv", "x\n5\" tube\n", "quote"},
        Refused{"a value without end", "a.csv", "\"" + Repeated("0123456789abcdef", 80000),
                "1 MiB"},
        Refused{"an unknown extension", "a.dat", "x\n1\n", "none of .xls .xlsx .ods .csv"},
        Refused{"no extension", "csv", "x\n1\n", "extension"}));

// --- What is written

TEST(WriteGrid, MakesTextsSafeWhereWanted) {
  const TemporaryFolder folder;
  Grid grid(500, 10000);
  const char* const texts[] = {"=1+1", "+A1",    "-n.d.", "@SUM(A1)",
                               "-5",   "+3.2e1", "a=b",   "=\"x,y\""};
  int row = 0;
  for (const char* text : texts) grid.SetText(1, ++row, text);
  grid.SetValue(1, ++row, -7.5);
  const struct {
    const char* file;
    ExportOptions options;
    const char* bytes;
  } cases[] = {
      {"a.csv", {}, "=1+1\n+A1\n-n.d.\n@SUM(A1)\n-5\n+3.2e1\na=b\n\"=\"\"x,y\"\"\"\n-7.5\n"},
      {"a.csv",
       {.safe_texts = true},
       "'=1+1\n'+A1\n'-n.d.\n'@SUM(A1)\n-5\n+3.2e1\na=b\n\"'=\"\"x,y\"\"\"\n-7.5\n"},
      {"a.tsv",
       {.safe_texts = true},
       "'=1+1\n'+A1\n'-n.d.\n'@SUM(A1)\n-5\n+3.2e1\na=b\n\"'=\"\"x,y\"\"\"\n-7.5\n"},
  };
  for (const auto& one : cases) {
    ASSERT_EQ(WriteGrid(folder / one.file, grid, one.options), std::nullopt);
    EXPECT_EQ(test::BytesOf(folder / one.file), one.bytes);
  }
}

// What a project of another program's making may hold and no reader takes for text.
TEST(WriteGrid, ReplacesWhatIsNoText) {
  const TemporaryFolder folder;
  Grid grid(500, 10000);
  grid.SetText(1, 1, "\xEF\xBB\xBFmark");
  grid.SetText(2, 1, "a\0b"s);
  grid.SetText(3, 1, "\xB5g");
  for (const char* file : {"a.csv", "a.xlsx", "a.xls"}) {
    Worksheet read;
    ASSERT_EQ(WriteGrid(folder / file, grid), std::nullopt);
    ASSERT_EQ(ReadWorksheet(folder / file, read), std::nullopt);
    EXPECT_EQ(read.Text(1, 0), "\xEF\xBB\xBFmark") << file;
    EXPECT_EQ(read.Text(2, 0), file == "a.csv"s ? "a\xEF\xBF\xBD"
                                                  "b"
                                                : "a\0b"s)
        << file;
    EXPECT_EQ(read.Text(3, 0), "\xEF\xBF\xBDg") << file;
  }
}

TEST(LossesOf, TellsWhatAFileDoesNotHold) {
  Worksheet worksheet;
  Grid& grid = worksheet.grid();
  grid.SetText(1, 1, "x");  // in the grey of the titles, which is no loss
  grid.SetValue(1, 2, 9.99e307);
  EXPECT_THAT(LossesOf("a.xlsx", grid), testing::IsEmpty());
  grid.Edit(2, 3).look.colour = 0xFF0000;
  grid.Edit(28, 2).look.colour = 0x00FF00;
  grid.Edit(3, 4).picture = std::make_shared<const std::string>("PNG");
  grid.SetText(4, 5, "a\0"s);
  grid.SetText(4, 6, "\xFF");
  grid.SetText(5, 1, Repeated("\xC2\xB5", 32767));
  grid.SetText(5, 2, Repeated("\xF0\x9F\xA7\xAA", 16384));
  grid.SetValue(6, 7, 1e308);
  grid.SetValue(6, 8, -5e-324);
  const auto words = [&](const char* file) {
    std::vector<std::string> told;
    for (const Notice& notice : LossesOf(file, grid))
      told.push_back(std::string(notice.kind) + ": " +
                     notice.text.substr(notice.text.rfind(": ") + 2));
    return told;
  };
  EXPECT_THAT(words("a.xls"),
              testing::ElementsAre("colours: 2 cells, the first is B3", "pictures: 1 cell, C4",
                                   "characters: 1 cell, D6", "long-text: 1 cell, E2",
                                   "number-range: 2 cells, the first is F7"));
  EXPECT_THAT(words("A.CSV"), testing::ElementsAre(
                                  "colours: 2 cells, the first is B3", "pictures: 1 cell, C4",
                                  "characters: 2 cells, the first is D5", "long-text: 1 cell, E2"));
}

TEST(ReadWorksheet, RefusesWhatIsNoFile) {
  const TemporaryFolder folder;
  Worksheet worksheet;
  EXPECT_THAT(ReadWorksheet(folder / "none.csv", worksheet).value_or("read"),
              HasSubstr("none.csv: there is no such file"));
  std::filesystem::create_directory(folder / "folder.csv");
  EXPECT_THAT(ReadWorksheet(folder / "folder.csv", worksheet).value_or("read"),
              HasSubstr("folder.csv: "));
}

}  // namespace
}  // namespace quorval
