#include <charconv>
#include <map>
#include <memory>

#include "formats/imported_sheet.h"
#include "formats/number_in.h"
#include "formats/xlsx.h"
#include "formats/xlsx_text.h"
#include "formats/xml.h"
#include "formats/zip_reader.h"

namespace quorval {
namespace {

using xml::Attributes;

constexpr std::string_view kWorkbookPart = "xl/workbook.xml";

[[noreturn]] void Damaged() { throw FileError("the workbook is damaged"); }

// None where there is no such attribute.
template <class Number>
std::optional<Number> NumberOf(std::string_view attribute) {
  if (attribute.empty()) return std::nullopt;
  const auto number = NumberIn<Number>(attribute);
  if (!number) Damaged();
  return number;
}

// --- The workbook: its sheets, and where they are

struct Sheet {
  std::string name, relation;
};

struct WorkbookReader {
  explicit WorkbookReader(Budget& its_budget) : budget(its_budget) {}

  Budget& budget;
  std::vector<Sheet> sheets{};
  DateSystem dates = DateSystem::k1900;

  void Begin(std::string_view name, const Attributes& attributes) {
    if (name == "sheet") {
      budget.parts.Take();
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
  explicit RelationReader(Budget& its_budget) : budget(its_budget) {}

  Budget& budget;
  std::map<std::string, std::string, std::less<>> targets{};
  void Begin(std::string_view name, const Attributes& attributes) {
    if (name != "Relationship") return;
    budget.parts.Take();
    targets[std::string(attributes["Id"])] = attributes["Target"];
  }
  void End(std::string_view) {}
  void Characters(std::string_view) {}
};

// A workbook's file, and what reading it may still cost.
struct File {
  explicit File(const std::filesystem::path& path) : budget(path), zip(path, budget) {}
  Budget budget;
  ZipReader zip;
};

template <class Reader>
void ReadPart(File& file, std::string_view part, Reader& reader) {
  if (auto text = file.zip.Read(part)) xml::Parse(std::move(*text), reader, file.budget);
}

WorkbookReader ReadWorkbook(File& file) {
  if (!file.zip.Has(kWorkbookPart)) throw FileError("the file is no Excel workbook");
  WorkbookReader workbook(file.budget);
  ReadPart(file, kWorkbookPart, workbook);
  return workbook;
}

// A target is told from the root, or from the folder of the workbook.
std::string PartOf(const Sheet& sheet, File& file) {
  RelationReader relations(file.budget);
  ReadPart(file, "xl/_rels/workbook.xml.rels", relations);
  const auto found = relations.targets.find(sheet.relation);
  if (found == relations.targets.end()) Damaged();
  const std::string& target = found->second;
  return target.starts_with('/') ? target.substr(1) : "xl/" + target;
}

// --- Texts: "si" elements, whose "t" elements are joined, but for those of a pronunciation

// One behind the other.
class Texts {
 public:
  void Add(std::string_view text) {
    all_ += text;
    ends_.push_back(all_.size());
  }
  std::optional<std::string_view> At(std::size_t number) const {
    if (number >= ends_.size()) return std::nullopt;
    const std::size_t begin = number == 0 ? 0 : ends_[number - 1];
    return std::string_view(all_).substr(begin, ends_[number] - begin);
  }

 private:
  std::string all_;
  std::vector<std::size_t> ends_;
};

// The "t" elements of a text in one string.
class TextParts {
 public:
  void Begin(std::string_view name) {
    if (name == "rPh") ++in_pronunciation_;
    in_text_ = name == "t" && in_pronunciation_ == 0;
  }
  void End(std::string_view name) {
    if (name == "rPh") --in_pronunciation_;
    in_text_ = false;
  }
  bool InText() const { return in_text_; }

 private:
  bool in_text_ = false;
  int in_pronunciation_ = 0;
};

struct TextReader {
  explicit TextReader(Budget& its_budget) : budget(its_budget) {}

  Budget& budget;
  Texts texts{};
  std::string text{};
  TextParts parts{};

  void Begin(std::string_view name, const Attributes&) {
    if (name == "si") text.clear();
    parts.Begin(name);
  }
  void End(std::string_view name) {
    parts.End(name);
    if (name != "si") return;
    budget.shared_texts.Take();
    texts.Add(DecodedXlsxText(text));
  }
  void Characters(std::string_view characters) {
    if (parts.InText()) AppendTo(text, characters);
  }
};

// --- Styles: which are of dates

struct StyleReader {
  static constexpr int kLastFormat = 0xFFFF;
  std::map<int, DateKind> codes{};
  std::vector<DateKind> kinds{};
  bool in_cell_formats = false;

  void Begin(std::string_view name, const Attributes& attributes) {
    if (name == "cellXfs") in_cell_formats = true;
    const auto number = NumberOf<int>(attributes["numFmtId"]).value_or(0);
    if (number < 0 || number > kLastFormat) Damaged();
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
  constexpr int kMostColumns = 16384, kMostRows = 1048576;
  int column = 0;
  std::size_t i = 0;
  for (; i < reference.size() && reference[i] >= 'A' && reference[i] <= 'Z'; ++i) {
    column = 26 * column + (reference[i] - 'A' + 1);
    if (column > kMostColumns) return std::nullopt;
  }
  int row = 0;
  const char* const end = reference.data() + reference.size();
  const auto parsed = std::from_chars(reference.data() + i, end, row);
  if (parsed.ec != std::errc{} || parsed.ptr != end) return std::nullopt;
  if (column == 0 || row < 1 || row > kMostRows) return std::nullopt;
  return std::pair{column, row};
}

class SheetReader {
 public:
  SheetReader(const Texts& texts, const std::vector<DateKind>& kinds, DateSystem dates,
              Budget& budget)
      : texts_(texts), kinds_(kinds), dates_(dates), sheet_(budget) {}

  void Begin(std::string_view name, const Attributes& attributes) {
    if (name == "c") return BeginCell(attributes);
    if (name == "row") return BeginRow(attributes);
    if (!in_cell_) return;
    if (in_value_) Damaged();
    in_value_ = name == "v";
    const bool begins_text = name == "is";
    if ((in_value_ || begins_text) && std::exchange(has_value_, true)) Damaged();
    in_inline_ = in_inline_ || begins_text;
    if (in_inline_) parts_.Begin(name);
  }
  void End(std::string_view name) {
    in_value_ = false;
    if (in_inline_) parts_.End(name);
    if (name == "is") in_inline_ = false;
    if (name != "c") return;
    in_cell_ = in_inline_ = false;
    if (!value_.empty()) EndCell();
  }
  void Characters(std::string_view characters) {
    if (in_value_ || parts_.InText()) AppendTo(value_, characters);
  }

  Worksheet Result() && { return std::move(sheet_).Result(); }

 private:
  enum class Type { kNumber, kShared, kBoolean, kText, kError };

  static Type TypeOf(std::string_view name) {
    if (name.empty() || name == "n") return Type::kNumber;
    if (name == "s") return Type::kShared;
    if (name == "b") return Type::kBoolean;
    if (name == "e") return Type::kError;
    return Type::kText;  // also "d", a date that is written out
  }

  void BeginRow(const Attributes& attributes) {
    constexpr int kMostRows = 1048576;
    row_ = NumberOf<int>(attributes["r"]).value_or(row_ + 1);
    if (row_ < 1 || row_ > kMostRows) Damaged();
    column_ = 0;
  }

  void BeginCell(const Attributes& attributes) {
    if (in_cell_) Damaged();
    in_cell_ = true;
    has_value_ = false;
    ++column_;
    if (const std::string_view reference = attributes["r"]; !reference.empty()) {
      const auto place = PlaceIn(reference);
      if (!place) Damaged();
      std::tie(column_, row_) = *place;
    }
    type_ = TypeOf(attributes["t"]);
    const auto style = NumberOf<std::size_t>(attributes["s"]).value_or(0);
    kind_ = style < kinds_.size() ? kinds_[style] : DateKind::kNone;
    value_.clear();
  }

  void EndCell() {
    const int row = row_ - 1;
    switch (type_) {
      case Type::kShared:
        return sheet_.Text(column_, row, SharedText());
      case Type::kBoolean:
        return PutTruth(row);
      case Type::kNumber:
        if (const auto number = NumberIn<double>(value_))
          return sheet_.Number(column_, row, *number, kind_, dates_);
        break;
      case Type::kText:
        return sheet_.Text(column_, row, DecodedXlsxText(value_));
      case Type::kError:
        break;
    }
    sheet_.Text(column_, row, value_);  // what is no number stays what it is
  }

  std::string_view SharedText() const {
    const auto number = NumberIn<std::size_t>(value_);
    const auto text = number ? texts_.At(*number) : std::nullopt;
    if (!text) Damaged();
    return *text;
  }

  void PutTruth(int row) {
    const bool is_true = value_ == "1" || value_ == "true";
    if (is_true || value_ == "0" || value_ == "false") return sheet_.Boolean(column_, row, is_true);
    sheet_.Text(column_, row, value_);
  }

  const Texts& texts_;
  const std::vector<DateKind>& kinds_;
  DateSystem dates_;
  ImportedSheet sheet_;
  int column_ = 0, row_ = 0;
  Type type_ = Type::kNumber;
  DateKind kind_ = DateKind::kNone;
  std::string value_;
  bool in_cell_ = false, has_value_ = false, in_value_ = false, in_inline_ = false;
  TextParts parts_;
};

}  // namespace

bool IsXlsx(const std::filesystem::path& path) {
  try {
    return File(path).zip.Has(kWorkbookPart);
  } catch (const FileError&) {
    return false;
  }
}

std::vector<std::string> XlsxSheetNames(const std::filesystem::path& path) {
  File file(path);
  std::vector<std::string> names;
  for (const Sheet& sheet : ReadWorkbook(file).sheets) names.push_back(sheet.name);
  return names;
}

Worksheet ReadXlsx(const std::filesystem::path& path) {
  File file(path);
  const WorkbookReader workbook = ReadWorkbook(file);
  if (workbook.sheets.empty()) throw FileError("the workbook has no sheet");
  const std::string part = PartOf(workbook.sheets.front(), file);
  if (!file.zip.Has(part)) Damaged();
  TextReader texts(file.budget);
  ReadPart(file, "xl/sharedStrings.xml", texts);
  StyleReader styles;
  ReadPart(file, "xl/styles.xml", styles);
  SheetReader reader(texts.texts, styles.kinds, workbook.dates, file.budget);
  ReadPart(file, part, reader);
  return std::move(reader).Result();
}

}  // namespace quorval
