// How a cell goes to another program's sheet: a number where it is one, else a text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/grid.h"

namespace quorval {

struct ExportedCell {
  std::optional<double> number{};
  std::string text{};  // where there is no number
  int decimals = -1;   // of the number; -1: as many as it has
  bool bold = false;
  bool italic = false;
};

// A text becomes a number where that changes nothing of how it reads ("2.50", but not "007" or a
// long bar code); the titles of the first row stay texts.
ExportedCell Exported(const Cell& cell, int row);

// --- The styles of exported cells, a number for each

inline constexpr int kMostDecimals = 30;
inline constexpr int kStyles = (kMostDecimals + 2) * 4;

// 0 is the plain one.
constexpr int StyleOf(const ExportedCell& cell) {
  return (cell.decimals + 1) * 4 + (cell.bold ? 2 : 0) + (cell.italic ? 1 : 0);
}
constexpr int FontOf(int style) { return style % 4; }  // plain, italic, bold, both
constexpr int DecimalsOf(int style) { return style / 4 - 1; }

// The format code of a number with so many decimals: "0", "0.0", ...
std::string FormatCode(int decimals);

// The letters of a column: "A" to "Z", "AA", ...
std::string ColumnName(int column);

// The name of the one sheet that is written.
inline constexpr std::string_view kSheetName = "Sheet 1";

}  // namespace quorval
