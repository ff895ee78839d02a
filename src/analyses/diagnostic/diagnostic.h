// What the evaluation of one diagnostic test and the comparison of two share.  Results above a
// cut-off are positive: the diseased are the group of high values.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "analyses/diagnostic/cut_off_sweep.h"
#include "core/analysis.h"
#include "core/intake.h"
#include "core/steps.h"
#include "stats/primitives.h"

namespace quorval::diagnostic {

// --- Options

constexpr Field Note(std::string_view group, std::string_view text) {
  return {.kind = FieldKind::kNote, .group = group, .caption = text};
}

inline constexpr std::string_view kSizeNote = "Min. sample size in groups: 10";

// --- The two groups

struct DiagnosticGroups {
  int FirstCol = 0, SecondCol = 0;
  std::string FirstName{}, SecondName{};  // the columns' titles
  Sample FirstSample{}, SecondSample{};   // 32-bit values; the non-diseased and the diseased

  int N1() const { return static_cast<int>(FirstSample.size()); }
  int N2() const { return static_cast<int>(SecondSample.size()); }
};

inline constexpr std::size_t kSmallestGroup = 10;
inline bool TooSmall(const Sample& group) { return group.size() < kSmallestGroup; }

// --- Results

// The 95 % confidence limits estimate -/+ margin, as far as `possible` goes.
Range LimitsWithin(const Range& possible, Real estimate, Real margin);

// A column's title in the sheet; the blank where it has none.
inline std::string_view NameOr(std::string_view blank, const std::string& name) {
  return name.empty() ? blank : std::string_view(name);
}

// --- Rows of the sheets

inline constexpr Quantity kFirstCount{
    "first.n", "  Number of observations for first group: ", Unit::kNone, Width::kWhole};
inline constexpr Quantity kSecondCount{
    "second.n", "  Number of observations for second group: ", Unit::kNone, Width::kWhole};

// Rows 7, 8, 10 and 11 of an evaluation.
void WriteNamesAndSizes(ResultsSheet& sheet, const DiagnosticGroups& groups,
                        std::string_view blank);

// --- Plots

// All plots of a diagnostic test share a window.
constexpr PlotWindow DiaPlot(std::string_view caption, std::string_view x_title,
                             std::string_view y_title) {
  return {.window = "frmDiaPlot",
          .caption = caption,
          .x_title = x_title,
          .y_title = y_title,
          .bitmap = " Chart2D1.bmp",
          .height = 350};
}
constexpr PlotWindow RocPlot(std::string_view caption) {
  return DiaPlot(caption, "1-Specificity", "Sensitivity");
}

// A square plot that is headed by its caption.
Plot& AddRocPlot(Plots& plots, const PlotWindow& window);

// From (1, 1) to (0, 0).
Points RocCurveOf(const CutOffSweep& sweep);

// --- The results windows

constexpr FileMenu kFileMenu{.save = "&Save As", .print_plots = "P&rint Plot"};
inline constexpr std::string_view kPrintHeader = "/cDiagnostic test Evaluation/rPage #/p/n";
inline constexpr FailurePolicy kFailure{
    .fault = "Error", .second = "Error", .aftermath = Aftermath::kWindowNotShown};

}  // namespace quorval::diagnostic
