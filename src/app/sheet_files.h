// Saving and exporting a sheet, the same for the project and for results.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "core/grid.h"
#include "formats/project_file.h"
#include "platform/platform.h"

namespace quorval {

// A file dialog that was cancelled, where a cancel counts as a failure.
struct Cancelled : std::exception {};

// Asks for the file and saves the sheet with two texts below it.  A failure on the way is told, and
// leaves the two texts in the sheet; a file that cannot be written is not noticed.
void SaveSheet(Platform& platform, Grid& grid, const TrailingTexts& trailing,
               const std::function<std::filesystem::path()>& ask);

// Asks for the file and writes the sheet as another program's, by the extension of its name; an
// Excel workbook where the extension says nothing.  Tells the result.
void ExportSheet(Platform& platform, const Grid& grid, std::string_view proposed_name);

}  // namespace quorval
