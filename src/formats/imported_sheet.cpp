#include "formats/imported_sheet.h"

#include <cmath>

#include "formats/file_error.h"

namespace quorval {

void ImportedSheet::Check(int column, int row) {
  if (column < 1 || column > Worksheet::kColumns)
    throw FileError("the sheet has more than 500 columns");
  if (row < 0 || row > Worksheet::kLastRow) throw FileError("the sheet has more than 10000 rows");
  budget_.cells.Take();
}

void ImportedSheet::Text(int column, int row, std::string_view text) {
  if (text.empty()) return;
  Check(column, row);
  budget_.text.Take(text.size());
  worksheet_.SetText(column, row, text);
}

void ImportedSheet::Number(int column, int row, double number) {
  if (!std::isfinite(number)) return Text(column, row, "#NUM!");
  Check(column, row);
  worksheet_.SetValue(column, row, number);
}

void ImportedSheet::Number(int column, int row, double number, DateKind kind, DateSystem system) {
  if (const auto date = DateText(number, kind, system)) return Text(column, row, *date);
  Number(column, row, number);
}

}  // namespace quorval
