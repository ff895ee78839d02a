#include "app/project_files.h"

#include <optional>
#include <system_error>
#include <utility>

#include "app/recovery.h"
#include "app/sheet_files.h"
#include "core/file_name.h"
#include "formats/file_error.h"
#include "formats/workbook.h"

namespace quorval {
namespace {

namespace fs = std::filesystem;

TrailingTexts TrailingOf(const Project& project) {
  return {project.context().ProjectName, project.context().ProjectNote};
}

bool IsSamePath(const fs::path& a, const fs::path& b) {
  std::error_code error;
  return fs::weakly_canonical(a, error) == fs::weakly_canonical(b, error);
}

// Named as a project is.
bool IsNamedProject(const fs::path& path) {
  const std::string extension = ExtensionOf(path);
  return extension == ".qvl" || extension == ".ss6";
}

}  // namespace

void ProjectFiles::Show(std::string_view text, std::string_view title) {
  platform_.Show({.text = std::string(text), .title = std::string(title)});
}

void ProjectFiles::ShowNotices() { platform_.ShowNotices(std::exchange(notices_, {})); }

void ProjectFiles::NoteUnread(std::string_view what, const std::string& why, const fs::path& path) {
  const bool opened = what == "opened";
  notices_.push_back(
      {.kind = opened ? "not-opened" : "not-imported",
       .text = "Not " + std::string(what) + ": " + why + " (" + path.string() + ")"});
}

void ProjectFiles::Command(std::string_view words, const std::function<void()>& work) {
  try {
    project_.Do(work);
  } catch (const std::exception& error) {
    notices_.push_back({.kind = "failed", .text = std::string("Failed: ") + error.what()});
    Show(words, {});
  }
  ShowNotices();
}

// --- New, Open

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
  if (emptied_) emptied_();
  return true;
}

void ProjectFiles::New() {
  Command("Error", [&] {
    if (StartAnew()) can_save_ = false;
  });
}

void ProjectFiles::Open() {
  Command("Error", [&] {
    if (!StartAnew()) return;
    const auto path =
        platform_.AskOpen({.title = "Open",
                           .filters = {"Quorval project files (*.qvl *.ss6)|*.qvl;*.ss6",
                                       "Quorval project file (*.qvl)|*.qvl", "All files (*)|*"}});
    if (path) LoadOrNote(*path);
  });
}

void ProjectFiles::OpenFile(const fs::path& path) {
  Command("Error", [&] {
    if (StartAnew()) LoadOrNote(path);
  });
}

void ProjectFiles::LoadOrNote(const fs::path& path) {
  if (const auto failure = WhyFailed(platform_, [&] { Load(path); }))
    NoteUnread("opened", *failure, path);
}

void ProjectFiles::Load(const fs::path& path) {
  project_.SetFile(path);
  const auto stamp = StampOf(path);  // before it is read: what changes in between is noticed
  project_.Take(ReadProjectFile(path));
  project_.OwnFile(path, stamp);
  project_.MarkKept();
}

void ProjectFiles::Take(const fs::path& path) {
  const bool project = IsProjectFile(path) || (IsNamedProject(path) && !IsWorkbook(path));
  if (project) return OpenFile(path);
  ImportFile(path);
}

// --- Save

void ProjectFiles::Save() {
  SaveSheet(platform_, project_.editor(), TrailingOf(project_), notices_,
            [&] { WriteOrNote(project_.context().ProjectFile); });
  ShowNotices();
}

void ProjectFiles::SaveAs() {
  SaveSheet(platform_, project_.editor(), TrailingOf(project_), notices_, [&] {
    const auto path =
        platform_.AskSave({.title = "Quorval  Project file ",
                           .filters = {"Quorval Project File (.qvl)|*.qvl"},
                           .proposed_name = FileNameOf(project_.context().ProjectName),
                           .default_extension = ".ss6"});
    if (!path) throw Cancelled();
    if (WriteOrNote(*path)) can_save_ = true;
  });
  ShowNotices();
}

bool ProjectFiles::WriteOrNote(const fs::path& path) {
  Notices beside;
  std::swap(beside, notices_);  // what Write() adds stands behind "Saved to"
  const auto failure = WhyFailed(platform_, [&] { Write(path); });
  std::swap(beside, notices_);
  const bool saved = NoteSave(path, failure, notices_);
  if (saved) notices_.insert(notices_.end(), beside.begin(), beside.end());
  return saved;
}

