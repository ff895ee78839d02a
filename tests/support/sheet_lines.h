// A results sheet as lines of text, to be compared whole.
#pragma once

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include "core/results_sheet.h"
#include "support/data_folder.h"

namespace quorval::test {

using Lines = std::vector<std::string>;

// A line for each row that holds anything, from `first_row` to `last_row`: its number, ":" and its
// cells, parted by "|".  A bold cell starts with "*"; a number cell shows its decimals and so
// differs from a count.
inline Lines LinesOf(const Grid& sheet, int first_row = 1, int last_row = ResultsSheet::kRows) {
  Lines lines;
  for (int row = first_row; row <= std::min(last_row, sheet.DataRowCnt()); ++row) {
    std::string cells, gap;
    for (int column = 1; column <= sheet.DataColCnt(); ++column) {
      const Cell& cell = sheet.At(column, row);
      if (!cell.Empty()) {
        cells += gap + (cell.look.bold ? "*" : "") + cell.Text();
        gap.clear();
      }
      gap += '|';
    }
    if (!cells.empty()) lines.push_back(std::to_string(row) + ":" + cells);
  }
  return lines;
}

// The section of that name in tests/data/sheets.txt.
inline Lines SheetOf(const std::string& name) {
  std::ifstream file(DataFile("sheets.txt"));
  Lines lines;
  bool inside = false;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with('[')) inside = line == "[" + name + "]";
    if (!inside || line.empty() || line.starts_with('[')) continue;
    if (line.ends_with('$')) line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

}  // namespace quorval::test
