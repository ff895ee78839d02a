#include <utf8.h>

#include <algorithm>
#include <iterator>
#include <string>

#include "core/conversion.h"
#include "formats/replaced_file.h"
#include "formats/separated_values.h"

namespace quorval {
namespace {

std::string WithoutWhatIsNoText(const std::string& text) {
  std::string valid;
  utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(valid));
  for (std::size_t at; (at = valid.find('\0')) != valid.npos;) valid.replace(at, 1, "\xEF\xBF\xBD");
  return valid;
}

bool IsText(const std::string& text) {
  if (std::ranges::all_of(text, [](char c) { return c > 0; })) return true;  // ASCII
  return text.find('\0') == text.npos && utf8::is_valid(text.begin(), text.end());
}

bool WouldRun(const std::string& text) {
  return std::string_view("=+-@").find(text.front()) != std::string_view::npos && !IsNumber(text);
}

class Lines {
 public:
  Lines(const Grid& grid, char separator, const ExportOptions& options)
      : grid_(grid), separator_(separator), options_(options) {}

  void Write(ReplacedFile& file) {
    constexpr std::size_t kPiece = 1 << 20;
    const int rows = grid_.DataRowCnt();
    const int columns = grid_.DataColCnt();
    for (int row = 1; row <= rows; ++row) {
      for (int column = 1; column <= columns; ++column) {
        if (column > 1) lines_ += separator_;
        AppendCell(grid_.At(column, row));
      }
      lines_ += '\n';
      if (lines_.size() >= kPiece) Flush(file);
    }
    Flush(file);
  }

 private:
  void Flush(ReplacedFile& file) {
    file.Write(lines_);
    lines_.clear();
    at_begin_ = false;
  }

  void AppendCell(const Cell& cell) {
    if (cell.value) {
      lines_ += ShortestText(*cell.value);
    } else if (!cell.text.empty()) {
      IsText(cell.text) ? AppendText(cell.text) : AppendText(WithoutWhatIsNoText(cell.text));
    }
  }

  void AppendText(const std::string& text) {
    if (options_.safe_texts && WouldRun(text)) return AppendQuotedIfNeeded("'" + text);
    AppendQuotedIfNeeded(text);
  }

  // A byte order mark that begins the file is none of its text, unless in quotes.
  bool MustBeQuoted(const std::string& text) const {
    const bool first = at_begin_ && lines_.empty();
    return (first && utf8::starts_with_bom(text.begin(), text.end())) ||
           std::ranges::any_of(
               text, [&](char c) { return c == separator_ || c == '"' || c == '\n' || c == '\r'; });
  }

  void AppendQuotedIfNeeded(const std::string& text) {
    if (!MustBeQuoted(text)) {
      lines_ += text;
      return;
    }
    lines_ += '"';
    for (char c : text) {
      if (c == '"') lines_ += c;
      lines_ += c;
    }
    lines_ += '"';
  }

  const Grid& grid_;
  char separator_;
  const ExportOptions& options_;
  std::string lines_;
  bool at_begin_ = true;
};

void Write(const std::filesystem::path& path, const Grid& grid, char separator,
           const ExportOptions& options) {
  ReplacedFile file(path);
  Lines(grid, separator, options).Write(file);
  file.Commit();
}

}  // namespace

void WriteCommaSeparated(const std::filesystem::path& path, const Grid& grid,
                         const ExportOptions& options) {
  Write(path, grid, ',', options);
}
void WriteTabSeparated(const std::filesystem::path& path, const Grid& grid,
                       const ExportOptions& options) {
  Write(path, grid, '\t', options);
}

}  // namespace quorval
