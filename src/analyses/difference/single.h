// The difference plots of two methods that measured every sample once (results window frmBAs).
#pragma once

#include <string_view>

#include "analyses/difference/options.h"
#include "analyses/difference/paired_data.h"
#include "core/run.h"

namespace quorval::difference {

// Reads and checks the columns, then goes on by the limits that were chosen.
void RunSingle(Run& run);

// With limits estimated from the differences, in absolute and in relative units.
void RunEstimated(Run& run, const PairedData& data, const Options& options);

// With limits set by the user, and the test of the proportion outside them.
void RunUserLimits(Run& run, const PairedData& data, const UserLimits& limits,
                   const Options& options);

// Rows 2 to 8.
void WriteSingleHead(ResultsSheet& sheet, std::string_view title, const PairedData& data);

}  // namespace quorval::difference
