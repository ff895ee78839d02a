#include "formats/imported_sheet.h"

#include <cmath>

#include "formats/file_error.h"

namespace quorval {
namespace {

void CheckPlace(int column, int row) {
  if (column < 1 || column > Worksheet::kColumns)
    throw FileError("the sheet has more than 500 columns");
  if (row < 0 || row > Worksheet::kLastRow) throw FileError("the sheet has more than 10000 rows");
}

}  // namespace

void ImportedSheet::Text(int column, int row, std::string_view text) {
  if (text.empty()) return;
  CheckPlace(column, row);
  constexpr std::size_t kMostText = std::size_t{1} << 30;
  text_ += text.size();
  if (text_ > kMostText) throw FileError("the sheet holds too much text");
  worksheet_.SetText(column, row, text);
}

void ImportedSheet::Number(int column, int row, double number) {
  if (!std::isfinite(number)) return Text(column, row, "#NUM!");
  CheckPlace(column, row);
  worksheet_.SetValue(column, row, number);
}

void ImportedSheet::Number(int column, int row, double number, DateKind kind, DateSystem system) {
  if (const auto date = DateText(number, kind, system)) return Text(column, row, *date);
  Number(column, row, number);
}

}  // namespace quorval
