// The four steps of an analysis.
#pragma once

#include <concepts>
#include <functional>

#include "core/run.h"

namespace quorval {

// Where an analysis needs no fifth step.
inline constexpr auto kKeepsNothing = [](const auto&, const auto&) -> std::optional<Rejection> {
  return std::nullopt;
};

// Read takes columns and options, and may refuse; Compute knows no cell and no window; Report
// writes the rows in their order; Draw fills the plots.  Keep leaves what a repetition starts from.
//
// Each gets what it works on and nothing else.  A computation that notes what stopped it takes the
// notices too.  A report that computes between two rows, so that the rows above remain where that
// fails, takes the messages too and adds to the result.
template <auto kRead, auto kCompute, auto kReport, auto kDraw, auto kKeep = kKeepsNothing>
void Steps(Run& run) {
  const auto input = kRead(run);
  auto result = [&] {
    if constexpr (std::invocable<decltype(kCompute), Messages&, decltype(input)>)
      return kCompute(run.messages, input);
    else
      return kCompute(run.messages, run.notices, input);
  }();
  run.sheet.Clear();
  if constexpr (std::invocable<decltype(kReport), ResultsSheet&, decltype(input), decltype(result)>)
    kReport(run.sheet, input, std::as_const(result));
  else
    kReport(run.messages, run.sheet, input, result);
  run.rejection = kKeep(input, std::as_const(result));
  kDraw(run.plots, input, std::as_const(result));
}

}  // namespace quorval
