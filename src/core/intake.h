// How an analysis takes its columns from the worksheet.  A column starts in row 1 and ends at its
// first empty cell; elements are texts, which the analysis converts.
#pragma once

#include <array>
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
};

struct PairColumns {
  std::array<int, 4> numbers{};  // the first two in the single form
  std::array<Texts, 4> values{};
  Texts ids{};
  int N = 0;
};

// The cells of one column from row 1 to the first empty one.  A column beyond the grid is empty.
Texts WalkColumn(const Worksheet& worksheet, int column);

// The texts of rows 1 to n of a column, by position, whatever they hold; n empty texts when the
// column is below 1.
Texts TextsOfRows(const Worksheet& worksheet, int column, std::size_t n);

inline namespace MCregaM3 {

// The column routines refuse a number below 1 or above 500 with a box and a Failure.
Column ReadColumn(Messages& messages, const Worksheet& worksheet, int column);
Column ReadColumn(Run& run, int column);
Column ReadDialogColumn(Run& run);  // of Text1
Column ReadColumnWithId(Run& run);  // of Text1, with the IDs of Text2 unless that is blank

// The pair routines refuse columns of unequal length with a box and a Failure.  A column above 500
// reads as an empty one.  A blank ID field means no IDs in the single form and is a Fault in the
// duplicate form.
PairColumns ReadPairSingle(Run& run);     // Text10 and Text11, with the IDs of Text9
PairColumns ReadPairDuplicate(Run& run);  // Text10 to Text13, with the IDs of Text9

}  // namespace MCregaM3

}  // namespace quorval
