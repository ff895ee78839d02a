#include <algorithm>
#include <fstream>
#include <string>

#include "core/conversion.h"
#include "formats/file_error.h"
#include "formats/replaced_file.h"
#include "formats/separated_values.h"

namespace quorval {
namespace {

void AppendQuoted(std::string& line, std::string_view text) {
  line += '"';
  for (char c : text) {
    if (c == '"') line += c;
    line += c;
  }
  line += '"';
}

void AppendCell(std::string& line, const Cell& cell, char separator) {
  if (cell.value) {
    line += ShortestText(*cell.value);
    return;
  }
  const auto must_be_quoted = [&](char c) {
    return c == separator || c == '"' || c == '\n' || c == '\r';
  };
  if (std::ranges::any_of(cell.text, must_be_quoted)) {
    AppendQuoted(line, cell.text);
  } else {
    line += cell.text;
  }
}

void Write(const std::filesystem::path& path, const Grid& grid, char separator) {
  ReplacedFile file(path);
  {
    std::ofstream stream(file.path(), std::ios::binary);
    const int rows = grid.DataRowCnt();
    const int columns = grid.DataColCnt();
    std::string line;
    for (int row = 1; row <= rows; ++row) {
      line.clear();
      for (int column = 1; column <= columns; ++column) {
        if (column > 1) line += separator;
        AppendCell(line, grid.At(column, row), separator);
      }
      line += '\n';
      stream.write(line.data(), static_cast<std::streamsize>(line.size()));
    }
    if (!stream.flush()) throw FileError("the file cannot be written");
  }
  file.Commit();
}

}  // namespace

void WriteCommaSeparated(const std::filesystem::path& path, const Grid& grid) {
  Write(path, grid, ',');
}
void WriteTabSeparated(const std::filesystem::path& path, const Grid& grid) {
  Write(path, grid, '\t');
}

}  // namespace quorval
