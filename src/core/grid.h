// Cells by column and row, both counted from 1: what the worksheet and every results sheet are
// made of.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/real.h"

namespace quorval {

enum class CellType : std::uint8_t { kEdit = 1, kPicture = 9, kNumber = 13 };

using Colour = std::uint32_t;  // 0xRRGGBB
inline constexpr Colour kWhite = 0xFFFFFF;
inline constexpr Colour kGrey = 0xC0C0C0;

// A picture file's bytes (PNG or BMP), shared by the cells and files that show it.
using Picture = std::shared_ptr<const std::string>;

// How a cell looks, whatever it holds.
struct CellLook {
  CellType type = CellType::kEdit;
  std::uint8_t decimals = 0;  // of a number cell, 0 to 30
  bool bold = false;
  bool italic = false;
  bool overflow = false;  // the text may run over the empty cells to its right
  Colour colour = kWhite;
  std::uint16_t span_columns = 1;  // the cells that this one is joined to, itself included
  std::uint16_t span_rows = 1;

  bool operator==(const CellLook&) const = default;
};

struct Cell {
  std::string text;             // as typed; empty in a cell that holds a number of the program's
  std::optional<double> value;  // a number that the program wrote; finite
  CellLook look;
  Picture picture;

  bool Empty() const { return text.empty() && !value && !picture; }
  // What is shown: the text, or the value: rounded to a number cell's decimals, in an edit cell by
  // its shortest digits.
  std::string Text() const;
  // The content without display formatting: the text, or the value with all its digits.
  std::string Value() const;

  bool operator==(const Cell&) const = default;
};

// An edit cell that holds a number which the program wrote.
Cell EditNumber(Real value);

class Grid {
 public:
  Grid(int columns, int rows) : cells_(static_cast<std::size_t>(columns)), rows_(rows) {}

  int Columns() const { return static_cast<int>(cells_.size()); }
  int Rows() const { return rows_; }

  // An empty cell where nothing has been written, beyond the grid's edges too.
  const Cell& At(int column, int row) const;
  // The cell to write; std::out_of_range beyond the edges.
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
    return static_cast<int>(cells_[static_cast<std::size_t>(column - 1)].size());
  }

  // Changes how many rows there are; what stands below the last one goes.
  void SetRows(int rows);

  // Whether all cells are equal, and the edges.
  bool operator==(const Grid& other) const;

 private:
  std::vector<std::vector<Cell>> cells_;  // by column, each as long as it was written to
  int rows_;
};

}  // namespace quorval
