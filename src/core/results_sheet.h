#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "core/context.h"
#include "core/grid.h"
#include "core/quantity.h"
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

// A named number, and the cell that shows it.
struct GivenQuantity {
  Quantity quantity;
  double value;
  int row, column;
};

// The cells of a table's numbers.
struct GivenTable {
  NamedTable table;
  int first_row, last_row, first_column, last_column;
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
  void Clear();

  // Texts that are written from now on may run over the empty cells to their right.
  void LetTextsOverflow() { texts_overflow_ = true; }

  const std::string& ProjectName() const { return context_->ProjectName; }

  // Rows 2 to 5: the bold title, the project, the blanks for analyst, analyte and date.
  void Frame(std::string_view title, DateBeside date = DateBeside::kAnalyte);

  // A row that begins with a quantity begins with its caption.
  template <class... Values>
  void Row(int row, const Values&... values) {
    int column = 0;
    (Put(row, ++column, values), ...);
  }
  template <class Value, class... Values>
  void Row(int row, const NamedValue<Value>& first, const Values&... values) {
    Row<std::string_view, NamedValue<Value>, Values...>(row, first.quantity.caption, first,
                                                        values...);
  }

  // While it lives, the numbers that are put belong to a table.
  class Listing {
   public:
    Listing(ResultsSheet& sheet, const NamedTable& table) : sheet_(sheet) { sheet.table_ = table; }
    ~Listing() { sheet_.table_.reset(); }
    Listing(const Listing&) = delete;
    Listing& operator=(const Listing&) = delete;

   private:
    ResultsSheet& sheet_;
  };

  // A Fault beyond the sheet's edges, of which a long listing can run out.
  void Put(int, int, Blank) {}
  void Put(int row, int column, std::string_view text);
  void Put(int row, int column, Bold heading);
  void Put(int row, int column, Italic heading);
  void Put(int row, int column, int count);
  // A Fault when the decimals are no whole number from 0 to 30.
  void Put(int row, int column, Real number);
  void Put(int row, int column, BoldNumber number);
  template <class Value>
  void Put(int row, int column, const NamedValue<Value>& named) {
    Put(row, column, named.value);
    Give(row, column, named.quantity, named.value);
  }

  // What the window does to the sheet once the analysis is through: the grey first row, and header
  // cells that run over.
  void PaintHead();

  const Grid& grid() const { return grid_; }
  Grid& grid() { return grid_; }

  // In the order in which they were written.
  std::span<const GivenQuantity> quantities() const { return quantities_; }
  // None where no row gave it.
  std::optional<double> ValueOf(std::string_view quantity) const;
  std::span<const GivenTable> tables() const { return tables_; }

 private:
  void Replace(int row, int column, Cell cell);
  void Give(int row, int column, const Quantity& quantity, Real value);
  void Give(int row, int column, const Quantity& quantity, BoldNumber value) {
    Give(row, column, quantity, value.number);
  }
  // A number as text; other texts, such as "< 0.05", are none.
  void Give(int row, int column, const Quantity& quantity, std::string_view text);
  void List(int row, int column);

  const Context* context_;
  bool texts_overflow_ = false;
  Grid grid_{kColumns, kRows};
  std::optional<NamedTable> table_;  // that is being listed
  std::vector<GivenQuantity> quantities_;
  std::vector<GivenTable> tables_;
};

}  // namespace quorval
