// The project's files: the commands New, Open, Save, Save As, Import and Export, and what remains
// of a project that was not saved.
#pragma once

#include <filesystem>
#include <functional>
#include <string_view>
#include <vector>

#include "app/project.h"
#include "platform/platform.h"

namespace quorval {

// Each command ends with its notices.
class ProjectFiles {
 public:
  ProjectFiles(Platform& platform, Project& project) : platform_(platform), project_(project) {}

  // Asks whether data may be lost where there are any.
  bool MayReplace();
  // Called when a command has emptied the project, before it asks for a file.
  void WhenEmptied(std::function<void()> look) { emptied_ = std::move(look); }

  void New();
  // The old data are gone before the file dialog opens.
  void Open();
  // The same without the dialog.  A file that cannot be opened leaves an empty project.
  void OpenFile(const std::filesystem::path& path);
  void Save();
  void SaveAs();
  void Import();
  void Export();
  // A file that was dropped on the window, or named on the command line: a project is opened, all
  // else imported.
  void Take(const std::filesystem::path& path);

  // Loads a project without a question.  Throws a FileError that says why not.
  void Load(const std::filesystem::path& path);

  // Whether "&Save Project" can be chosen: once a Save As has written a file, until the next New.
  bool CanSave() const { return can_save_; }

  // --- Work that was not saved

  // At the end of the program: keeps it for the next start.  False where it could not be kept.
  bool KeepUnsaved();
  // The copies that are kept, the latest first.
  std::vector<std::filesystem::path> Kept() const;
  // Takes a copy in the project's place, after the question.  The project has no file then, and the
  // copy is gone.
  void Recover(const std::filesystem::path& copy);
  // The copy is gone.
  void Decline(const std::filesystem::path& copy);

 private:
  // A command with its words for what went wrong in it.
  void Command(std::string_view words, const std::function<void()>& work);
  void ShowNotices();
  bool StartAnew();
  void LoadOrNote(const std::filesystem::path& path);
  void Write(const std::filesystem::path& path);
  // Whether it was written.
  bool WriteOrNote(const std::filesystem::path& path);
  void ImportFrom(const std::filesystem::path& path);
  void ImportFile(const std::filesystem::path& path);
  void NoteUnread(std::string_view what, const std::string& why, const std::filesystem::path& path);
  void Show(std::string_view text, std::string_view title);

  Platform& platform_;
  Project& project_;
  std::function<void()> emptied_;
  Notices notices_;  // of the command that runs
  bool can_save_ = false;
};

}  // namespace quorval
