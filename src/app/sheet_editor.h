// What a user does to a sheet by keys and clipboard, and back again.
#pragma once

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

  // The part of a range that lies within the used area, and its first cell at the least.
  CellRange Used(CellRange range) const;

  // Takes the last step back, or again; the range that changed, none when there is no step.
  std::optional<CellRange> Undo();
  std::optional<CellRange> Redo();
  // Another hand changed the sheet: there is no way back behind it.
  void Forget();

 private:
  struct Step {
    CellRange range;
    std::vector<Cell> others;  // the cells as they are on the step's other side, column by column
  };

  void Remember(const CellRange& range);
  CellRange Swap(Step& step);

  Grid& grid_;
  std::vector<Step> steps_;
  std::size_t done_ = 0;        // the steps before it can be taken back, the others again
  std::size_t held_cells_ = 0;  // in all steps
};

}  // namespace quorval
