#include "formats/ods.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

#include "formats/imported_sheet.h"
#include "formats/xml.h"
#include "formats/zip.h"

namespace quorval {
namespace {

using xml::Attributes;

constexpr std::string_view kContent = "content.xml";
constexpr std::string_view kMediaType = "application/vnd.oasis.opendocument.spreadsheet";

std::string ContentOf(const std::filesystem::path& path) {
  if (!IsOds(path)) throw FileError("the file is no OpenDocument spreadsheet");
  return *ZipReader(path).Read(kContent);
}

int CountIn(std::string_view text) {
  int count = 1;
  std::from_chars(text.data(), text.data() + text.size(), count);
  return std::max(count, 1);
}

std::string DateWithBlank(std::string_view date) {
  std::string text(date);
  std::ranges::replace(text, 'T', ' ');
  return text;
}

// "PT13H45M00S" as "13:45:00"; as it stands where it is written in another way.
std::string TimeOf(std::string_view duration) {
  int hours = 0, minutes = 0, seconds = 0;
  const std::string text(duration);
  if (std::sscanf(text.c_str(), "PT%dH%dM%dS", &hours, &minutes, &seconds) != 3) return text;
  char time[40];
  std::snprintf(time, sizeof time, "%02d:%02d:%02d", hours, minutes, seconds);
  return time;
}

struct NameReader {
  std::vector<std::string> names{};
  void Begin(std::string_view name, const Attributes& attributes) {
    if (name == "table") names.emplace_back(attributes["name"]);
  }
  void End(std::string_view) {}
  void Characters(std::string_view) {}
};

// The first table.  A row or cell may stand for many; those beyond the used ones are empty.
class TableReader {
 public:
  void Begin(std::string_view name, const Attributes& attributes) {
    if (name == "table") ++tables_;
    if (tables_ != 1 || done_) return;
    if (name == "annotation") ++annotations_;
    if (annotations_ > 0) return;
    if (name == "table-row") {
      row_repeats_ = CountIn(attributes["number-rows-repeated"]);
      column_ = 1;
    } else if (name == "table-cell" || name == "covered-table-cell") {
      BeginCell(attributes);
    } else if (name == "p") {
      if (paragraphs_++ > 0) text_ += '\n';
      in_paragraph_ = true;
    } else if (name == "s") {
      constexpr int kMostBlanks = 100000;
      text_.append(static_cast<std::size_t>(std::min(CountIn(attributes["c"]), kMostBlanks)), ' ');
    } else if (name == "tab") {
      text_ += '\t';
    } else if (name == "line-break") {
      text_ += '\n';
    }
  }

  void End(std::string_view name) {
    if (name == "table") done_ = true;
    if (tables_ != 1 || done_) return;
    if (name == "annotation") --annotations_;
    if (annotations_ > 0) return;
    if (name == "table-row") {
      Advance(row_, row_repeats_);
    } else if (name == "table-cell" || name == "covered-table-cell") {
      EndCell();
    } else if (name == "p") {
      in_paragraph_ = false;
    }
  }

  void Characters(std::string_view characters) {
    if (in_paragraph_ && annotations_ == 0) text_ += characters;
  }

  Worksheet Result() && { return std::move(sheet_).Result(); }

 private:
  // Stops far outside the worksheet, where only empty cells may be.
  static void Advance(int& place, int steps) {
    constexpr int kFarOutside = 1 << 30;
    place = steps > kFarOutside - place ? kFarOutside : place + steps;
  }

  void BeginCell(const Attributes& attributes) {
    column_repeats_ = CountIn(attributes["number-columns-repeated"]);
    type_ = attributes["value-type"];
    if (type_ == "date") {
      value_ = DateWithBlank(attributes["date-value"]);
    } else if (type_ == "time") {
      value_ = TimeOf(attributes["time-value"]);
    } else if (type_ == "boolean") {
      value_ = attributes["boolean-value"] == "true" ? "TRUE" : "FALSE";
    } else {
      value_ = attributes["value"];
    }
    text_.clear();
    paragraphs_ = 0;
  }

  void EndCell() {
    const bool is_empty = text_.empty() && (type_.empty() || value_.empty());
    if (!is_empty) {
      CheckRepeats();
      for (int row = row_; row < row_ + row_repeats_; ++row)
        for (int column = column_; column < column_ + column_repeats_; ++column) Put(column, row);
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
    if (type_ == "float" || type_ == "percentage" || type_ == "currency") {
      double number = 0;
      const auto parsed = std::from_chars(value_.data(), value_.data() + value_.size(), number);
      const bool error = text_.starts_with('#') || text_.starts_with("Err:");
      if (parsed.ec == std::errc{} && !error) return sheet_.Number(column, row, number);
      return sheet_.Text(column, row, text_);
    }
    const bool by_value = type_ == "date" || type_ == "time" || type_ == "boolean";
    sheet_.Text(column, row, by_value ? value_ : text_);
  }

  ImportedSheet sheet_;
  int tables_ = 0;
  bool done_ = false;
  int annotations_ = 0;
  int row_ = 0, row_repeats_ = 1;
  int column_ = 1, column_repeats_ = 1;
  std::string type_, value_, text_;
  int paragraphs_ = 0;
  bool in_paragraph_ = false;
};

}  // namespace

bool IsOds(const std::filesystem::path& path) {
  try {
    const ZipReader zip(path);
    const auto type = zip.Read("mimetype");
    return type && type->starts_with(kMediaType) && zip.Has(kContent);
  } catch (const FileError&) {
    return false;
  }
}

std::vector<std::string> OdsSheetNames(const std::filesystem::path& path) {
  NameReader reader;
  xml::Parse(ContentOf(path), reader);
  return reader.names;
}

Worksheet ReadOds(const std::filesystem::path& path) {
  TableReader reader;
  xml::Parse(ContentOf(path), reader);
  return std::move(reader).Result();
}

}  // namespace quorval
