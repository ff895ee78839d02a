#include "batch/worksheet_output.h"

#include "app/results_files.h"
#include "batch/commands.h"
#include "core/file_name.h"
#include "formats/file_error.h"
#include "formats/worksheet_file.h"

namespace quorval {
namespace {

void WriteProject(const std::string& file, const Grid& grid, const TrailingTexts& trailing) {
  try {
    WriteProjectFile(file, grid, trailing);
  } catch (const FileError& error) {
    throw Unusable(file + ": " + error.what());
  }
}

}  // namespace

void WriteWorksheetFile(const std::string& file, const Workbench& workbench) {
  const Grid& grid = workbench.project().worksheet().grid();
  const Context& context = workbench.project().context();
  if (ExtensionOf(file) == ".qvl") {
    WriteProject(file, grid, {context.ProjectName, context.ProjectNote});
  } else {
    WriteExport(file, grid);
  }
}

void WriteResultsFile(const std::string& file, const Grid& sheet) {
  WriteProject(file, sheet, kResultsMarkers);
}

void WriteExport(const std::string& file, const Grid& sheet) {
  if (const auto error = WriteGrid(file, sheet)) throw Unusable(*error);
}

}  // namespace quorval
