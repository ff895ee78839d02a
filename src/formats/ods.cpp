#include "formats/ods.h"

#include <algorithm>
#include <cstdio>
#include <limits>

#include "formats/imported_sheet.h"
#include "formats/number_in.h"
#include "formats/xml.h"
#include "formats/zip_reader.h"

namespace quorval {
namespace {

using xml::Attributes;

constexpr std::string_view kContent = "content.xml";
constexpr std::string_view kMediaType = "application/vnd.oasis.opendocument.spreadsheet";

[[noreturn]] void Damaged() { throw FileError("the workbook is damaged"); }

bool IsSpreadsheet(const ZipReader& zip) {
  const auto type = zip.Read("mimetype");
  return type && type->starts_with(kMediaType) && zip.Has(kContent);
}

std::string ContentOf(const std::filesystem::path& path, Budget& budget) {
  const ZipReader zip(path, budget);
  if (!IsSpreadsheet(zip)) throw FileError("the file is no OpenDocument spreadsheet");
  return *zip.Read(kContent);
}

// How often something stands there: once where nothing says it.
std::int64_t CountIn(std::string_view text) {
  if (text.empty()) return 1;
  const auto count = NumberIn<std::int64_t>(text);
  if (!count || *count < 1) Damaged();
  return std::min<std::int64_t>(*count, std::numeric_limits<std::int32_t>::max());
}

std::string DateWithBlank(std::string_view date) {
  std::string text(date);
  std::ranges::replace(text, 'T', ' ');
  return text;
}

// "PT13H45M00S" as "13:45:00"; as it stands where it is written in another way.
std::string TimeOf(std::string_view duration) {
  std::string_view rest = duration;
  int parts[3] = {};
  if (!rest.starts_with("PT")) return std::string(duration);
  rest.remove_prefix(2);
  for (std::size_t i = 0; i < 3; ++i) {
    const std::size_t end = rest.find("HMS"[i]);
    const auto part = NumberIn<int>(rest.substr(0, end));
    if (end == rest.npos || !part || *part < 0) return std::string(duration);
    parts[i] = *part;
    rest.remove_prefix(end + 1);
  }
  if (!rest.empty()) return std::string(duration);
  char time[40];
  std::snprintf(time, sizeof time, "%02d:%02d:%02d", parts[0], parts[1], parts[2]);
  return time;
}

// As it stands where it is neither.
std::string_view TruthOf(std::string_view text) {
  if (text == "true") return "TRUE";
  return text == "false" ? "FALSE" : text;
}

struct NameReader {
  explicit NameReader(Budget& its_budget) : budget(its_budget) {}

  Budget& budget;
  std::vector<std::string> names{};
  void Begin(std::string_view name, const Attributes& attributes) {
    if (name != "table") return;
    budget.parts.Take();
    names.emplace_back(attributes["name"]);
  }
  void End(std::string_view) {}
  void Characters(std::string_view) {}
};

// The first table, without the tables in its cells.  A row or cell may stand for many; those beyond
// the used ones are empty.
class TableReader {
 public:
  explicit TableReader(Budget& budget) : sheet_(budget) {}

  void Begin(std::string_view name, const Attributes& attributes) {
    if (name == "table") ++depth_;
    if (name == "annotation") ++annotations_;
    if (!Reads()) return;
    if (name == "table-row") {
      if (in_row_) Damaged();
      in_row_ = true;
      row_repeats_ = CountIn(attributes["number-rows-repeated"]);
      column_ = 1;
    } else if (name == "table-cell" || name == "covered-table-cell") {
      if (!in_row_ || in_cell_) Damaged();
      in_cell_ = true;
      BeginCell(attributes);
    } else if (!in_cell_) {
      return;
    } else if (name == "p") {
      if (paragraphs_++ > 0) Append("\n");
      in_paragraph_ = true;
    } else if (name == "s") {
      AppendTo(text_, static_cast<std::uint64_t>(CountIn(attributes["c"])), ' ');
    } else if (name == "tab") {
      Append("\t");
    } else if (name == "line-break") {
      Append("\n");
    }
  }

  void End(std::string_view name) {
    if (Reads()) EndPart(name);
    if (name == "annotation") --annotations_;
    if (name == "table" && --depth_ == 0) done_ = true;
  }

