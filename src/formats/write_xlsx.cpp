#include <charconv>
#include <unordered_map>

#include "formats/exported_cell.h"
#include "formats/xlsx.h"
#include "formats/xlsx_text.h"
#include "formats/xml_text.h"
#include "formats/zip.h"

namespace quorval {
namespace {

constexpr std::string_view kHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";
constexpr std::string_view kMain =
    "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"";

constexpr std::string_view kContentTypes =
    R"(<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">)"
    R"(<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>)"
    R"(<Default Extension="xml" ContentType="application/xml"/>)"
    R"(<Override PartName="/xl/workbook.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"/>)"
    R"(<Override PartName="/xl/worksheets/sheet1.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml"/>)"
    R"(<Override PartName="/xl/styles.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.styles+xml"/>)"
    R"(<Override PartName="/xl/sharedStrings.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.sharedStrings+xml"/>)"
    R"(</Types>)";

constexpr std::string_view kRelations =
    R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)"
    R"(<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument" Target="xl/workbook.xml"/>)"
    R"(</Relationships>)";

constexpr std::string_view kWorkbookRelations =
    R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)"
    R"(<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet" Target="worksheets/sheet1.xml"/>)"
    R"(<Relationship Id="rId2" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles" Target="styles.xml"/>)"
    R"(<Relationship Id="rId3" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/sharedStrings" Target="sharedStrings.xml"/>)"
    R"(</Relationships>)";

std::string Part(std::string_view body) { return std::string(kHead).append(body); }

std::string Element(std::string_view name, std::string_view body) {
  std::string xml(kHead);
  xml.append("<").append(name).append(" ").append(kMain).append(">").append(body);
  return xml.append("</").append(name).append(">");
}

std::string Workbook() {
  return Element("workbook",
                 "<sheets><sheet name=\"" + std::string(kSheetName) +
                     "\" sheetId=\"1\" r:id=\"rId1\" xmlns:r=\"http://schemas.openxmlformats.org/"
                     "officeDocument/2006/relationships\"/></sheets>");
}

constexpr int kFirstNumberFormat = 164;  // lower ones are built in

std::string Styles() {
  std::string xml = "<numFmts count=\"" + std::to_string(kMostDecimals + 1) + "\">";
  for (int decimals = 0; decimals <= kMostDecimals; ++decimals)
    xml += "<numFmt numFmtId=\"" + std::to_string(kFirstNumberFormat + decimals) +
           "\" formatCode=\"" + FormatCode(decimals) + "\"/>";
  xml += "</numFmts><fonts count=\"4\">";
  for (std::string_view look : {"", "<i/>", "<b/>", "<b/><i/>"})
    xml.append("<font>").append(look).append("<sz val=\"10\"/><name val=\"Arial\"/></font>");
  xml +=
      "</fonts><fills count=\"2\"><fill><patternFill patternType=\"none\"/></fill>"
      "<fill><patternFill patternType=\"gray125\"/></fill></fills>"
      "<borders count=\"1\"><border><left/><right/><top/><bottom/><diagonal/></border></borders>"
      "<cellStyleXfs count=\"1\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" borderId=\"0\"/>"
      "</cellStyleXfs><cellXfs count=\"" +
      std::to_string(kStyles) + "\">";
  for (int style = 0; style < kStyles; ++style) {
    const int decimals = DecimalsOf(style);
    xml += "<xf numFmtId=\"" + std::to_string(decimals < 0 ? 0 : kFirstNumberFormat + decimals) +
           "\" fontId=\"" + std::to_string(FontOf(style)) +
           "\" fillId=\"0\" borderId=\"0\" xfId=\"0\" applyNumberFormat=\"1\" applyFont=\"1\"/>";
  }
  xml +=
      "</cellXfs><cellStyles count=\"1\"><cellStyle name=\"Normal\" xfId=\"0\" builtinId=\"0\"/>"
      "</cellStyles>";
  return Element("styleSheet", xml);
}

// Each text once.
class Texts {
 public:
  std::size_t NumberOf(const std::string& text) {
    const auto [entry, is_new] = numbers_.try_emplace(text, numbers_.size());
    if (is_new) {
      xml_ += "<si><t xml:space=\"preserve\">";
      xml::AppendEscaped(xml_, EncodedXlsxText(text));
      xml_ += "</t></si>";
    }
    return entry->second;
  }
  std::string Part() const { return Element("sst", xml_); }

 private:
  std::unordered_map<std::string, std::size_t> numbers_;
  std::string xml_;
};

template <class Number>
void AppendNumber(std::string& xml, Number number) {
  char digits[32];
  xml.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

class SheetWriter {
 public:
  SheetWriter(const Grid& grid, Texts& texts) : grid_(grid), texts_(texts) {
    for (int column = 1; column <= grid.DataColCnt(); ++column)
      names_.push_back(ColumnName(column));
  }

  void Write(const ZipWriter::Sink& sink) {
    constexpr std::size_t kPiece = 1 << 20;
    xml_.assign(kHead).append("<worksheet ").append(kMain).append("><sheetData>");
    const int rows = grid_.DataRowCnt();
    for (int row = 1; row <= rows; ++row) {
      WriteRow(row);
      if (xml_.size() < kPiece) continue;
      sink(xml_);
      xml_.clear();
    }
    xml_ += "</sheetData></worksheet>";
    sink(xml_);
  }

 private:
  void WriteRow(int row) {
    xml_ += "<row r=\"";
    AppendNumber(xml_, row);
    xml_ += "\">";
    for (int column = 1; column <= static_cast<int>(names_.size()); ++column) {
      const Cell& cell = grid_.At(column, row);
      if (!cell.text.empty() || cell.value) WriteCell(column, row, Exported(cell, row));
    }
    xml_ += "</row>";
  }

  void WriteCell(int column, int row, const ExportedCell& cell) {
    xml_ += "<c r=\"";
    xml_ += names_[static_cast<std::size_t>(column - 1)];
    AppendNumber(xml_, row);
    if (const int style = StyleOf(cell); style != 0) {
      xml_ += "\" s=\"";
      AppendNumber(xml_, style);
    }
    if (!cell.number) xml_ += "\" t=\"s";
    xml_ += "\"><v>";
    if (cell.number) {
      AppendNumber(xml_, *cell.number);
    } else {
      AppendNumber(xml_, texts_.NumberOf(cell.text));
    }
    xml_ += "</v></c>";
  }

  const Grid& grid_;
  Texts& texts_;
  std::vector<std::string> names_;
  std::string xml_;
};

}  // namespace

void WriteXlsx(const std::filesystem::path& path, const Grid& grid) {
  ZipWriter zip(path);
  Texts texts;
  zip.Add("[Content_Types].xml", Part(kContentTypes));
  zip.Add("_rels/.rels", Part(kRelations));
  zip.Add("xl/workbook.xml", Workbook());
  zip.Add("xl/_rels/workbook.xml.rels", Part(kWorkbookRelations));
  zip.Add("xl/styles.xml", Styles());
  zip.Add("xl/worksheets/sheet1.xml",
          [&](const ZipWriter::Sink& sink) { SheetWriter(grid, texts).Write(sink); });
  zip.Add("xl/sharedStrings.xml", texts.Part());
  zip.Close();
}

}  // namespace quorval
