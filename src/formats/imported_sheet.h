#pragma once

#include <string_view>
#include <utility>

#include "core/worksheet.h"
#include "formats/budget.h"
#include "formats/date_text.h"

namespace quorval {

// The worksheet that a file of another program fills, cell by cell.  Columns count from 1, rows
// from 0.  Throws a FileError of a cell beyond its edges, and of one that does not fit the budget:
// nothing is left out unsaid.
class ImportedSheet {
 public:
  // The budget must live as long.
  explicit ImportedSheet(Budget& budget) : budget_(budget) {}

  void Text(int column, int row, std::string_view text);
  // A number that is not finite becomes "#NUM!".
  void Number(int column, int row, double number);
  // A number, or the date that its format makes of it.
  void Number(int column, int row, double number, DateKind kind, DateSystem system);
  void Boolean(int column, int row, bool value) { Text(column, row, value ? "TRUE" : "FALSE"); }

  Worksheet Result() && { return std::move(worksheet_); }

 private:
  void Check(int column, int row);

  Budget& budget_;
  Worksheet worksheet_;
};

}  // namespace quorval
