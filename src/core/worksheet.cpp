#include "core/worksheet.h"

namespace quorval {

void Worksheet::Clear() {
  grid_.ClearAll();
  PaintHeader();
}

void Worksheet::PaintHeader() {
  for (int column = 1; column <= kColumns; ++column) {
    CellLook& look = grid_.Edit(column, 1).look;
    look.colour = kGrey;
    look.type = CellType::kEdit;
  }
}

}  // namespace quorval
