#include "core/worksheet.h"

#include <utility>

namespace quorval {

void Worksheet::Clear() {
  grid_.ClearAll();
  PaintHeader();
}

void Worksheet::Take(Grid grid) {
  grid.SetRows(kLastRow + 1);
  grid_ = std::move(grid);
  PaintHeader();
}

void Worksheet::PaintHeader() {
  for (int column = 1; column <= kColumns; ++column) {
    Cell cell = grid_.At(column, 1);
    cell.look.colour = kGrey;
    cell.look.type = CellType::kEdit;
    grid_.Put(column, 1, std::move(cell));
  }
}

}  // namespace quorval
