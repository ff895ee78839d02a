#include <charconv>
#include <map>

#include "formats/imported_sheet.h"
#include "formats/xlsx.h"
#include "formats/xlsx_text.h"
#include "formats/xml.h"
#include "formats/zip.h"

namespace quorval {
namespace {

using xml::Attributes;

constexpr std::string_view kWorkbookPart = "xl/workbook.xml";

template <class Number>
std::optional<Number> NumberIn(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" +\t\r\n");
  if (first == text.npos) return std::nullopt;
  text = text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
  Number number{};
  const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
  if (parsed.ec != std::errc{} || parsed.ptr != text.data() + text.size()) return std::nullopt;
  return number;
}

// --- The workbook: its sheets, and where they are

struct Sheet {
  std::string name, relation;
};

struct WorkbookReader {
  std::vector<Sheet> sheets{};
  DateSystem dates = DateSystem::k1900;

  void Begin(std::string_view name, const Attributes& attributes) {
    if (name == "sheet") {
      sheets.push_back({std::string(attributes["name"]), std::string(attributes["id"])});
    } else if (name == "workbookPr") {
      const std::string_view date1904 = attributes["date1904"];
      if (date1904 == "1" || date1904 == "true") dates = DateSystem::k1904;
    }
  }
  void End(std::string_view) {}
  void Characters(std::string_view) {}
};

struct RelationReader {
  std::map<std::string, std::string, std::less<>> targets{};
  void Begin(std::string_view name, const Attributes& attributes) {
    if (name == "Relationship") targets[std::string(attributes["Id"])] = attributes["Target"];
  }
  void End(std::string_view) {}
  void Characters(std::string_view) {}
};

template <class Reader>
Reader ReadPart(const ZipReader& zip, std::string_view part) {
  Reader reader;
  if (auto text = zip.Read(part)) xml::Parse(std::move(*text), reader);
  return reader;
}

WorkbookReader ReadWorkbook(const ZipReader& zip) {
  if (!zip.Has(kWorkbookPart)) throw FileError("the file is no Excel workbook");
  return ReadPart<WorkbookReader>(zip, kWorkbookPart);
}

// A target is told from the root, or from the folder of the workbook.
std::string PartOf(const Sheet& sheet, const ZipReader& zip) {
  const auto relations = ReadPart<RelationReader>(zip, "xl/_rels/workbook.xml.rels");
  const auto found = relations.targets.find(sheet.relation);
  if (found == relations.targets.end()) throw FileError("the workbook is damaged");
  const std::string& target = found->second;
  return target.starts_with('/') ? target.substr(1) : "xl/" + target;
}

// --- Texts: "si" elements, whose "t" elements are joined, but for those of a pronunciation

struct TextReader {
  std::vector<std::string> texts{};
  std::string text{};
  bool in_text = false;
  int in_pronunciation = 0;

  void Begin(std::string_view name, const Attributes&) {
    if (name == "si") text.clear();
    if (name == "rPh") ++in_pronunciation;
    in_text = name == "t" && in_pronunciation == 0;
  }
  void End(std::string_view name) {
    if (name == "rPh") --in_pronunciation;
    if (name == "si") texts.push_back(DecodedXlsxText(text));
    in_text = false;
  }
  void Characters(std::string_view characters) {
    if (in_text) text += characters;
  }
};

// --- Styles: which are of dates

struct StyleReader {
  std::map<int, DateKind> codes{};
  std::vector<DateKind> kinds{};
  bool in_cell_formats = false;

  void Begin(std::string_view name, const Attributes& attributes) {
    if (name == "cellXfs") in_cell_formats = true;
    const auto number = NumberIn<int>(attributes["numFmtId"]).value_or(0);
    if (name == "numFmt") codes[number] = KindOfFormatCode(attributes["formatCode"]);
    if (name != "xf" || !in_cell_formats) return;
    const auto code = codes.find(number);
    kinds.push_back(code == codes.end() ? KindOfBuiltInFormat(number) : code->second);
  }
  void End(std::string_view name) {
    if (name == "cellXfs") in_cell_formats = false;
  }
  void Characters(std::string_view) {}
};

// --- The sheet

// "BC12": column and row, counted from 1.
std::optional<std::pair<int, int>> PlaceIn(std::string_view reference) {
  constexpr int kMostColumns = 16384;
  int column = 0;
  std::size_t i = 0;
  for (; i < reference.size() && reference[i] >= 'A' && reference[i] <= 'Z'; ++i) {
    column = 26 * column + (reference[i] - 'A' + 1);
    if (column > kMostColumns) return std::nullopt;
  }
  const auto row = NumberIn<int>(reference.substr(i));
  if (column == 0 || !row || *row < 1) return std::nullopt;
  return std::pair{column, *row};
}

class SheetReader {
 public:
  SheetReader(const std::vector<std::string>& texts, const std::vector<DateKind>& kinds,
              DateSystem dates)
      : texts_(texts), kinds_(kinds), dates_(dates) {}

