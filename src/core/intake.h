// How an analysis takes its columns from the worksheet.  A column starts in row 1 and ends at its
// first empty cell; elements are texts, which the analysis converts.  What a column hides from the
// analysis is noted: what stands below the gap that ended it, a word among its numbers, a column
// that is shorter than its fellow.
#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "core/run.h"

namespace quorval {

using Texts = std::vector<std::string>;

// The roles of the column fields that the intake reads by name.
inline constexpr Field Text9{.key = "id", .caption = "(Optional:) ID.:", .initial = "1"};
inline constexpr Field Text10{.key = "first-column", .initial = "2"};
inline constexpr Field Text11{.key = "second-column", .initial = "3"};
inline constexpr Field Text12{.key = "third-column", .initial = "4"};
inline constexpr Field Text13{.key = "fourth-column", .initial = "5"};
inline constexpr Field Text1{.key = "column"};
inline constexpr Field Text2{.key = "id"};

struct Column {
  int number = 0;
  std::string header{};  // the text of row 0
  Texts values{};
  Texts ids{};  // only where an ID column is read; as long as `values`

  // The values as numbers, of 64 bits or rounded to 32.  A word, and a number too large, is noted
  // and is a Fault.
  Real Number(Notices& notices, std::size_t index) const;  // from 0
  Sample Numbers(Notices& notices) const;
  Sample Numbers32(Notices& notices) const;
};

struct PairColumns {
  std::array<Column, 4> columns{};  // the first two in the single form
  Texts ids{};

  std::array<int, 4> ColumnNumbers() const;
};

// The cells of one column from row 1 to the first empty one.  A column beyond the grid is empty.
Texts WalkColumn(const Worksheet& worksheet, int column);
// The same with its title; where it ends is noted.
Column WalkColumn(Notices& notices, const Worksheet& worksheet, int column);

// Notes which columns, of those that belong together, are shorter than the longest.
struct ColumnLength {
  int column;
  std::size_t values;
};
void NoteLengths(Notices& notices, const std::vector<ColumnLength>& lengths);
std::vector<ColumnLength> LengthsOf(std::span<const Column> columns);

// The texts of rows 1 to n of the column that a field names, by position, whatever they hold; n
// empty texts when it is below 1.  `noun` says what they are: "ID", "date".
Texts ReadLabels(Run& run, const Field& field, std::size_t n, std::string_view noun);

// The number in row 1 of a column; as Column::Numbers().
Real FirstNumber(Run& run, int column);

inline namespace MCregaM3 {

// The column routines refuse a number below 1 or above 500 with a box and a Failure.
Column ReadColumn(Messages& messages, Notices& notices, const Worksheet& worksheet, int column);
Column ReadColumn(Run& run, int column);
Column ReadColumn(Run& run, const Field& field);
Column ReadDialogColumn(Run& run);  // of Text1
Column ReadColumnWithId(Run& run);  // of Text1, with the IDs of Text2 unless that is blank

// The pair routines refuse columns of unequal length with a box and a Failure.  A column above 500
// reads as an empty one.  A blank ID field means no IDs in the single form and is a Fault in the
// duplicate form.
PairColumns ReadPairSingle(Run& run);     // Text10 and Text11, with the IDs of Text9
PairColumns ReadPairDuplicate(Run& run);  // Text10 to Text13, with the IDs of Text9

}  // namespace MCregaM3

}  // namespace quorval
