#pragma once

#include <span>

#include "app/open_analysis.h"
#include "batch/json.h"
#include "platform/platform.h"

namespace quorval {

// What a run showed.  `plots` are those beside its results window.
Json RunJson(const OpenAnalysis& open, Outcome outcome, std::span<const MessageBox> boxes,
             std::span<const Plot* const> plots);

}  // namespace quorval
