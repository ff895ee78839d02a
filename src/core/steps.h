// The four steps of an analysis.
#pragma once

#include <concepts>
#include <optional>

#include "core/run.h"

namespace quorval {

// Where an analysis needs no fifth step.
inline constexpr auto kKeepsNothing = [](const auto&, const auto&) -> std::optional<Rejection> {
  return std::nullopt;
};

// Calls a step with the messages, and the notices, before its own arguments where it asks for them.
template <auto kStep, class... Arguments>
auto CallStep(Messages& messages, Notices& notices, Arguments&... arguments) {
  if constexpr (std::invocable<decltype(kStep), Arguments&...>)
    return kStep(arguments...);
  else if constexpr (std::invocable<decltype(kStep), Messages&, Arguments&...>)
    return kStep(messages, arguments...);
  else
    return kStep(messages, notices, arguments...);
}

// A step whose Fault is told in these words and ends the run.
template <const std::string_view& kWords, auto kStep>
inline constexpr auto kInsisting = [](Messages& messages, Notices& notices, auto&... arguments) {
  return Insist(messages, kWords, [&] { return CallStep<kStep>(messages, notices, arguments...); });
};

// Read takes columns and options, and may refuse; Compute knows no cell and no window; Report
// writes the rows in their order; Draw fills the plots.  Keep leaves what a repetition starts from.
//
// Each gets what it works on and nothing else.  A step that can fail in words of its own asks for
// the messages.  A report that computes between two rows, so that the rows above remain where that
// fails, adds to the result.
template <auto kRead, auto kCompute, auto kReport, auto kDraw, auto kKeep = kKeepsNothing>
void Steps(Run& run) {
  const auto input = kRead(run);
  auto result = CallStep<kCompute>(run.messages, run.notices, input);
  const auto& reported = result;
  run.sheet.Clear();
  CallStep<kReport>(run.messages, run.notices, run.sheet, input, result);
  run.rejection = kKeep(input, reported);
  CallStep<kDraw>(run.messages, run.notices, run.plots, input, reported);
}

}  // namespace quorval