  void Begin(std::string_view name, const Attributes& attributes) {
    if (name == "c") {
      BeginCell(attributes);
    } else if (name == "row") {
      row_ = NumberIn<int>(attributes["r"]).value_or(row_ + 1);
      column_ = 0;
    } else if (name == "v" || name == "t") {
      in_value_ = true;
    } else {
      in_value_ = false;
    }
  }
  void End(std::string_view name) {
    in_value_ = false;
    if (name == "c" && !value_.empty()) EndCell();
  }
  void Characters(std::string_view characters) {
    if (in_value_) value_ += characters;
  }

  Worksheet Result() && { return std::move(sheet_).Result(); }

 private:
  void BeginCell(const Attributes& attributes) {
    ++column_;
    if (const std::string_view reference = attributes["r"]; !reference.empty()) {
      const auto place = PlaceIn(reference);
      if (!place) throw FileError("the workbook is damaged");
      std::tie(column_, row_) = *place;
    }
    type_ = attributes["t"];
    const auto style = NumberIn<std::size_t>(attributes["s"]).value_or(0);
    kind_ = style < kinds_.size() ? kinds_[style] : DateKind::kNone;
    value_.clear();
  }

  void EndCell() {
    const int row = row_ - 1;
    if (type_ == "s") {
      const auto number = NumberIn<std::size_t>(value_);
      if (!number || *number >= texts_.size()) throw FileError("the workbook is damaged");
      sheet_.Text(column_, row, texts_[*number]);
    } else if (type_ == "b") {
      sheet_.Boolean(column_, row, value_ == "1" || value_ == "true");
    } else if (type_ == "str" || type_ == "inlineStr") {
      sheet_.Text(column_, row, DecodedXlsxText(value_));
    } else if (const auto number = NumberIn<double>(value_); number && type_ != "e") {
      sheet_.Number(column_, row, *number, kind_, dates_);
    } else {
      sheet_.Text(column_, row, value_);
    }
    value_.clear();
  }

  const std::vector<std::string>& texts_;
  const std::vector<DateKind>& kinds_;
  DateSystem dates_;
  ImportedSheet sheet_;
  int column_ = 0, row_ = 0;
  std::string type_, value_;
  DateKind kind_ = DateKind::kNone;
  bool in_value_ = false;
};

}  // namespace

bool IsXlsx(const std::filesystem::path& path) {
  try {
    return ZipReader(path).Has(kWorkbookPart);
  } catch (const FileError&) {
    return false;
  }
}

std::vector<std::string> XlsxSheetNames(const std::filesystem::path& path) {
  const ZipReader zip(path);
  std::vector<std::string> names;
  for (const Sheet& sheet : ReadWorkbook(zip).sheets) names.push_back(sheet.name);
  return names;
}

Worksheet ReadXlsx(const std::filesystem::path& path) {
  const ZipReader zip(path);
  const WorkbookReader workbook = ReadWorkbook(zip);
  if (workbook.sheets.empty()) throw FileError("the workbook has no sheet");
  auto sheet = zip.Read(PartOf(workbook.sheets.front(), zip));
  if (!sheet) throw FileError("the workbook is damaged");
  const auto texts = ReadPart<TextReader>(zip, "xl/sharedStrings.xml").texts;
  const auto kinds = ReadPart<StyleReader>(zip, "xl/styles.xml").kinds;
  SheetReader reader(texts, kinds, workbook.dates);
  xml::Parse(std::move(*sheet), reader);
  return std::move(reader).Result();
}

}  // namespace quorval
