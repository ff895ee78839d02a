#include <gsf/gsf-outfile-msole.h>

#include "formats/biff.h"
#include "formats/biff_strings.h"
#include "formats/exported_cell.h"
#include "formats/gsf.h"
#include "formats/replaced_file.h"
#include "formats/xls.h"

namespace quorval {
namespace {

using namespace biff;
using U8 = std::uint8_t;
using U16 = std::uint16_t;
using U32 = std::uint32_t;

// The formats below are for styles of cells, of which there must be fifteen, and the default cell.
constexpr int kFirstCellFormat = 16;
constexpr int kFirstNumberFormat = 164;  // lower ones are built in

enum class Substream : U16 { kGlobals = 0x0005, kSheet = 0x0010 };

void AppendBegin(std::string& stream, Substream kind) {
  constexpr U16 kVersion = 0x0600, kBuild = 0x0DBB, kYear = 1996;
  AppendRecord(stream, Record::kBegin,
               Bytes(kVersion, static_cast<U16>(kind), kBuild, kYear, U32{0x41}, U32{6}));
}

void AppendFonts(std::string& stream) {
  constexpr U16 kHeight = 200;  // twentieths of a point
  constexpr U16 kItalic = 2, kAutomaticColour = 0x7FFF, kNormal = 400, kBold = 700;
  for (int font = 0; font < 4; ++font) {
    std::string body = Bytes(kHeight, font % 2 == 1 ? kItalic : U16{0}, kAutomaticColour,
                             font >= 2 ? kBold : kNormal, U16{0}, U8{0}, U8{2}, U8{0}, U8{0});
    AppendRecord(stream, Record::kFont, body + '\5' + Characters(u"Arial"));
  }
}

void AppendNumberFormats(std::string& stream) {
  for (int decimals = 0; decimals <= kMostDecimals; ++decimals) {
    const std::u16string code = Wide(FormatCode(decimals));
    AppendRecord(
        stream, Record::kFormatRecord,
        Bytes(static_cast<U16>(kFirstNumberFormat + decimals), static_cast<U16>(code.size())) +
            Characters(code));
  }
}

void AppendCellFormat(std::string& stream, int font, int number_format, bool of_style) {
  constexpr U16 kStyleKind = 0xFFF5, kCellKind = 0x0001;
  constexpr U8 kBottom = 0x20, kOwnFormatAndFont = 0x0C;
  constexpr U16 kNoFill = 0x20C0;
  AppendRecord(stream, Record::kExtendedFormat,
               Bytes(static_cast<U16>(font), static_cast<U16>(number_format),
                     of_style ? kStyleKind : kCellKind, kBottom, U8{0}, U8{0},
                     of_style ? U8{0} : kOwnFormatAndFont, U32{0}, U32{0}, kNoFill));
}

void AppendCellFormats(std::string& stream) {
  for (int i = 0; i < kFirstCellFormat; ++i)
    AppendCellFormat(stream, 0, 0, i + 1 < kFirstCellFormat);
  for (int style = 0; style < kStyles; ++style) {
    const int decimals = DecimalsOf(style);
    AppendCellFormat(stream, FontOf(style), decimals < 0 ? 0 : kFirstNumberFormat + decimals,
                     false);
  }
  AppendRecord(stream, Record::kStyle, Bytes(U16{0x8000}, U8{0}, U8{0xFF}));  // "Normal"
}

// All that stands before the sheet, and names its place.
std::string Globals(const StringTable& texts) {
  std::string stream;
  AppendBegin(stream, Substream::kGlobals);
  AppendRecord(stream, Record::kCodePage, Bytes(U16{1200}));  // UTF-16
  AppendRecord(stream, Record::kWindow1,
               Bytes(U16{0x0168}, U16{0x000F}, U16{0x3A5C}, U16{0x23BE}, U16{0x0038}, U16{0},
                     U16{0}, U16{1}, U16{0x0258}));
  AppendRecord(stream, Record::kDateMode, Bytes(U16{0}));
  AppendFonts(stream);
  AppendNumberFormats(stream);
  AppendCellFormats(stream);

  const std::u16string name = Wide(kSheetName);
  std::string behind;
  texts.AppendTo(behind);
  AppendRecord(behind, Record::kEnd, {});
  const std::string naming = Bytes(U8{0}, U8{0}, static_cast<U8>(name.size())) + Characters(name);
  constexpr std::size_t kHead = 4, kPlace = 4;
  const std::size_t place = stream.size() + kHead + kPlace + naming.size() + behind.size();
  AppendRecord(stream, Record::kBoundSheet, Bytes(static_cast<U32>(place)) + naming);
  return stream + behind;
}

void AppendCell(std::string& stream, int column, int row, const ExportedCell& cell,
                StringTable& texts) {
  Append(stream, static_cast<U16>(cell.number ? Record::kNumber : Record::kLabelString));
  Append(stream, cell.number ? U16{14} : U16{10});
  Append(stream, static_cast<U16>(row - 1));
  Append(stream, static_cast<U16>(column - 1));
  Append(stream, static_cast<U16>(kFirstCellFormat + StyleOf(cell)));
  if (cell.number) {
    Append(stream, *cell.number);
  } else {
    Append(stream, texts.NumberOf(cell.text));
  }
}

std::string Sheet(const Grid& grid, StringTable& texts) {
  const int rows = grid.DataRowCnt();
  const int columns = grid.DataColCnt();
  if (columns > kColumns) throw FileError("this format holds no more than 256 columns");
  if (rows > kRows) throw FileError("this format holds no more than 65536 rows");
  std::string stream;
  stream.reserve(1000 + static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns) * 18);
  AppendBegin(stream, Substream::kSheet);
  AppendRecord(stream, Record::kDimensions,
               Bytes(U32{0}, static_cast<U32>(rows), U16{0}, static_cast<U16>(columns), U16{0}));
  for (int row = 1; row <= rows; ++row)
    for (int column = 1; column <= columns; ++column) {
      const Cell& cell = grid.At(column, row);
      if (cell.text.empty() && !cell.value) continue;
      AppendCell(stream, column, row, Exported(cell, row), texts);
    }
  AppendRecord(stream, Record::kWindow2,
               Bytes(U16{0x06B6}, U16{0}, U16{0}, U32{0x40}, U16{0}, U16{0}, U32{0}));
  AppendRecord(stream, Record::kEnd, {});
  return stream;
}

}  // namespace

void WriteXls(const std::filesystem::path& path, const Grid& grid) {
  StringTable texts;
  const std::string sheet = Sheet(grid, texts);
  const gsf::Owner<GsfOutput> file = gsf::NewOutput();
  const gsf::Owner<GsfOutput> container(GSF_OUTPUT(gsf_outfile_msole_new(file.get())));
  const gsf::Owner<GsfOutput> stream(
      gsf_outfile_new_child(GSF_OUTFILE(container.get()), "Workbook", FALSE));
  gsf::Write(stream, Globals(texts));
  gsf::Write(stream, sheet);
  gsf::Close(stream);
  gsf::Close(container);
  gsf::Close(file);
  ReplaceFile(path, gsf::BytesOf(file));
}

}  // namespace quorval
