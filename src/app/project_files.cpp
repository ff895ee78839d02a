#include "app/project_files.h"

#include <optional>
#include <utility>

#include "app/sheet_files.h"
#include "app/wait_pointer.h"
#include "formats/file_error.h"
#include "formats/workbook.h"

namespace quorval {
namespace {

// What a failure inside a command is told as.
template <class Work>
void Guarded(Platform& platform, std::string_view words, Work&& work) {
  try {
    work();
  } catch (const std::exception&) {
    platform.Show({.text = std::string(words)});
  }
}

TrailingTexts TrailingOf(const Project& project) {
  return {project.context().ProjectName, project.context().ProjectNote};
}

// Why the work did not come to its end; the wait pointer shows how long it takes.
template <class Work>
std::optional<std::string> WhyNot(Platform& platform, Work&& work) {
  const WaitPointer wait(platform);
  try {
    work();
    return std::nullopt;
  } catch (const FileError& error) {
    return error.what();
  }
}

}  // namespace

void ProjectFiles::Show(std::string_view text, std::string_view title) {
  platform_.Show({.text = std::string(text), .title = std::string(title)});
}

bool ProjectFiles::MayReplace() {
  if (!project_.HasData()) return true;
  return platform_.Show(
             {.text = "Notice that existing project data and results are lost, Still proceed?",
              .buttons = Buttons::kYesNo,
              .critical = true}) == Answer::kYes;
}

bool ProjectFiles::StartAnew() {
  if (!MayReplace()) return false;
  project_.Reset();
  return true;
}

void ProjectFiles::New() {
  Guarded(platform_, "Error", [&] {
    if (StartAnew()) can_save_ = false;
  });
}

void ProjectFiles::Open() {
  Guarded(platform_, "Error", [&] {
    if (!StartAnew()) return;
    const auto path =
        platform_.AskOpen({.title = "Open", .filters = {"Quorval project file (*.qvl)|*.qvl"}});
    if (path) Load(*path);
  });
}

bool ProjectFiles::OpenFile(const std::filesystem::path& path) {
  bool loaded = false;
  Guarded(platform_, "Error", [&] { loaded = StartAnew() && Load(path); });
  return loaded;
}

bool ProjectFiles::Load(const std::filesystem::path& path) {
  project_.SetFile(path);
  const auto why_not = WhyNot(platform_, [&] { project_.Take(ReadProjectFile(path)); });
  why_not_ = why_not.value_or("");
  return !why_not;
}

void ProjectFiles::Save() {
  SaveSheet(platform_, project_.worksheet().grid(), TrailingOf(project_),
            [&] { return project_.context().ProjectFile; });
}

void ProjectFiles::SaveAs() {
  SaveSheet(platform_, project_.worksheet().grid(), TrailingOf(project_), [&] {
    const auto path = platform_.AskSave({.title = "Quorval  Project file ",
                                         .filters = {"Quorval Project File (.qvl)|*.qvl"},
                                         .proposed_name = project_.context().ProjectName,
                                         .default_extension = ".ss6"});
    if (!path) throw Cancelled();
    project_.SetFile(*path);
    can_save_ = true;
    return *path;
  });
}

void ProjectFiles::Import() {
  Guarded(platform_, "Error in Excel file import", [&] {
    if (!StartAnew()) return;
    const auto path = platform_.AskOpen(
        {.title = "Open",
         .filters = {"Import file (*.xls)|*.xls", "Excel workbook (*.xlsx)|*.xlsx",
                     "OpenDocument spreadsheet (*.ods)|*.ods",
                     "Separated values (*.csv *.tsv)|*.csv;*.tsv"}});
    if (path) ImportFrom(*path);
  });
}

void ProjectFiles::ImportFrom(const std::filesystem::path& path) {
  if (!IsWorkbook(path))
    return Show("File is not an Excel file or is locked and cannot be imported.",
                "Invalid File Type or Locked");
  Show("File is an Excel file.", "File Type");
  if (!WhyNot(platform_, [&] { SheetNames(path); })) {
    Show("Got sheet list.", "Status");
  } else {
    Show("Cannot return information for Excel file.", "Result");
  }
  Worksheet& worksheet = project_.worksheet();
  const bool done = !WhyNot(platform_, [&] { worksheet = ReadFirstSheet(path); });
  Show(done ? "Import complete." : "Import did not succeed.", "Result");
  worksheet.PaintHeader();
}

void ProjectFiles::Export() {
  ExportSheet(platform_, project_.worksheet().grid(), project_.context().ProjectName);
}

}  // namespace quorval
