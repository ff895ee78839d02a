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

// A number in bold type.
struct BoldNumber {
  Real number;
};

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

  // Texts that are written from now on may run over the empty cells to their right.
  void LetTextsOverflow() { texts_overflow_ = true; }

  // Rows 2 to 5: the bold title, the project, the blanks for analyst, analyte and date.
  void Frame(std::string_view title, DateBeside date = DateBeside::kAnalyte);

  template <class... Values>
  void Row(int row, const Values&... values) {
    int column = 0;
    (Put(row, ++column, values), ...);
  }

  // A Fault beyond the sheet's edges, of which a long listing can run out.
  void Put(int, int, Blank) {}
  void Put(int row, int column, std::string_view text);
  void Put(int row, int column, Bold heading);
  void Put(int row, int column, Italic heading);
  void Put(int row, int column, int count);
  // A Fault when the decimals are no whole number from 0 to 30.
  void Put(int row, int column, Real number);
  void Put(int row, int column, BoldNumber number);

  // What the window does to the sheet once the analysis is through: the grey first row, and header
  // cells that run over.
  void PaintHead();

  const Grid& grid() const { return grid_; }
  Grid& grid() { return grid_; }

 private:
  void Replace(int row, int column, Cell cell);

  const Context* context_;
  bool texts_overflow_ = false;
  Grid grid_{kColumns, kRows};
};

}  // namespace quorval
