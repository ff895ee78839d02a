#include "app/sheet_files.h"

#include <algorithm>
#include <iterator>
#include <system_error>

#include "app/wait_pointer.h"
#include "core/file_name.h"
#include "formats/file_error.h"
#include "formats/worksheet_file.h"
#include "formats/xls.h"

namespace quorval {
namespace {

void LeaveInSheet(SheetEditor& editor, const TrailingTexts& trailing, Notices& notices) {
  Grid& grid = editor.grid();
  const int rows = grid.DataRowCnt();
  if (rows + 2 > grid.Rows()) return;
  editor.Do([&] {
    grid.SetText(1, rows + 1, trailing.first);
    grid.SetText(1, rows + 2, trailing.second);
  });
  notices.push_back({.kind = "left-in-sheet",
                     .text = "Not saved: two cells below the data hold what the file would have; "
                             "Ctrl+Z takes them away.",
                     .column = 1});
}

void Export(const std::filesystem::path& path, const Grid& grid, const ExportOptions& options) {
  if (CanWrite(path)) return WriteGridFile(path, grid, options);
  WriteXls(path, grid);
}

}  // namespace

std::optional<std::string> WhyFailed(Platform& platform, const std::function<void()>& work) {
  const WaitPointer wait(platform);
  try {
    work();
    return std::nullopt;
  } catch (const FileError& error) {
    return error.what();
  } catch (const std::filesystem::filesystem_error& error) {
    return WordsOf(error.code().value());
  }
}

bool NoteSave(const std::filesystem::path& path, const std::optional<std::string>& failure,
              Notices& notices) {
  if (failure)
    notices.push_back(
        {.kind = "not-saved", .text = "Not saved: " + *failure + " (" + path.string() + ")"});
  else
    notices.push_back({.kind = "saved", .text = "Saved to " + path.string()});
  return !failure;
}

void SaveSheet(Platform& platform, SheetEditor& editor, const TrailingTexts& trailing,
               Notices& notices, const std::function<void()>& save) {
  try {
    save();
  } catch (const std::exception&) {
    LeaveInSheet(editor, trailing, notices);
    platform.Show({.text = "Cancelled file save"});
  }
}

void ExportSheet(Platform& platform, const Grid& grid, std::string_view proposed_name) {
  Notices notices;
  try {
    ExportOptions options;
    const auto path = platform.AskSave(
        {.title = "Open",
         .filters = {"Excel file (*.xls)|*.xls", "Excel workbook (*.xlsx)|*.xlsx",
                     "Comma separated values (*.csv)|*.csv", "Tab separated values (*.tsv)|*.tsv"},
         .proposed_name = FileNameOf(proposed_name),
         .option = "&Apostrophe before texts that begin with = + - @ (.csv, .tsv)",
         .option_chosen = &options.safe_texts});
    if (path) {
      const auto failure = WhyFailed(platform, [&] { Export(*path, grid, options); });
      const bool done = NoteSave(*path, failure, notices);
      if (done) std::ranges::copy(LossesOf(*path, grid), std::back_inserter(notices));
      platform.Show(
          {.text = done ? "Export complete." : "Export did not succeed.", .title = "Result"});
    }
  } catch (const std::exception& error) {
    notices.push_back({.kind = "not-saved", .text = std::string("Not saved: ") + error.what()});
    platform.Show({.text = "Error in file export"});
  }
  platform.ShowNotices(notices);
}

}  // namespace quorval
