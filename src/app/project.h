// The project: its worksheet, and the context that every results sheet quotes.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "core/context.h"
#include "core/worksheet.h"
#include "formats/project_file.h"

namespace quorval {

class Project {
 public:
  explicit Project(const std::filesystem::path& app_folder);

  Worksheet& worksheet() { return worksheet_; }
  const Worksheet& worksheet() const { return worksheet_; }
  const Context& context() const { return context_; }
  // Of the main window.
  const std::string& title() const { return title_; }

  // The name field was edited.
  void Rename(std::string_view name);
  // The decimals field was edited; any text goes.
  void SetDecimals(std::string_view text) { context_.NDec = text; }

  void SetNote(std::string_view note) { context_.ProjectNote = note; }
  void SetFile(const std::filesystem::path& file) { context_.ProjectFile = file; }

  // An empty project without a name of its own; the decimals stay.
  void Reset();
  // What a file holds: its sheet, and where that has more than two rows the name and note below it.
  void Take(SavedGrid saved);

  // An example took the project's place.
  void TakeExample(std::string_view name, std::string_view note);

  bool HasData() const { return worksheet_.DataRowCnt() >= 1; }

 private:
  Worksheet worksheet_;
  Context context_;
  std::string title_;
};

}  // namespace quorval
