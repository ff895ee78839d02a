#include "formats/separated_values.h"

#include <csv.h>
#include <utf8.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <new>
#include <string>
#include <string_view>

#include "formats/budget.h"
#include "formats/file_error.h"

namespace quorval {
namespace {

std::string InRow(std::string_view what, int row) {
  return std::string(what) + " in row " + std::to_string(row) + " (the first row is row 0)";
}

// ASCII without NUL, as nearly all values are.
bool IsPlain(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<signed char>(c) > 0; });
}

// Writes the values into a worksheet as the parser meets them.  The parser is a C library: nothing
// may be thrown through it, so the first error is kept until it returns.
class Table {
 public:
  void Take(std::string_view value) {
    ++column_;
    row_begun_ = true;
    if (value.empty() || !error_.empty()) return;
    if (!IsPlain(value)) {
      if (value.find('\0') != value.npos) return Fail("a NUL byte");
      if (!utf8::is_valid(value.begin(), value.end())) return Fail("text that is not UTF-8");
    }
    if (row_ > Worksheet::kLastRow) return Fail("more than 10000 rows: a value");
    if (column_ > Worksheet::kColumns) return Fail("more than 500 columns: a value");
    worksheet_.SetText(column_, row_, value);
  }

  void EndRow(int line_end) {
    const bool second_of_pair = !row_begun_ && line_end == '\n' && last_line_end_ == '\r';
    last_line_end_ = second_of_pair ? 0 : line_end;
    if (second_of_pair) return;
    ++row_;
    column_ = 0;
    row_begun_ = false;
  }

  void Fail(std::string_view what) {
    if (error_.empty()) error_ = InRow(what, row_);
  }

  Worksheet Result() && {
    ThrowIfFailed();
    return std::move(worksheet_);
  }
  void ThrowIfFailed() const {
    if (!error_.empty()) throw FileError(error_);
  }

 private:
  Worksheet worksheet_;
  int row_ = 0;
  int column_ = 0;
  bool row_begun_ = false;
  int last_line_end_ = 0;
  std::string error_;
};

extern "C" {
void TakeValue(void* bytes, std::size_t count, void* table) {
  static_cast<Table*>(table)->Take({static_cast<const char*>(bytes), count});
}
void TakeLineEnd(int line_end, void* table) { static_cast<Table*>(table)->EndRow(line_end); }
int NoBlank(unsigned char) { return 0; }
}

// The parser of a stream, fed piece by piece.
class Parser {
 public:
  explicit Parser(char separator) {
    // Strict: stray quotes are errors.  Every line end is reported, so blank lines are rows.
    if (csv_init(&parser_, CSV_STRICT | CSV_STRICT_FINI | CSV_REPALL_NL) != 0)
      throw std::bad_alloc();
    csv_set_delim(&parser_, static_cast<unsigned char>(separator));
    csv_set_space_func(&parser_, NoBlank);
  }
  ~Parser() { csv_free(&parser_); }
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;

  void Feed(std::string_view bytes) {
    const std::size_t parsed =
        csv_parse(&parser_, bytes.data(), bytes.size(), TakeValue, TakeLineEnd, &table_);
    if (parsed < bytes.size())
      table_.Fail(
          "a quote inside a value that does not begin with one, "
          "or text behind a closing quote,");
    if (csv_get_buffer_size(&parser_) > limits::kLongestText) table_.Fail("a value beyond 1 MiB");
    table_.ThrowIfFailed();
  }

  Worksheet Finish() {
    if (csv_fini(&parser_, TakeValue, TakeLineEnd, &table_) != 0)
      table_.Fail("a quote that is not closed");
    return std::move(table_).Result();
  }

 private:
  csv_parser parser_{};
  Table table_;
};

Worksheet Read(const std::filesystem::path& path, char separator) {
  Budget(path).text.Take(std::filesystem::file_size(path));  // it cannot hold more
  std::ifstream file(path, std::ios::binary);
  if (!file) throw FileError(std::strerror(errno));
  Parser parser(separator);
  std::array<char, 65536> piece;
  for (bool first = true; file.read(piece.data(), piece.size()), file.gcount() > 0; first = false) {
    std::string_view bytes(piece.data(), static_cast<std::size_t>(file.gcount()));
    if (first && utf8::starts_with_bom(bytes.begin(), bytes.end())) bytes.remove_prefix(3);
    parser.Feed(bytes);
  }
  if (!file.eof()) throw FileError("the file cannot be read");
  return parser.Finish();
}

}  // namespace

Worksheet ReadCommaSeparated(const std::filesystem::path& path) { return Read(path, ','); }
Worksheet ReadTabSeparated(const std::filesystem::path& path) { return Read(path, '\t'); }

}  // namespace quorval
