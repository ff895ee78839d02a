#include "painting/page_layout.h"

#include <algorithm>
#include <numeric>

#include "painting/cell_text.h"

namespace quorval {
namespace {

constexpr double kLeastCharacters = 8;    // of an empty column
constexpr double kWidestCharacters = 45;  // of a text; numbers are never cut
constexpr double kPictureHeight = 240;    // where the job tells none
constexpr double kRounding = 1e-6;

std::size_t Index(int one_based) { return static_cast<std::size_t>(one_based - 1); }

double SumOf(std::span<const double> sizes, Extent of) {
  double sum = 0;
  for (int i = of.first; i <= of.last; ++i) sum += sizes[Index(i)];
  return sum;
}

struct LongText {
  int column, row;
  double width;
};

// As wide as the texts; those that run over are handed back.
std::vector<LongText> FitColumns(const Grid& grid, const PageRoom& room, PageLayout& layout) {
  std::vector<LongText> long_texts;
  const double widest = kWidestCharacters * room.character_width;
  for (int column = 1; column <= static_cast<int>(layout.column_widths.size()); ++column) {
    double& width = layout.column_widths[Index(column)];
    for (int row = 1; row <= static_cast<int>(layout.row_heights.size()); ++row) {
      const Cell& cell = grid.At(column, row);
      if (cell.Empty() || cell.picture || cell.look.span_columns > 1) continue;
      const double text = room.text_width(cell);
      if (text <= width) continue;
      if (ShowsNumber(cell)) {
        width = std::min(text, room.width);
      } else if ((cell.look.overflow && grid.At(column + 1, row).Empty()) || text > widest) {
        long_texts.push_back({column, row, text});
      } else {
        width = text;
      }
    }
  }
  return long_texts;
}

// Gives the last column what a text lacks that could run on to the end of the sheet.
void MakeRoom(const Grid& grid, const LongText& text, const PageRoom& room, PageLayout& layout) {
  const int last = static_cast<int>(layout.column_widths.size());
  if (LastColumnCovered(grid, layout, text.column, text.row, text.width, last) < last) return;
  const double lack = text.width - layout.Width({text.column, last});
  double& width = layout.column_widths.back();
  if (lack > 0) width = std::max(width, std::min(width + lack, room.width));
}

// Rows or columns that belong to the one before them: those of joined cells.
struct Joined {
  std::vector<bool> columns, rows;
};

void Join(std::vector<bool>& joined, int first, int count) {
  for (int i = first + 1; i < first + count && Index(i) < joined.size(); ++i)
    joined[Index(i)] = true;
}

Joined JoinedCells(const Grid& grid, const PageLayout& layout) {
  Joined joined{std::vector<bool>(layout.column_widths.size()),
                std::vector<bool>(layout.row_heights.size())};
  for (int column = 1; column <= static_cast<int>(joined.columns.size()); ++column) {
    for (int row = 1; row <= static_cast<int>(joined.rows.size()); ++row) {
      const CellLook& look = grid.At(column, row).look;
      Join(joined.columns, column, look.span_columns);
      Join(joined.rows, row, look.span_rows);
    }
  }
  return joined;
}

void SizeRows(const PrintJob& job, const PageRoom& room, PageLayout& layout) {
  const int rows = static_cast<int>(layout.row_heights.size());
  for (int row = 1; row <= rows; ++row) {
    const bool told = Index(row) < job.row_heights.size();
    layout.row_heights[Index(row)] =
        told ? std::min(job.row_heights[Index(row)], room.height) : room.row_height;
  }
  for (int row = static_cast<int>(job.row_heights.size()) + 1; row <= rows; ++row) {
    for (int column = 1; column <= static_cast<int>(layout.column_widths.size()); ++column) {
      const Cell& cell = job.grid->At(column, row);
      if (!cell.picture) continue;
      const int last = std::min(row + cell.look.span_rows - 1, rows);
      for (int i = row; i <= last; ++i)
        layout.row_heights[Index(i)] = std::min(kPictureHeight, room.height) / cell.look.span_rows;
    }
  }
}

void SizeColumns(const PrintJob& job, const PageRoom& room, PageLayout& layout) {
  for (double& width : layout.column_widths) width = kLeastCharacters * room.character_width;
  for (const LongText& text : FitColumns(*job.grid, room, layout))
    MakeRoom(*job.grid, text, room, layout);
  const std::size_t told = std::min(job.column_widths.size(), layout.column_widths.size());
  for (std::size_t i = 0; i < told; ++i)
    layout.column_widths[i] = std::min(job.column_widths[i] * room.character_width, room.width);
}

}  // namespace

double PageLayout::Width(Extent of) const { return SumOf(column_widths, of); }
double PageLayout::Height(Extent of) const { return SumOf(row_heights, of); }

int PageLayout::Pages() const {
  return std::max(1, static_cast<int>(columns.size() * rows.size()));
}

PageLayout LayOutPages(const PrintJob& job, const PageRoom& room) {
  PageLayout layout;
  layout.column_widths.resize(static_cast<std::size_t>(job.grid->DataColCnt()));
  layout.row_heights.resize(static_cast<std::size_t>(job.grid->DataRowCnt()));
  SizeRows(job, room, layout);
  SizeColumns(job, room, layout);
  const Joined joined = JoinedCells(*job.grid, layout);
  layout.columns = Break(layout.column_widths, joined.columns, room.width);
  layout.rows = Break(layout.row_heights, joined.rows, room.height);
  return layout;
}

int LastColumnCovered(const Grid& grid, const PageLayout& layout, int column, int row, double width,
                      int limit) {
  int last = column;
  while (last < limit && layout.Width({column, last}) < width - kRounding &&
         grid.At(last + 1, row).Empty())
    ++last;
  return last;
}

std::vector<Extent> Break(std::span<const double> sizes, const std::vector<bool>& joined,
                          double room) {
  std::vector<Extent> pages;
  std::size_t first = 0;
  double used = 0;
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    double group = sizes[i];
    for (std::size_t j = i + 1; !joined[i] && j < sizes.size() && joined[j]; ++j) group += sizes[j];
    if (i > first && used + group > room + kRounding) {
      pages.push_back({static_cast<int>(first) + 1, static_cast<int>(i)});
      first = i;
      used = 0;
    }
    used += sizes[i];
  }
  if (!sizes.empty())
    pages.push_back({static_cast<int>(first) + 1, static_cast<int>(sizes.size())});
  return pages;
}

}  // namespace quorval