// A file that is not this project's, or no longer as it left it, is kept under another name.
void ProjectFiles::Write(const fs::path& path) {
  const auto there = StampOf(path);
  std::optional<KeptCopy> copy;
  if (there && there != project_.own_file()) copy.emplace(path);
  WriteProjectFile(path, project_.worksheet().grid(), TrailingOf(project_));
  if (copy) {
    copy->Keep();
    if (project_.own_file() && IsSamePath(path, project_.context().ProjectFile))
      notices_.push_back(
          {.kind = "changed", .text = "The file has changed since it was opened or saved here."});
    notices_.push_back(
        {.kind = "kept", .text = "The file that stood there is kept as " + copy->path().string()});
  }
  project_.OwnFile(path, StampOf(path));
  project_.MarkKept();
}

// --- Import, Export

void ProjectFiles::Import() {
  Command("Error in Excel file import", [&] {
    if (!StartAnew()) return;
    constexpr std::string_view kAll =
        "All that can be imported (*.xls *.xlsx *.ods *.csv *.tsv)|"
        "*.xls;*.xlsx;*.ods;*.csv;*.tsv";
    const auto path = platform_.AskOpen(
        {.title = "Open",
         .filters = {std::string(kAll), "Import file (*.xls)|*.xls",
                     "Excel workbook (*.xlsx)|*.xlsx", "OpenDocument spreadsheet (*.ods)|*.ods",
                     "Separated values (*.csv *.tsv)|*.csv;*.tsv"}});
    if (path) ImportFrom(*path);
  });
}

void ProjectFiles::ImportFile(const fs::path& path) {
  Command("Error in Excel file import", [&] {
    if (StartAnew()) ImportFrom(path);
  });
}

void ProjectFiles::ImportFrom(const fs::path& path) {
  if (!IsWorkbook(path)) {
    std::error_code error;
    const bool there = fs::exists(path, error);
    NoteUnread("imported", there ? "no workbook, or it cannot be read" : "there is no such file",
               path);
    return Show("File is not an Excel file or is locked and cannot be imported.",
                "Invalid File Type or Locked");
  }
  Show("File is an Excel file.", "File Type");
  if (!WhyFailed(platform_, [&] { SheetNames(path); })) {
    Show("Got sheet list.", "Status");
  } else {
    Show("Cannot return information for Excel file.", "Result");
  }
  Worksheet& worksheet = project_.worksheet();
  const auto failure = WhyFailed(platform_, [&] { worksheet = ReadFirstSheet(path); });
  if (failure) NoteUnread("imported", *failure, path);
  Show(failure ? "Import did not succeed." : "Import complete.", "Result");
  worksheet.PaintHeader();
  project_.MarkKept();
}

void ProjectFiles::Export() {
  ExportSheet(platform_, project_.worksheet().grid(), project_.context().ProjectName);
}

// --- Work that was not saved

bool ProjectFiles::KeepUnsaved() {
  if (!project_.HasUnsavedWork()) return true;
  const fs::path& folder = project_.context().AppFolder;
  const auto failure = WhyFailed(platform_, [&] { WriteRecoveryCopy(folder, project_); });
  if (failure)
    notices_.push_back(
        {.kind = "not-kept",
         .text = "Not kept for the next start: " + *failure + " (" + folder.string() + ")"});
  ShowNotices();
  return !failure;
}

std::vector<fs::path> ProjectFiles::Kept() const {
  return RecoveryCopies(project_.context().AppFolder);
}

void ProjectFiles::Recover(const fs::path& copy) {
  Command("Error", [&] {
    if (!MayReplace()) return;
    std::optional<SavedGrid> saved;
    if (const auto failure = WhyFailed(platform_, [&] { saved = ReadProjectFile(copy); }))
      return NoteUnread("opened", *failure, copy);
    project_.Reset();
    if (emptied_) emptied_();
    project_.TakeWhole(std::move(*saved));
    Decline(copy);
  });
}

void ProjectFiles::Decline(const fs::path& copy) {
  std::error_code ignored;
  fs::remove(copy, ignored);
}

}  // namespace quorval
