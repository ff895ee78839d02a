#pragma once

#include <span>

#include "app/open_analysis.h"
#include "app/tools/tool.h"
#include "batch/json.h"
#include "platform/platform.h"

namespace quorval {

// What a run showed.  `plots` are those beside its results window.
Json RunJson(const OpenAnalysis& open, Outcome outcome, std::span<const MessageBox> boxes,
             const Notices& notices, std::span<const Plot> plots);

// What a data tool did; its worksheet's rows count from 0, as the user sees them.
Json ToolJson(const Tool& tool, const Form& form, Outcome outcome,
              std::span<const MessageBox> boxes, const Notices& notices,
              const Worksheet& worksheet);

}  // namespace quorval
