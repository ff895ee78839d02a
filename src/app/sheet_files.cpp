#include "app/sheet_files.h"

#include "app/wait_pointer.h"
#include "formats/file_error.h"
#include "formats/worksheet_file.h"
#include "formats/xls.h"

namespace quorval {
namespace {

void Save(Platform& platform, const std::filesystem::path& path, const Grid& grid,
          const TrailingTexts& trailing) {
  const WaitPointer wait(platform);
  try {
    WriteProjectFile(path, grid, trailing);
  } catch (const FileError&) {
    // The result of a save is not looked at; the file that stood there stands whole.
  }
}

void LeaveInSheet(Grid& grid, const TrailingTexts& trailing) {
  const int rows = grid.DataRowCnt();
  if (rows + 2 > grid.Rows()) return;
  grid.SetText(1, rows + 1, trailing.first);
  grid.SetText(1, rows + 2, trailing.second);
}

bool Export(Platform& platform, const std::filesystem::path& path, const Grid& grid,
            const ExportOptions& options) {
  const WaitPointer wait(platform);
  if (CanWrite(path)) return !WriteGrid(path, grid, options);
  try {
    WriteXls(path, grid);
    return true;
  } catch (const FileError&) {
    return false;
  }
}

}  // namespace

void SaveSheet(Platform& platform, Grid& grid, const TrailingTexts& trailing,
               const std::function<std::filesystem::path()>& ask) {
  try {
    Save(platform, ask(), grid, trailing);
  } catch (const std::exception&) {
    LeaveInSheet(grid, trailing);
    platform.Show({.text = "Cancelled file save"});
  }
}

void ExportSheet(Platform& platform, const Grid& grid, std::string_view proposed_name) {
  try {
    ExportOptions options;
    const auto path =
        platform.AskSave({.title = "Open",
                          .filters = {"Excel file (*.xls)|*.xls", "Excel workbook (*.xlsx)|*.xlsx",
                                      "Comma separated values (*.csv)|*.csv"},
                          .proposed_name = std::string(proposed_name),
                          .option = "&Apostrophe before texts that begin with = + - @ (.csv, .tsv)",
                          .option_chosen = &options.safe_texts});
    if (!path) return;
    const bool done = Export(platform, *path, grid, options);
    platform.Show(
        {.text = done ? "Export complete." : "Export did not succeed.", .title = "Result"});
    if (done) platform.ShowNotices(LossesOf(*path, grid));
  } catch (const std::exception&) {
    platform.Show({.text = "Error in file export"});
  }
}

}  // namespace quorval
