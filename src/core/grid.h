// Cells by column and row, from 1 on: what the worksheet and every results sheet are made of.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/cell.h"
#include "core/cell_column.h"
#include "core/real.h"

namespace quorval {

class Grid {
 public:
  Grid(int columns, int rows) : columns_(static_cast<std::size_t>(columns)), rows_(rows) {}

  int Columns() const { return static_cast<int>(columns_.size()); }
  int Rows() const { return rows_; }

  // An empty cell where nothing has been written, beyond the grid's edges too.
  Cell At(int column, int row) const;
  // Whether nothing is there, whatever it looks like.
  bool Empty(int column, int row) const;
  // Replaces the cell.  This and all below: std::out_of_range beyond the edges.
  void Put(int column, int row, Cell cell);
  // The cell to write.  It takes more memory than others from then on.
  Cell& Edit(int column, int row);

  std::string Text(int column, int row) const { return At(column, row).Text(); }
  std::string Value(int column, int row) const { return At(column, row).Value(); }

  // What a user types or pastes: the look stays, but a word in a number cell makes it an edit cell.
  void SetText(int column, int row, std::string_view text);
  // A number written into a cell; an edit cell shows its shortest digits.
  void SetValue(int column, int row, Real value);

  // Makes the cell a number cell.
  void SetNumber(int column, int row, Real value, std::uint8_t decimals);

  // Empties values and formatting.
  void ClearRange(int first_column, int first_row, int last_column, int last_row);
  void ClearAll();

  // The last row, and the last column, that holds anything; 0 when all is empty.
  int DataRowCnt() const;
  int DataColCnt() const;

  // The rows of a column that were ever written to; below them it is empty.
  int UsedRows(int column) const {
    return static_cast<int>(columns_[static_cast<std::size_t>(column - 1)].Size());
  }

  // Changes how many rows there are; what stands below the last one goes.
  void SetRows(int rows);

  // Whether all cells are equal, and the edges.
  bool operator==(const Grid& other) const;

 private:
  const CellColumn* Column(int column) const;
  CellColumn& ToWrite(int column, int row);

  std::vector<CellColumn> columns_;
  LookTable looks_;
  int rows_;
};

}  // namespace quorval
