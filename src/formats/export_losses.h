// What a file of another program cannot hold of a sheet.
#pragma once

#include "core/grid.h"
#include "core/notice.h"

namespace quorval {

struct ExportLimits {
  bool bounds_numbers;  // a workbook's numbers end before those of 64 bits
  bool holds_nul;
};
inline constexpr ExportLimits kWorkbook{.bounds_numbers = true, .holds_nul = true};
inline constexpr ExportLimits kSeparatedValues{.bounds_numbers = false, .holds_nul = false};

// A notice for each kind of loss, with how many cells it meets and the first of them, named as
// spreadsheet programs do ("B7").
Notices LossesOf(const Grid& grid, const ExportLimits& limits);

}  // namespace quorval
