// What is done to a sheet, by keys and clipboard or by a command, and back again.
#pragma once

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "app/text_block.h"
#include "core/grid.h"

namespace quorval {

// A rectangle of cells, from 1, both ends included.
struct CellRange {
  int column = 1, row = 1, last_column = 1, last_row = 1;

  bool operator==(const CellRange&) const = default;
};

struct Pasted {
  CellRange range;
  int lost = 0;  // so many cells of the block lay beyond the sheet's edges
};

class SheetEditor {
 public:
  explicit SheetEditor(Grid& grid) : grid_(grid) {}

  void Type(int column, int row, std::string_view text);
  // Empties the cells; their looks stay, but pictures go.
  void Clear(CellRange range);
  // Writes the block from the selection's first cell on.  A block of one cell fills the selection.
  Pasted Paste(const CellRange& selection, const TextBlock& block);

  // What exchanges all that belongs to a step beside the cells with its other side: called each
  // time that the step is taken back or again.
  using Exchange = std::function<void()>;
  // Does a command's work on the sheet as one step, even where the work throws.  `beside` is asked
  // after the work; it may return nothing.
  void Do(const std::function<void()>& work, const std::function<Exchange()>& beside = {});

  Grid& grid() const { return grid_; }

  // The part of a range that lies within the used area, and its first cell at the least.
  CellRange Used(CellRange range) const;

  // Takes the last step back, or again; the range that changed, none when there is no step.
  std::optional<CellRange> Undo();
  std::optional<CellRange> Redo();
  // Another hand changed the sheet: there is no way back behind it.
  void Forget();

 private:
  // Cells of one column below each other, as they are on the step's other side.  Those behind the
  // last one that is held are empty.
  struct Block {
    int column, row, last_row;
    std::vector<Cell> others;
  };
  struct Step {
    CellRange range;
    std::vector<Block> blocks;
    Exchange exchange{};

    std::size_t HeldCells() const;
  };

  void Remember(const CellRange& range);
  void Add(Step step);
  CellRange Swap(Step& step);
  void Swap(Block& block);

  Grid& grid_;
  std::vector<Step> steps_;
  std::size_t done_ = 0;        // the steps before it can be taken back, the others again
  std::size_t held_cells_ = 0;  // in all steps
};

}  // namespace quorval
