#pragma once

#include <string>

#include "core/grid.h"

namespace quorval {

// The used range as lines of text with its columns aligned, numbers to the right.  As on a screen a
// text runs over the empty cells to its right; no line ends in blanks.
std::string SheetTable(const Grid& grid);

}  // namespace quorval
