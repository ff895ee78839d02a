#pragma once

#include <string>
#include <string_view>

#include "core/grid.h"

namespace quorval {

// The project's data: 500 columns (counted from 1) by rows 0 to 9999.  Row 0 holds the columns'
// titles and is grey; numbers start in row 1 and end at a column's first empty cell.
class Worksheet {
 public:
  static constexpr int kColumns = 500;
  static constexpr int kLastRow = 9999;

  Worksheet() { PaintHeader(); }

  // Rows as the user sees them, from 0.
  std::string Text(int column, int row) const { return grid_.Text(column, row + 1); }
  std::string Value(int column, int row) const { return grid_.Value(column, row + 1); }
  void SetText(int column, int row, std::string_view text) { grid_.SetText(column, row + 1, text); }
  void SetValue(int column, int row, Real value) { grid_.SetValue(column, row + 1, value); }

  void SetNumber(int column, int row, Real value, std::uint8_t decimals) {
    grid_.SetNumber(column, row + 1, value, decimals);
  }

  // The extent in the grid's own numbering, where row 0 is 1; 0 for an empty sheet.
  int DataRowCnt() const { return grid_.DataRowCnt(); }
  int DataColCnt() const { return grid_.DataColCnt(); }

  // Empties the used area and paints row 0 anew.
  void Clear();
  // Another grid's cells in the place of these; what does not fit is left out.
  void Take(Grid grid);
  // Row 0 grey and of edit type in all columns.
  void PaintHeader();

  const Grid& grid() const { return grid_; }
  Grid& grid() { return grid_; }

 private:
  Grid grid_{kColumns, kLastRow + 1};
};

}  // namespace quorval
