#include "core/grid.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "core/conversion.h"

namespace quorval {

namespace {

// A column that grows beyond this gets room for all rows, so that its cells move no more.
constexpr int kRowsBeforeAll = 1024;

std::size_t Index(int row) { return static_cast<std::size_t>(row - 1); }

}  // namespace

const CellColumn* Grid::Column(int column) const {
  if (column < 1 || column > Columns()) return nullptr;
  return &columns_[static_cast<std::size_t>(column - 1)];
}

CellColumn& Grid::ToWrite(int column, int row) {
  if (row < 1 || row > rows_) throw std::out_of_range("row");
  CellColumn& cells = columns_.at(static_cast<std::size_t>(column - 1));
  if (row > kRowsBeforeAll && Index(row) >= cells.Size())
    cells.Reserve(static_cast<std::size_t>(rows_));
  return cells;
}

Cell Grid::At(int column, int row) const {
  const CellColumn* const cells = Column(column);
  return cells != nullptr && row >= 1 ? cells->At(Index(row), looks_) : Cell{};
}

bool Grid::Empty(int column, int row) const {
  const CellColumn* const cells = Column(column);
  return cells == nullptr || row < 1 || cells->Empty(Index(row));
}

void Grid::Put(int column, int row, Cell cell) {
  ToWrite(column, row).Put(Index(row), std::move(cell), looks_);
}

Cell& Grid::Edit(int column, int row) { return ToWrite(column, row).Edit(Index(row), looks_); }

void Grid::SetText(int column, int row, std::string_view text) {
  if (text.empty() && Empty(column, row)) return;
  CellColumn& cells = ToWrite(column, row);
  CellLook look = cells.LookAt(Index(row), looks_);
  if (look.type == CellType::kNumber && IsNumber(text))
    return cells.SetNumber(Index(row), Raw(ToNumber(text)));
  cells.SetText(Index(row), text);
  if (text.empty() || std::exchange(look.type, CellType::kEdit) == CellType::kEdit) return;
  cells.SetLook(Index(row), look, looks_);
}

void Grid::SetValue(int column, int row, Real value) {
  ToWrite(column, row).SetNumber(Index(row), Raw(value));
}

void Grid::SetNumber(int column, int row, Real value, std::uint8_t decimals) {
  CellColumn& cells = ToWrite(column, row);
  cells.SetNumber(Index(row), Raw(value));
  CellLook look = cells.LookAt(Index(row), looks_);
  look.type = CellType::kNumber;
  look.decimals = decimals;
  cells.SetLook(Index(row), look, looks_);
}

void Grid::ClearRange(int first_column, int first_row, int last_column, int last_row) {
  const std::size_t first = Index(std::max(first_row, 1));
  const auto end = static_cast<std::size_t>(std::max(last_row, 0));
  for (int column = std::max(first_column, 1); column <= std::min(last_column, Columns()); ++column)
    columns_[static_cast<std::size_t>(column - 1)].Clear(first, end);
}

void Grid::ClearAll() {
  columns_ = std::vector<CellColumn>(columns_.size());
  looks_ = {};
}

void Grid::SetRows(int rows) {
  ClearRange(1, rows + 1, Columns(), rows_);
  rows_ = rows;
}

bool Grid::operator==(const Grid& other) const {
  if (Columns() != other.Columns() || rows_ != other.rows_) return false;
  for (int column = 1; column <= Columns(); ++column) {
    const int rows = std::max(UsedRows(column), other.UsedRows(column));
    for (int row = 1; row <= rows; ++row)
      if (!(At(column, row) == other.At(column, row))) return false;
  }
  return true;
}

int Grid::DataRowCnt() const {
  std::size_t count = 0;
  for (const CellColumn& cells : columns_) {
    std::size_t used = cells.Size();
    while (used > count && cells.Empty(used - 1)) --used;
    count = std::max(count, used);
  }
  return static_cast<int>(count);
}

int Grid::DataColCnt() const {
  for (int column = Columns(); column >= 1; --column)
    for (int row = 1; row <= UsedRows(column); ++row)
      if (!Empty(column, row)) return column;
  return 0;
}

}  // namespace quorval
