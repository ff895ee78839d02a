// Which rows and columns of a sheet stand on which page, and how large they are.  Lengths are in
// points (1/72 inch).  Nothing here draws: the widths of texts are asked for.
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "core/grid.h"
#include "platform/platform.h"

namespace quorval {

// Rows or columns, counted from 1, both ends included.
struct Extent {
  int first, last;

  bool operator==(const Extent&) const = default;
};

// What the paper and the font give.
struct PageRoom {
  double width, height;                           // between the margins
  double row_height;                              // of a line of text
  double character_width;                         // of a usual character
  std::function<double(const Cell&)> text_width;  // of what the cell shows, with its padding
};

struct PageLayout {
  std::vector<double> column_widths{}, row_heights{};  // of the used range, from 1 on
  std::vector<Extent> columns{}, rows{};  // of the pages: one for each pair, those below first

  // From the left edge of the first to the right edge of the last, and so for rows.
  double Width(Extent of) const;
  double Height(Extent of) const;
  // A page for its header and footer where nothing is used.
  int Pages() const;
};

// Columns are as wide as their texts, up to a limit beyond which a text runs over the empty cells
// beside it; rows are as high as told.  What is too wide or too long for a page goes on upon the
// next, and joined cells stay on one page where they fit.
PageLayout LayOutPages(const PrintJob& job, const PageRoom& room);

// The last column, not beyond `limit`, that a text of this width covers: its own and, where that is
// too narrow, as many of the empty cells beside it as it needs.
int LastColumnCovered(const Grid& grid, const PageLayout& layout, int column, int row, double width,
                      int limit);

// Sizes put one after the other as long as they fit; what is larger than the room stands alone.
// `joined[i]` keeps element i with the one before it where all of them fit.
std::vector<Extent> Break(std::span<const double> sizes, const std::vector<bool>& joined,
                          double room);

}  // namespace quorval
