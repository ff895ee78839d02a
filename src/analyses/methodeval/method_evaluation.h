// What the evaluations of a single measurement method share.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "analyses/colours.h"
#include "core/analysis.h"
#include "core/intake.h"
#include "stats/primitives.h"

namespace quorval::methodeval {

// --- Options

inline constexpr std::string_view kColumnGroup = "Input:";
inline constexpr std::string_view kOptionRefused = "Incompatible option value(s)";
// The dialogs let every column of the worksheet pass; the run then draws the line at 30.
inline constexpr std::string_view kColumnRefused = "Selected column no. < 1 or > 30!";

// Whether a field does not hold a column of the worksheet.  A Fault of an empty field or a word.
bool OutsideWorksheet(const Form& form, const Field& column);

template <class... Columns>
bool AnyOutsideWorksheet(const Form& form, const Columns&... columns) {
  return (OutsideWorksheet(form, columns) || ...);
}

// Whether a limit in SDs is not above 0.  A Fault of an empty field or a word.
inline bool NotPositive(const Form& form, const Field& limit) {
  return form.WholeNumber32(limit) <= 0;
}

// --- Windows

constexpr FileMenu MenuWith(std::string_view back, std::string_view print_plots = "P&rint Plots") {
  return {.back = back,
          .print = "&Print",
          .save = "&Save As",
          .export_results = "E&xport",
          .print_plots = print_plots};
}

// --- Columns

// The columns that a run accepts: 1 to `last`.
struct ColumnLimit {
  int last;
  std::string_view refusal;
};
inline constexpr ColumnLimit kThirtyColumns{30, " Selected column no. < 1 or > 30: No analysis "};
inline constexpr ColumnLimit kAllColumns{Worksheet::kColumns,
                                         " Selected column no. < 1 or > 500: No analysis "};

// Of a column without values.
inline constexpr std::string_view kNoValues = " Sample size < 1: No analysis ";

// The column that a field names; refused outside the limit.
int TakeColumn(const Run& run, const Field& field, const ColumnLimit& limit = kThirtyColumns);

struct ColumnSpan {
  int start, last;
};

// Adjacent columns; refused outside the limit, and in reverse order.
ColumnSpan TakeColumns(const Run& run, const Field& start, const Field& last,
                       const ColumnLimit& limit = kThirtyColumns);

// --- Percentages

// 100 part / whole; none of a whole of 0.
std::optional<Real> PercentOf(Real part, Real whole);

// --- Plots

// Values against their observation number, from 1.
Points AgainstNumber(std::span<const Real> values);

// A mean with its lines at 2 (green) and 3 SDs (red), each from the lower to the upper x.
void AddSdLines(Plot& plot, Real mean, Real sd, const Range& x);

}  // namespace quorval::methodeval
