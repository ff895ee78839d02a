#include "core/cell.h"

#include "core/conversion.h"

namespace quorval {

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

}  // namespace quorval
