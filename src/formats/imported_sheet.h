#pragma once

#include <string_view>
#include <utility>

#include "core/worksheet.h"
#include "formats/date_text.h"

namespace quorval {

// The worksheet that a file of another program fills, cell by cell.  Columns count from 1, rows
// from 0.  Throws a FileError of a cell beyond its edges: nothing is left out unsaid.
class ImportedSheet {
 public:
  void Text(int column, int row, std::string_view text);
  // A number that is not finite becomes "#NUM!".
  void Number(int column, int row, double number);
  // A number, or the date that its format makes of it.
  void Number(int column, int row, double number, DateKind kind, DateSystem system);
  void Boolean(int column, int row, bool value) { Text(column, row, value ? "TRUE" : "FALSE"); }

  Worksheet Result() && { return std::move(worksheet_); }

 private:
  Worksheet worksheet_;
  std::size_t text_ = 0;  // bytes so far: a small file can hold one long text many times
};

}  // namespace quorval
