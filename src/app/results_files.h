// The files of a results window.
#pragma once

#include "app/open_analysis.h"
#include "formats/project_file.h"
#include "platform/platform.h"

namespace quorval {

// What stands below the sheet in a results file, where a project has its name and note.
inline constexpr TrailingTexts kResultsMarkers{"Results", "Results"};

// As a results file, which Open Project takes for a project named "Results".
void SaveResults(Platform& platform, ResultsWindow& window, const Context& context);
void ExportResults(Platform& platform, const ResultsWindow& window, const Context& context);

}  // namespace quorval
