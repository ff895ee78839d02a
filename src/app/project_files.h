// The project's files: the commands New, Open, Save, Save As, Import and Export.
#pragma once

#include <filesystem>
#include <string>

#include "app/project.h"
#include "platform/platform.h"

namespace quorval {

class ProjectFiles {
 public:
  ProjectFiles(Platform& platform, Project& project) : platform_(platform), project_(project) {}

  // Asks whether data may be lost where there are any.
  bool MayReplace();

  void New();
  // The old data are gone before the file dialog opens.
  void Open();
  // The same without the dialog; false where the file is none that can be opened, which leaves an
  // empty project and tells nothing but why_not().
  bool OpenFile(const std::filesystem::path& path);
  // Why the last file could not be opened.
  const std::string& why_not() const { return why_not_; }
  void Save();
  void SaveAs();
  void Import();
  void Export();

  // Whether "&Save Project" can be chosen: once a Save As has set a file, until the next New.
  bool CanSave() const { return can_save_; }

 private:
  bool StartAnew();
  bool Load(const std::filesystem::path& path);
  void ImportFrom(const std::filesystem::path& path);
  void Show(std::string_view text, std::string_view title);

  Platform& platform_;
  Project& project_;
  bool can_save_ = false;
  std::string why_not_;
};

}  // namespace quorval
