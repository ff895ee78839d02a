#include "formats/workbook.h"

#include <gmock/gmock.h>

#include <random>

#include "formats/date_text.h"
#include "formats/exported_cell.h"
#include "formats/file_error.h"
#include "formats/worksheet_file.h"
#include "formats/xls.h"
#include "formats/zip.h"
#include "support/data_folder.h"
#include "support/temporary_folder.h"

namespace quorval {
namespace {

using test::BytesOf;
using test::TemporaryFolder;
using test::WriteBytes;
using testing::ElementsAre;

Grid Mixed() {
  Worksheet worksheet;
  Grid& grid = worksheet.grid();
  grid.SetText(1, 1, "2024");  // a title
  grid.SetText(2, 1, "Größe µg/L € \xF0\x9F\xA7\xAA");
  grid.SetText(1, 2, "  007");
  grid.SetText(1, 3, "<a href=\"x\">&amp;\n,\t\"q\"");
  grid.SetText(1, 4, "_x0041_\xEF\xBF\xBE\xEF\xBF\xBF");  // U+FFFE and U+FFFF are none of XML
  grid.SetText(1, 5, std::string(32767, 'x'));
  grid.SetValue(2, 2, 0.1 + 0.2);
  grid.SetValue(2, 3, -5e-324);
  grid.SetValue(2, 4, 1.7976931348623157e308);
  grid.SetValue(2, 5, 123456789012345680);
  grid.SetText(2, 6, "12.5");
  grid.SetNumber(3, 2, 2.0 / 3, 4);
  grid.SetText(256, 10000, "last");
  // More than one record of the old format holds.
  for (int row = 10; row < 2000; ++row)
    grid.SetText(4, row, "text \xE2\x82\xAC " + std::to_string(row));
  for (int row = 10; row < 2000; ++row) grid.SetText(5, row, "text " + std::to_string(row));
  return grid;
}

TEST(Workbooks, ComeBackCellByCell) {
  const Grid grid = Mixed();
  for (const char* name : {"a.xls", "a.xlsx", "a.csv", "a.tsv"}) {
    const TemporaryFolder folder;
    Worksheet read;
    ASSERT_EQ(WriteGrid(folder / name, grid), std::nullopt);
    ASSERT_EQ(ReadWorksheet(folder / name, read), std::nullopt);
    for (int column = 1; column <= grid.Columns(); ++column)
      for (int row = 1; row <= grid.Rows(); ++row)
        ASSERT_EQ(read.grid().Value(column, row), grid.Value(column, row))
            << name << ", column " << column << ", row " << row;
    EXPECT_EQ(folder.Count(), 1u);
  }
}

TEST(Workbooks, AreKnownByTheirContent) {
  const TemporaryFolder folder;
  for (const char* name : {"a.xls", "a.xlsx"}) {
    ASSERT_EQ(WriteGrid(folder / name, Mixed()), std::nullopt);
    std::filesystem::rename(folder / name, folder / "renamed");
    EXPECT_TRUE(IsWorkbook(folder / "renamed"));
    EXPECT_THAT(SheetNames(folder / "renamed"), ElementsAre("Sheet 1"));
    EXPECT_EQ(ReadFirstSheet(folder / "renamed").Text(256, 9999), "last");
  }
  EXPECT_FALSE(IsWorkbook(folder / "none"));
  EXPECT_FALSE(IsWorkbook(folder.path()));
  WriteBytes(folder / "empty.xls", "");
  EXPECT_FALSE(IsWorkbook(folder / "empty.xls"));
}

TEST(Workbooks, OfTheOldFormatEndAtItsEdges) {
  const TemporaryFolder folder;
  Grid grid(500, 10000);
  grid.SetText(1, 1, "x");
  ASSERT_EQ(WriteGrid(folder / "a.xls", grid), std::nullopt);
  const std::string before = BytesOf(folder / "a.xls");
  grid.SetText(257, 1, "too far");
  EXPECT_THAT(WriteGrid(folder / "a.xls", grid).value_or(""), testing::HasSubstr("256 columns"));
  grid.SetText(257, 1, "");
  grid.SetText(1, 1, std::string(32768, 'x'));
  EXPECT_THAT(WriteGrid(folder / "a.xls", grid).value_or(""), testing::HasSubstr("too long"));
  EXPECT_EQ(BytesOf(folder / "a.xls"), before);
  EXPECT_EQ(folder.Count(), 1u);
}

TEST(Workbooks, AreRefusedBeyondTheWorksheet) {
  const TemporaryFolder folder;
  for (const char* name : {"a.xls", "a.xlsx", "a.csv"}) {
    Grid grid(500, 20002);
    grid.SetText(1, 10001, "below");
    ASSERT_EQ(WriteGrid(folder / name, grid), std::nullopt);
    Worksheet kept;
    kept.SetText(1, 1, "kept");
    EXPECT_THAT(ReadWorksheet(folder / name, kept).value_or(""), testing::HasSubstr("10000 rows"));
    EXPECT_EQ(kept.Text(1, 1), "kept");
  }
}

// --- Which texts go out as numbers

TEST(ExportedCells, AreNumbersWhereNothingIsLost) {
  struct Case {
    const char* text;
    std::optional<double> number;
    int decimals;
  };
  const Case cases[] = {
      {"12.5", 12.5, -1},
      {"-3", -3, -1},
      {"2.50", 2.5, 2},
      {"0", 0, -1},
      {"0.00", 0, 2},
      {"007", {}, -1},
      {"-0", {}, -1},
      {"+1", {}, -1},
      {"1e5", {}, -1},
      {" 1", {}, -1},
      {".5", {}, -1},
      {"5.", {}, -1},
      {"1,5", {}, -1},
      {"s1", {}, -1},
      {"-", {}, -1},
      {"1.2.3", {}, -1},
      {"4006381333931", 4006381333931, -1},
      {"9999999999999999", {}, -1},
  };
  for (const Case& one : cases) {
    Cell cell;
    cell.text = one.text;
    const ExportedCell exported = Exported(cell, 2);
    EXPECT_EQ(exported.number, one.number) << one.text;
    EXPECT_EQ(exported.text, one.number ? "" : one.text);
    EXPECT_EQ(exported.decimals, one.decimals) << one.text;
    EXPECT_FALSE(Exported(cell, 1).number) << "a title";
  }
}

// --- Dates

TEST(Dates, AreToldByTheirFormat) {
  EXPECT_EQ(KindOfBuiltInFormat(14), DateKind::kDate);
  EXPECT_EQ(KindOfBuiltInFormat(46), DateKind::kTime);
  EXPECT_EQ(KindOfBuiltInFormat(2), DateKind::kNone);
  for (const char* code : {"dd/mm/yyyy", "yyyy\\-mm\\-dd;@", "[$-409]d-mmm-yy", "mmm"})
    EXPECT_EQ(KindOfFormatCode(code), DateKind::kDate) << code;
  for (const char* code : {"h:mm", "[h]:mm:ss", "mm:ss.0"})
    EXPECT_EQ(KindOfFormatCode(code), DateKind::kTime) << code;
  for (const char* code : {"General", "0.00", "#,##0\\ \"days\"", "[Red]-0.0", "0.00E+00", "@",
                           "0_d", "\"unclosed dd"})
    EXPECT_EQ(KindOfFormatCode(code), DateKind::kNone) << code;
}

// Day numbers as a spreadsheet shows them.
TEST(Dates, AreWrittenAsISOTexts) {
  const auto date = [](double days) { return DateText(days, DateKind::kDate, DateSystem::k1900); };
  EXPECT_EQ(date(1), "1900-01-01");
  EXPECT_EQ(date(59), "1900-02-28");
  EXPECT_EQ(date(61), "1900-03-01");
  EXPECT_EQ(date(45351), "2024-02-29");
  EXPECT_EQ(date(45351.572916666664), "2024-02-29 13:45:00");
  EXPECT_EQ(date(2958465), "9999-12-31");
  EXPECT_EQ(date(2958466), std::nullopt);
  EXPECT_EQ(date(-1), std::nullopt);
  EXPECT_EQ(DateText(43889, DateKind::kDate, DateSystem::k1904), "2024-02-29");
  EXPECT_EQ(DateText(1.1041666666666667, DateKind::kTime, DateSystem::k1900), "26:30:00");
  EXPECT_EQ(DateText(0.999999, DateKind::kTime, DateSystem::k1900), "24:00:00");
}

// --- Workbooks of other programs: tests/independent/other_workbooks.py makes them

TEST(Workbooks, OfOtherProgramsAreRead) {
  for (const char* name :
       {"written_by_xlwt.xls", "written_by_openpyxl.xlsx", "written_by_libreoffice.xls",
        "written_by_libreoffice.xlsx", "written_by_libreoffice.ods"}) {
    const std::filesystem::path path = test::DataFile(name);
    ASSERT_TRUE(IsWorkbook(path)) << name;
    EXPECT_THAT(SheetNames(path), ElementsAre("Data", "Second"));
    const Worksheet sheet = ReadFirstSheet(path);
    // LibreOffice stores truth that came from another format as a number.
    const bool by_number = path.extension() == ".ods";
    const std::string yes = by_number ? "1" : "TRUE";
    const std::string no = by_number ? "0" : "FALSE";
    const std::vector<std::string> expected = {
        "Größe µ", yes,     no,      "2024-02-29", "2024-02-29 13:45:00", "13:45:00",
        "-12345",  "1.005", "0.125", "#DIV/0!",    "two\nlines"};
    for (std::size_t i = 0; i < expected.size(); ++i)
      EXPECT_EQ(sheet.Text(1, static_cast<int>(i)), expected[i]) << name << ", row " << i;
    EXPECT_EQ(sheet.Text(2, 3), "under a gap") << name;
    if (std::string_view(name).find("libreoffice") == std::string_view::npos) continue;
    EXPECT_EQ(sheet.Text(3, 0), "0.25") << name << ", a formula's number";
    EXPECT_EQ(sheet.Text(3, 1), "xy") << name << ", a formula's text";
    EXPECT_EQ(sheet.Text(3, 2), yes) << name << ", a formula's truth";
    EXPECT_EQ(sheet.Text(3, 3), "#DIV/0!") << name << ", a formula's error";
  }
}

// --- Damaged files

std::string WhyNot(const std::filesystem::path& path) {
  try {
    SheetNames(path);
    ReadFirstSheet(path);
    return "read";
  } catch (const FileError& error) {
    return error.what();
  }
}

TEST(Workbooks, SurviveTruncationAndAnyBytes) {
  const TemporaryFolder folder;
  Grid grid(500, 10000);
  grid.SetText(1, 1, "a title of some length");
  for (int row = 2; row < 50; ++row) grid.SetValue(2, row, row / 7.0);
  std::mt19937 random(11);
  for (const char* name : {"a.xls", "a.xlsx"}) {
    ASSERT_EQ(WriteGrid(folder / name, grid), std::nullopt);
    const std::string whole = BytesOf(folder / name);
    for (std::size_t size = 0; size < whole.size(); size += 97) {
      WriteBytes(folder / name, whole.substr(0, size));
      WhyNot(folder / name);
    }
    for (int round = 0; round < 300; ++round) {
      std::string damaged = whole;
      for (int i = 0; i < 6; ++i) damaged[random() % damaged.size()] = static_cast<char>(random());
      WriteBytes(folder / name, damaged);
      WhyNot(folder / name);
    }
  }
}

// A workbook whose first sheet is this.
void WriteXlsxOf(const std::filesystem::path& path, std::string_view sheet) {
  ZipWriter zip(path);
  zip.Add("xl/workbook.xml", "<workbook><sheets><sheet name='S' r:id='r1'/></sheets></workbook>");
  zip.Add("xl/_rels/workbook.xml.rels",
          "<Relationships><Relationship Id='r1' Target='worksheets/sheet1.xml'/></Relationships>");
  zip.Add("xl/worksheets/sheet1.xml", sheet);
  zip.Close();
}

void WriteOdsOf(const std::filesystem::path& path, std::string_view table) {
  ZipWriter zip(path);
  zip.Add("mimetype", "application/vnd.oasis.opendocument.spreadsheet");
  zip.Add("content.xml", "<o:document><t:table>" + std::string(table) + "</t:table></o:document>");
  zip.Close();
}

TEST(Workbooks, AreRefusedWhereTheyMakeNoSense) {
  struct Case {
    const char* sheet;
    const char* why;
  };
  const Case cases[] = {
      {"<worksheet><sheetData><row r='1'><c r='A1' t='s'><v>7</v></c></row>", "damaged"},
      {"<worksheet><sheetData><row r='1'><c r='1A'><v>7</v></c></row></sheetData></worksheet>",
       "damaged"},
      {"<worksheet><sheetData><row r='1'><c r='ZZ1'><v>7</v></c></row></sheetData></worksheet>",
       "500 columns"},
      {"<worksheet><sheetData><row r='99999'><c r='A99999'><v>7</v></c></row></sheetData>"
       "</worksheet>",
       "10000 rows"},
      {"<worksheet><sheetData><row><c t='s'><v>7</v></c></row></sheetData></worksheet>", "damaged"},
      {"<worksheet><sheetData a=\"&amp;", "damaged"},  // broken off inside a tag
      {"<worksheet><sheetData a='&amp;", "damaged"},
      {"<worksheet><sheetData", "damaged"},
      {"<worksheet>&#x200000;</worksheet>", "damaged"},
      {"<worksheet>&#9999999999;</worksheet>", "damaged"},
      {"<w><row r='2147483647'/><row><c><v>7</v></c></row></w>", "damaged"},
      {"<w><row r='x'><c><v>7</v></c></row></w>", "damaged"},
      {"<w><row><c s='x'><v>7</v></c></row></w>", "damaged"},
      {"<w><row><c><v>7</v><v>8</v></c></row></w>", "damaged"},
      {"<w><row><c><v>7</v><is><t>8</t></is></c></row></w>", "damaged"},
      {"<w><row><c><v>7<x/>8</v></c></row></w>", "damaged"},
      {"<w><row><c><c><v>7</v></c></c></row></w>", "damaged"},
      {"no xml", "damaged"},
      {"", "damaged"},
  };
  for (const Case& one : cases) {
    const TemporaryFolder folder;
    WriteXlsxOf(folder / "a.xlsx", one.sheet);
    EXPECT_THAT(WhyNot(folder / "a.xlsx"), testing::HasSubstr(one.why)) << one.sheet;
  }
}

struct Value {
  std::string xml, shown;
};

// What is no number is never read as another one.
TEST(Workbooks, TakeTheirCellsAsNumbersOrAsTexts) {
  const Value of_xlsx[] = {
      {"<c><v> 1.5\n</v></c>", "1.5"},
      {"<c><v>+2</v></c>", "2"},
      {"<c><v>1,5</v></c>", "1,5"},
      {"<c><v>12 mg</v></c>", "12 mg"},
      {"<c><v>+-5</v></c>", "+-5"},
      {"<c><v>1e999</v></c>", "1e999"},
      {"<c t='b'><v>2</v></c>", "2"},
      {"<c t='inlineStr'><is><r><t>a</t></r><r><t>b</t></r><rPh><t>c</t></rPh></is></c>", "ab"},
  };
  const std::string cell = "<t:table-cell o:value-type='";
  const Value of_ods[] = {
      {cell + "float' o:value='1.5'><x:p>2</x:p></t:table-cell>", "1.5"},
      {cell + "float' o:value='1,5'><x:p>1.5</x:p></t:table-cell>", "1.5"},
      {cell + "float' o:value='1,5'/>", "1,5"},
      {cell + "percentage' o:value='0x10'/>", "0x10"},
      {cell + "boolean' o:boolean-value='2'/>", "2"},
      {cell + "time' o:time-value='PT1H2M3S'/>", "01:02:03"},
      {cell + "time' o:time-value='PT1H2M3.5S'/>", "PT1H2M3.5S"},
      {cell + "time' o:time-value='PT99999999999H2M3S'/>", "PT99999999999H2M3S"},
      {cell + "string' o:string-value='a'/>", "a"},
      {"<t:table-cell><x:p>a<x:s x:c='2'/>b</x:p><t:table><t:table-row><t:table-cell><x:p>no</x:p>"
       "</t:table-cell></t:table-row></t:table></t:table-cell>",
       "a  b"},
  };
  const TemporaryFolder folder;
  for (const Value& value : of_xlsx) {
    WriteXlsxOf(folder / "a.xlsx", "<w><row>" + value.xml + "<c><v>7</v></c></row></w>");
    const Worksheet sheet = ReadFirstSheet(folder / "a.xlsx");
    EXPECT_EQ(sheet.Text(1, 0), value.shown) << value.xml;
    EXPECT_EQ(sheet.Text(2, 0), "7") << value.xml;
  }
  for (const Value& value : of_ods) {
    WriteOdsOf(folder / "a.ods", "<t:table-row>" + value.xml + "</t:table-row><t:table-row>" +
                                     cell + "float' o:value='7'/></t:table-row>");
    const Worksheet sheet = ReadFirstSheet(folder / "a.ods");
    EXPECT_EQ(sheet.Text(1, 0), value.shown) << value.xml;
    EXPECT_EQ(sheet.Text(1, 1), "7") << value.xml;
  }
}

// A byte of a part changed on the disk: zlib would unpack some such parts to other numbers.
TEST(Workbooks, AreRefusedWhereACheckSumFails) {
  const TemporaryFolder folder;
  Worksheet worksheet;
  for (int row = 1; row < 2000; ++row) worksheet.SetValue(1, row, row / 7.0);
  ASSERT_EQ(WriteGrid(folder / "a.xlsx", worksheet.grid()), std::nullopt);
  const std::string whole = BytesOf(folder / "a.xlsx");
  const std::size_t begin = whole.find("sheet1.xml") + 100;
  const std::size_t end = whole.find("xl/sharedStrings.xml") - 100;
  ASSERT_LT(begin, end);
  for (std::size_t at = begin; at < end; at += 501) {
    std::string damaged = whole;
    damaged[at] = static_cast<char>(damaged[at] ^ 1);
    WriteBytes(folder / "a.xlsx", damaged);
    EXPECT_THAT(WhyNot(folder / "a.xlsx"), testing::HasSubstr("check sum")) << at;
  }
}

}  // namespace
}  // namespace quorval
