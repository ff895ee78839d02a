#include "core/grid.h"

#include <algorithm>
#include <stdexcept>

#include "core/conversion.h"

namespace quorval {

namespace {

// A column that grows beyond this gets room for all rows, so that its cells move no more; what is
// not written to takes no memory of the machine's.
constexpr std::size_t kRowsBeforeAll = 1024;

}  // namespace

std::string Cell::Text() const {
  if (look.type == CellType::kNumber && value) return FixedText(*value, look.decimals);
  return Value();
}

std::string Cell::Value() const { return value ? ShortestText(*value) : text; }

Cell EditNumber(Real value) {
  Cell cell;
  cell.value = Raw(value);
  return cell;
}

const Cell& Grid::At(int column, int row) const {
  static const Cell kNothing;
  if (column < 1 || column > Columns() || row < 1) return kNothing;
  const auto& cells = cells_[static_cast<std::size_t>(column - 1)];
  const auto index = static_cast<std::size_t>(row - 1);
  return index < cells.size() ? cells[index] : kNothing;
}

Cell& Grid::Edit(int column, int row) {
  if (row < 1 || row > rows_) throw std::out_of_range("row");
  auto& cells = cells_.at(static_cast<std::size_t>(column - 1));
  const auto index = static_cast<std::size_t>(row - 1);
  if (index >= cells.size()) {
    if (index >= kRowsBeforeAll) cells.reserve(static_cast<std::size_t>(rows_));
    cells.resize(index + 1);
  }
  return cells[index];
}

void Grid::SetText(int column, int row, std::string_view text) {
  if (text.empty() && At(column, row).Empty()) return;
  Cell& cell = Edit(column, row);
  cell.value.reset();
  cell.text.clear();
  if (cell.look.type == CellType::kNumber && IsNumber(text)) {
    cell.value = Raw(ToNumber(text));
    return;
  }
  if (!text.empty()) cell.look.type = CellType::kEdit;
  cell.text = text;
}

void Grid::SetValue(int column, int row, Real value) {
  Cell& cell = Edit(column, row);
  cell.text.clear();
  cell.value = Raw(value);
}

void Grid::SetNumber(int column, int row, Real value, std::uint8_t decimals) {
  Cell& cell = Edit(column, row);
  cell.look.type = CellType::kNumber;
  cell.look.decimals = decimals;
  cell.text.clear();
  cell.value = Raw(value);
}

void Grid::ClearRange(int first_column, int first_row, int last_column, int last_row) {
  for (int column = std::max(first_column, 1); column <= std::min(last_column, Columns());
       ++column) {
    auto& cells = cells_[static_cast<std::size_t>(column - 1)];
    const auto first = static_cast<std::size_t>(std::max(first_row, 1) - 1);
    const auto end = std::min(cells.size(), static_cast<std::size_t>(std::max(last_row, 0)));
    if (first >= end) continue;
    if (end == cells.size()) {
      cells.resize(first);
    } else {
      for (std::size_t i = first; i < end; ++i) cells[i] = Cell{};
    }
  }
}

void Grid::ClearAll() {
  for (auto& cells : cells_) cells.clear();
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
  for (const auto& cells : cells_) {
    std::size_t used = cells.size();
    while (used > count && cells[used - 1].Empty()) --used;
    count = std::max(count, used);
  }
  return static_cast<int>(count);
}

int Grid::DataColCnt() const {
  const auto used = std::find_if(cells_.rbegin(), cells_.rend(), [](const auto& cells) {
    return !std::all_of(cells.begin(), cells.end(), [](const Cell& cell) { return cell.Empty(); });
  });
  return static_cast<int>(cells_.rend() - used);
}

}  // namespace quorval
