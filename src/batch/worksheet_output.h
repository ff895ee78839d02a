// Files of the worksheet and of results, by the extension of their names.
#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>
#include <string>

#include "app/workbench.h"
#include "formats/export_options.h"

namespace quorval {

// All throw Unusable where the file cannot be written.  What a file of another program leaves out
// is told as notices.

// The worksheet, as a project where the extension is .qvl.
void WriteWorksheetFile(const std::string& file, const Workbench& workbench,
                        const ExportOptions& options, Platform& platform);
// A results sheet as a results file, whatever its extension.
void WriteResultsFile(const std::string& file, const Grid& sheet);
// A results sheet as another program's file.
void WriteExport(const std::string& file, const Grid& sheet, const ExportOptions& options,
                 Platform& platform);

// --safe-texts.
void AddSafeTexts(CLI::App& command, ExportOptions& options);

}  // namespace quorval
