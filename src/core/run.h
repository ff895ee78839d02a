#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "core/context.h"
#include "core/failure.h"
#include "core/form.h"
#include "core/messages.h"
#include "core/notice.h"
#include "core/plot.h"
#include "core/rejection.h"
#include "core/results_sheet.h"
#include "core/worksheet.h"

namespace quorval {

// One run of an analysis: all it may read and all it may write.
struct Run {
  const Form& form;
  const Worksheet& worksheet;
  const Context& context;
  Messages& messages;
  ResultsSheet& sheet;
  const Rejection* repeated = nullptr;  // a re-analysis: its data are what this one retained
  Plots plots{};
  std::optional<Rejection> rejection{};  // where points were marked that a repetition may leave out
  Notices notices{};                     // what no box tells

  [[noreturn]] void Refuse(std::string_view words) const { quorval::Refuse(messages, words); }
};

}  // namespace quorval
