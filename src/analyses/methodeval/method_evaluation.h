// What the evaluations of a single measurement method share.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "analyses/colours.h"
#include "analyses/column_options.h"
#include "analyses/quantities.h"
#include "core/analysis.h"
#include "core/intake.h"
#include "stats/primitives.h"

namespace quorval::methodeval {

// --- Options

inline constexpr std::string_view kColumnGroup = "Input:";
// The dialogs let every column of the worksheet pass; the run then draws the line at 30.
inline constexpr Demand kDataColumn =
    kWorksheetColumn.RefusedWith("Selected column no. < 1 or > 30!");

// --- Windows

constexpr FileMenu MenuWith(std::string_view back, std::string_view print_plots = "P&rint Plots") {
  return {.back = back,
          .print = "&Print",
          .save = "&Save As",
          .export_results = "E&xport",
          .print_plots = print_plots};
}

// A failed run leaves no window.
constexpr FailurePolicy ClosingWith(std::string_view fault) {
  return {.fault = fault, .aftermath = Aftermath::kWindowCloses};
}

// --- Columns

// What is told of a column without values, and of one that has no SD.
inline constexpr std::string_view kNoValues = " Sample size < 1: No analysis ";
inline constexpr std::string_view kFewerThanTwo = " Sample size < 2: No analysis ";

void RefuseWithoutDispersion(const Run& run, std::span<const Real> values);

// --- Rows of the sheets

namespace quantity {
using namespace quorval::quantity;
// Pooled over groups of replicates, such as runs, samples or levels.
inline constexpr Quantity kSDWithin{.name = "sd.within", .caption = {}, .unit = Unit::kMeasurand};
inline constexpr Quantity kLevels{.name = "levels", .caption = {}, .width = Width::kWhole};
}  // namespace quantity

inline constexpr NamedTable kOutlierList{"outlier_list", "The outliers"};
inline constexpr NamedTable kOutlierColumns{"outlier_columns", "The columns that hold outliers"};

// --- Percentages

// 100 part / whole; none of a whole of 0.
std::optional<Real> PercentOf(Real part, Real whole);

// --- Plots

// Values against their observation number, from 1.
Points AgainstNumber(std::span<const Real> values);

// A mean with its lines at 2 (green) and 3 SDs (red), each from the lower to the upper x.
void AddSdLines(Plot& plot, Real mean, Real sd, const Range& x);

}  // namespace quorval::methodeval
