// What the evaluation of one diagnostic test and the comparison of two share.  Results above a
// cut-off are positive: the diseased are the group of high values.
#pragma once

#include <string>
#include <string_view>

#include "core/analysis.h"
#include "core/intake.h"
#include "stats/primitives.h"

namespace quorval::diagnostic {

// --- Options

constexpr Field Note(std::string_view group, std::string_view text) {
  return {.kind = FieldKind::kNote, .group = group, .caption = text};
}

inline constexpr std::string_view kSizeNote = "Min. sample size in groups: 10";

// --- The two groups

struct TwoGroups {
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

// Rows 7, 8, 10 and 11 of an evaluation.
void WriteNamesAndSizes(ResultsSheet& sheet, const TwoGroups& groups, std::string_view blank);

// --- Windows

inline constexpr std::string_view kDiaPlot = "frmDiaPlot";
inline constexpr PlotWindow kPictures[] = {
    {.window = kDiaPlot, .caption = {}, .bitmap = " Chart2D1.bmp", .height = 350}};
inline constexpr PlotJob kPlotJobs[] = {{.pictures = kPictures}};

constexpr Procedure ResultsWindow(std::string_view window, std::string_view title,
                                  void (*run)(Run&)) {
  return {
      .window = window,
      .title = title,
      .menu = {.save = "&Save As", .print_plots = "P&rint Plot"},
      .print_header = "/cDiagnostic test Evaluation/rPage #/p/n",
      .plot_jobs = kPlotJobs,
      .failure = {.fault = "Error", .second = "Error", .aftermath = Aftermath::kWindowNotShown},
      .run = run,
  };
}

}  // namespace quorval::diagnostic
