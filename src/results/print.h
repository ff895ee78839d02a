// What a results window and the main window print.
#pragma once

#include <filesystem>
#include <span>
#include <string_view>
#include <vector>

#include "core/analysis.h"
#include "platform/platform.h"

namespace quorval {

// The page of a sheet: border and grid lines, no headers of rows and columns.
PrintJob SheetPage(const Grid& grid, std::string_view header);

// Writes the bitmaps of the jobs' plots into `folder` and prints them, one job after the other.
// The bitmaps stay.  A job whose plots are not there has no page.  False when a bitmap could not be
// written or a page not printed.
bool PrintPlots(Platform& platform, std::span<const PlotJob* const> jobs,
                std::span<const Plot> plots, const std::filesystem::path& folder);

}  // namespace quorval
