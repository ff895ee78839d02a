#include "batch/worksheet_output.h"

#include "app/results_files.h"
#include "batch/commands.h"
#include "batch/outputs.h"
#include "core/file_name.h"
#include "formats/file_error.h"
#include "formats/worksheet_file.h"

namespace quorval {
namespace {

void WriteProject(const std::string& file, const Grid& grid, const TrailingTexts& trailing) {
  WriteFile(file, [&] { WriteProjectFile(file, grid, trailing); });
}

}  // namespace

void WriteWorksheetFile(const std::string& file, const Workbench& workbench,
                        const ExportOptions& options, Platform& platform) {
  const Grid& grid = workbench.project().worksheet().grid();
  const Context& context = workbench.project().context();
  if (ExtensionOf(file) == ".qvl") {
    WriteProject(file, grid, {context.ProjectName, context.ProjectNote});
  } else {
    WriteExport(file, grid, options, platform);
  }
}

void WriteResultsFile(const std::string& file, const Grid& sheet) {
  WriteProject(file, sheet, kResultsMarkers);
}

void WriteExport(const std::string& file, const Grid& sheet, const ExportOptions& options,
                 Platform& platform) {
  if (const auto error = WriteGrid(file, sheet, options)) throw Unusable(*error);
  platform.ShowNotices(LossesOf(file, sheet));
}

void AddSafeTexts(CLI::App& command, ExportOptions& options) {
  command.add_flag("--safe-texts", options.safe_texts,
                   "In .csv and .tsv files an apostrophe before texts that begin with = + - or @, "
                   "which a spreadsheet program would run");
}

}  // namespace quorval
