#include "app/sheet_editor.h"

#include <algorithm>
#include <utility>

namespace quorval {
namespace {

// What the memory of steps may hold, about 200 MB.
constexpr std::size_t kMostHeldCells = 2'000'000;

template <class Visit>
void ForEachCell(const CellRange& range, Visit visit) {
  for (int column = range.column; column <= range.last_column; ++column)
    for (int row = range.row; row <= range.last_row; ++row) visit(column, row);
}

// The first and the last row of a column that differ; the first behind the last where none does.
std::pair<int, int> ChangedRows(const Grid& before, const Grid& now, int column) {
  int last = std::max(before.UsedRows(column), now.UsedRows(column));
  while (last > 0 && before.At(column, last) == now.At(column, last)) --last;
  int first = 1;
  while (first < last && before.At(column, first) == now.At(column, first)) ++first;
  return {first, last};
}

// Around all cells that differ.
CellRange ChangedRange(const Grid& before, const Grid& now) {
  CellRange range{0, 0, 0, 0};
  for (int column = 1; column <= now.Columns(); ++column) {
    const auto [row, last_row] = ChangedRows(before, now, column);
    if (row > last_row) continue;
    if (range.column == 0) range = {column, row, column, last_row};
    range.row = std::min(range.row, row);
    range.last_column = column;
    range.last_row = std::max(range.last_row, last_row);
  }
  return range.column == 0 ? CellRange{} : range;
}

}  // namespace

CellRange SheetEditor::Used(CellRange range) const {
  range.last_column = std::clamp(grid_.DataColCnt(), range.column, range.last_column);
  range.last_row = std::clamp(grid_.DataRowCnt(), range.row, range.last_row);
  return range;
}

void SheetEditor::Type(int column, int row, std::string_view text) {
  Remember({column, row, column, row});
  grid_.SetText(column, row, text);
}

void SheetEditor::Clear(CellRange range) {
  range = Used(range);
  Remember(range);
  ForEachCell(range, [&](int column, int row) {
    if (grid_.At(column, row).picture) grid_.Put(column, row, {});
    grid_.SetText(column, row, {});
  });
}

Pasted SheetEditor::Paste(const CellRange& selection, const TextBlock& block) {
  std::size_t width = 0;
  for (const auto& row : block) width = std::max(width, row.size());
  Pasted pasted{selection};
  if (width == 0) return pasted;

  const bool fills = width == 1 && block.size() == 1;
  CellRange& range = pasted.range;
  if (!fills) {
    range.last_column = std::min(range.column + static_cast<int>(width) - 1, grid_.Columns());
    range.last_row = std::min(range.row + static_cast<int>(block.size()) - 1, grid_.Rows());
  }
  Remember(range);
  ForEachCell(range, [&](int column, int row) {
    const auto& texts = block[fills ? 0 : static_cast<std::size_t>(row - range.row)];
    const auto index = fills ? 0 : static_cast<std::size_t>(column - range.column);
    grid_.SetText(column, row, index < texts.size() ? texts[index] : std::string{});
  });
  if (fills) return pasted;
  const int taken = range.last_column - range.column + 1;
  for (std::size_t i = 0; i < block.size(); ++i) {
    const bool fits = range.row + static_cast<int>(i) <= range.last_row;
    pasted.lost += std::max(0, static_cast<int>(block[i].size()) - (fits ? taken : 0));
  }
  return pasted;
}

std::optional<CellRange> SheetEditor::Undo() {
  if (done_ == 0) return std::nullopt;
  return Swap(steps_[--done_]);
}

std::optional<CellRange> SheetEditor::Redo() {
  if (done_ == steps_.size()) return std::nullopt;
  return Swap(steps_[done_++]);
}

void SheetEditor::Forget() {
  steps_.clear();
  done_ = held_cells_ = 0;
}

void SheetEditor::Do(const std::function<void()>& work, const std::function<Exchange()>& beside) {
  Grid before = grid_;
  const auto remember = [&] {
    Step step{ChangedRange(before, grid_), {}, beside ? beside() : Exchange{}};
    for (int column = 1; column <= grid_.Columns(); ++column) {
      const auto [row, last_row] = ChangedRows(before, grid_, column);
      if (row > last_row) continue;
      Block& block = step.blocks.emplace_back(Block{column, row, last_row, {}});
      const int held = std::min(last_row, before.UsedRows(column));
      for (int i = row; i <= held; ++i) block.others.push_back(before.At(column, i));
    }
    if (!step.blocks.empty() || step.exchange) Add(std::move(step));
  };
  try {
    work();
  } catch (...) {
    remember();
    throw;
  }
  remember();
}

std::size_t SheetEditor::Step::HeldCells() const {
  std::size_t cells = 0;
  for (const Block& block : blocks) cells += block.others.size();
  return cells;
}

void SheetEditor::Remember(const CellRange& range) {
  Step step{range, {}};
  for (int column = range.column; column <= range.last_column; ++column) {
    Block& block = step.blocks.emplace_back(Block{column, range.row, range.last_row, {}});
    const int held = std::min(range.last_row, grid_.UsedRows(column));
    for (int row = range.row; row <= held; ++row) block.others.push_back(grid_.At(column, row));
  }
  Add(std::move(step));
}

void SheetEditor::Add(Step step) {
  for (; steps_.size() > done_; steps_.pop_back()) held_cells_ -= steps_.back().HeldCells();
  held_cells_ += step.HeldCells();
  steps_.push_back(std::move(step));
  while (steps_.size() > 1 && held_cells_ > kMostHeldCells) {
    held_cells_ -= steps_.front().HeldCells();
    steps_.erase(steps_.begin());
  }
  done_ = steps_.size();
}

CellRange SheetEditor::Swap(Step& step) {
  held_cells_ -= step.HeldCells();
  for (Block& block : step.blocks) Swap(block);
  held_cells_ += step.HeldCells();
  if (step.exchange) step.exchange();
  return step.range;
}

void SheetEditor::Swap(Block& block) {
  const int used = std::min(block.last_row, grid_.UsedRows(block.column));
  const auto held = static_cast<std::size_t>(std::max(0, used - block.row + 1));
  if (held > block.others.size()) block.others.resize(held);
  for (std::size_t i = 0; i < block.others.size(); ++i) {
    const int row = block.row + static_cast<int>(i);
    Cell& other = block.others[i];
    Cell now = grid_.At(block.column, row);
    if (!(other == now)) grid_.Put(block.column, row, std::exchange(other, std::move(now)));
  }
}

}  // namespace quorval