  void Characters(std::string_view characters) {
    if (in_paragraph_ && in_cell_ && Reads()) Append(characters);
  }

  Worksheet Result() && {
    if (!done_) throw FileError("the workbook has no sheet");
    return std::move(sheet_).Result();
  }

 private:
  bool Reads() const { return depth_ == 1 && !done_ && annotations_ == 0; }
  void Append(std::string_view text) { AppendTo(text_, text); }

  // Stops far outside the worksheet, where only empty cells may be.
  static void Advance(std::int64_t& place, std::int64_t steps) {
    place = std::min<std::int64_t>(place + steps, std::numeric_limits<std::int32_t>::max());
  }

  void BeginCell(const Attributes& attributes) {
    column_repeats_ = CountIn(attributes["number-columns-repeated"]);
    type_ = attributes["value-type"];
    if (type_ == "date") {
      value_ = DateWithBlank(attributes["date-value"]);
    } else if (type_ == "time") {
      value_ = TimeOf(attributes["time-value"]);
    } else if (type_ == "boolean") {
      value_ = TruthOf(attributes["boolean-value"]);
    } else if (type_ == "string") {
      value_ = attributes["string-value"];
    } else {
      value_ = attributes["value"];
    }
    text_.clear();
    paragraphs_ = 0;
  }

  void EndPart(std::string_view name) {
    if (name == "table-row") {
      in_row_ = false;
      Advance(row_, row_repeats_);
    } else if (name == "table-cell" || name == "covered-table-cell") {
      in_cell_ = false;
      EndCell();
    } else if (name == "p") {
      in_paragraph_ = false;
    }
  }

  void EndCell() {
    const bool is_empty = text_.empty() && (type_.empty() || value_.empty());
    if (!is_empty) {
      CheckRepeats();
      for (std::int64_t row = row_; row < row_ + row_repeats_; ++row)
        for (std::int64_t column = column_; column < column_ + column_repeats_; ++column)
          Put(static_cast<int>(column), static_cast<int>(row));
    }
    Advance(column_, column_repeats_);
  }

  void CheckRepeats() const {
    if (column_ - 1 + column_repeats_ > Worksheet::kColumns)
      throw FileError("the sheet has more than 500 columns");
    if (row_ + row_repeats_ - 1 > Worksheet::kLastRow)
      throw FileError("the sheet has more than 10000 rows");
  }

  void Put(int column, int row) {
    if (type_ == "float" || type_ == "percentage" || type_ == "currency")
      return PutNumber(column, row);
    const bool by_value = type_ == "date" || type_ == "time" || type_ == "boolean";
    sheet_.Text(column, row, by_value || text_.empty() ? value_ : text_);
  }

  // What is no number, or an error that a formula gave, comes in as what the cell shows.
  void PutNumber(int column, int row) {
    const auto number = NumberIn<double>(value_);
    const bool error = text_.starts_with('#') || text_.starts_with("Err:");
    if (number && !error) return sheet_.Number(column, row, *number);
    sheet_.Text(column, row, text_.empty() ? value_ : text_);
  }

  ImportedSheet sheet_;
  int depth_ = 0;  // of tables
  bool done_ = false;
  int annotations_ = 0;
  bool in_row_ = false, in_cell_ = false, in_paragraph_ = false;
  std::int64_t row_ = 0, row_repeats_ = 1;
  std::int64_t column_ = 1, column_repeats_ = 1;
  std::string type_, value_, text_;
  int paragraphs_ = 0;
};

}  // namespace

bool IsOds(const std::filesystem::path& path) {
  try {
    Budget budget(path);
    return IsSpreadsheet(ZipReader(path, budget));
  } catch (const FileError&) {
    return false;
  }
}

std::vector<std::string> OdsSheetNames(const std::filesystem::path& path) {
  Budget budget(path);
  NameReader reader(budget);
  xml::Parse(ContentOf(path, budget), reader, budget);
  return reader.names;
}

Worksheet ReadOds(const std::filesystem::path& path) {
  Budget budget(path);
  TableReader reader(budget);
  xml::Parse(ContentOf(path, budget), reader, budget);
  return std::move(reader).Result();
}

}  // namespace quorval
