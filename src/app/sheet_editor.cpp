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

void SheetEditor::Remember(const CellRange& range) {
  for (; steps_.size() > done_; steps_.pop_back()) held_cells_ -= steps_.back().others.size();
  Step step{range, {}};
  ForEachCell(range, [&](int column, int row) { step.others.push_back(grid_.At(column, row)); });
  held_cells_ += step.others.size();
  steps_.push_back(std::move(step));
  while (steps_.size() > 1 && held_cells_ > kMostHeldCells) {
    held_cells_ -= steps_.front().others.size();
    steps_.erase(steps_.begin());
  }
  done_ = steps_.size();
}

CellRange SheetEditor::Swap(Step& step) {
  std::size_t i = 0;
  ForEachCell(step.range, [&](int column, int row) {
    Cell& other = step.others[i++];
    Cell now = grid_.At(column, row);
    if (other == now) return;
    grid_.Put(column, row, std::exchange(other, std::move(now)));
  });
  return step.range;
}

}  // namespace quorval
