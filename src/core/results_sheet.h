#pragma once

#include <string_view>

#include "core/context.h"
#include "core/grid.h"
#include "core/real.h"

namespace quorval {

// Leaves a cell of a row as it is.
struct Blank {};

// A bold text.
struct Bold {
  std::string_view text;
};

// A text in italics.
struct Italic {
  std::string_view text;
};

// The row in whose third column a sheet has its blank for the date.
enum class DateBeside { kAnalyst = 4, kAnalyte = 5 };

// The grid of a results window, columns and rows counted from 1.  The type of a value decides the
// cell: text and counts go into edit cells, a Real into a number cell with the decimals of the
// moment.  So Row() reads as the row of the layout that it writes.
class ResultsSheet {
 public:
  // Room for the longest worksheet column below the longest head.
  static constexpr int kColumns = 500;
  static constexpr int kRows = 20000;

  explicit ResultsSheet(const Context& context) : context_(&context) {}

  // What an earlier run wrote goes.
  void Clear() { grid_.ClearAll(); }

  // Rows 2 to 5: the bold title, the project, the blanks for analyst, analyte and date.
  void Frame(std::string_view title, DateBeside date = DateBeside::kAnalyte);

  template <class... Values>
  void Row(int row, const Values&... values) {
    int column = 0;
    (Put(row, ++column, values), ...);
  }

  void Put(int, int, Blank) {}
  void Put(int row, int column, std::string_view text);
  void Put(int row, int column, Bold heading);
  void Put(int row, int column, Italic heading);
  void Put(int row, int column, int count);
  // A Fault when the decimals are no whole number from 0 to 30.
  void Put(int row, int column, Real number);

  // What the window does to the sheet once the analysis is through: the grey first row, and header
  // cells that run over.
  void PaintHead();

  const Grid& grid() const { return grid_; }
  Grid& grid() { return grid_; }

 private:
  const Context* context_;
  Grid grid_{kColumns, kRows};
};

}  // namespace quorval
