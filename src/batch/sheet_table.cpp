#include "batch/sheet_table.h"

#include <algorithm>
#include <vector>

namespace quorval {
namespace {

constexpr std::size_t kGap = 2;

// Characters, where the text is UTF-8: the bytes that do not continue one.
std::size_t Width(const std::string& text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

// A cell's text on one line.
std::string ShownText(const Cell& cell) {
  std::string text = cell.Text();
  std::ranges::replace_if(
      text, [](char c) { return c >= 0 && c < ' '; }, ' ');
  return text;
}

// Where each column starts, and how wide its numbers are; from column 1 on.
struct Layout {
  std::vector<std::size_t> start, number_width;

  explicit Layout(const Grid& grid)
      : start(static_cast<std::size_t>(grid.DataColCnt())), number_width(start.size()) {
    for (std::size_t column = 0; column < start.size(); ++column) Place(grid, column);
  }

  // The first place behind a cell.
  std::size_t End(const Cell& cell, std::size_t column) const {
    const std::size_t width = cell.value ? number_width[column] : Width(cell.Text());
    return start[column] + width;
  }

 private:
  // A column starts behind whatever stands left of its cells.
  void Place(const Grid& grid, std::size_t column) {
    const int own = static_cast<int>(column) + 1;
    if (column > 0) start[column] = start[column - 1];
    for (int row = 1; row <= grid.DataRowCnt(); ++row) {
      const Cell& cell = grid.At(own, row);
      if (cell.Empty()) continue;
      if (cell.value) number_width[column] = std::max(number_width[column], Width(cell.Text()));
      int left = own - 1;
      while (left > 0 && grid.At(left, row).Empty()) --left;
      if (left == 0) continue;
      const std::size_t end = End(grid.At(left, row), static_cast<std::size_t>(left) - 1);
      start[column] = std::max(start[column], end + kGap);
    }
  }
};

std::string Line(const Grid& grid, int row, const Layout& layout) {
  std::string line;
  std::size_t width = 0;
  for (std::size_t column = 0; column < layout.start.size(); ++column) {
    const Cell& cell = grid.At(static_cast<int>(column) + 1, row);
    if (cell.Empty()) continue;
    const std::string text = ShownText(cell);
    const std::size_t place =
        cell.value ? layout.End(cell, column) - Width(text) : layout.start[column];
    line.append(place - width, ' ').append(text);
    width = place + Width(text);
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

}  // namespace

std::string SheetTable(const Grid& grid) {
  const Layout layout(grid);
  std::string table;
  for (int row = 1; row <= grid.DataRowCnt(); ++row) table += Line(grid, row, layout) + '\n';
  return table;
}

}  // namespace quorval
