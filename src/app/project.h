// The project: its worksheet, and the context that every results sheet quotes.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "app/sheet_editor.h"
#include "core/context.h"
#include "core/worksheet.h"
#include "formats/file_stamp.h"
#include "formats/project_file.h"

namespace quorval {

class Project {
 public:
  explicit Project(const std::filesystem::path& app_folder);
  Project(const Project&) = delete;
  Project& operator=(const Project&) = delete;

  Worksheet& worksheet() { return worksheet_; }
  const Worksheet& worksheet() const { return worksheet_; }
  // Of the worksheet, with the memory of its steps.
  SheetEditor& editor() { return editor_; }
  const Context& context() const { return context_; }
  // Of the main window.
  const std::string& title() const { return title_; }

  // The name field was edited.
  void Rename(std::string_view name);
  // The decimals field was edited; any text goes.
  void SetDecimals(std::string_view text) { context_.NDec = text; }

  void SetNote(std::string_view note) { context_.ProjectNote = note; }

  // A command that changes the worksheet, as one step of its undo.  Name, note and file go back
  // with the cells where the command changed them.
  void Do(const std::function<void()>& command);

  // An empty project without a name and a file of its own; the decimals stay.
  void Reset();
  // What a file holds: its sheet, and where that has more than two rows the name and note below it.
  void Take(SavedGrid saved);
  // The same of a file of which it is known that a name and a note stand in it.
  void TakeWhole(SavedGrid saved);

  // An example takes the project's place.
  void TakeExample(std::string_view name, std::string_view note);

  bool HasData() const { return worksheet_.DataRowCnt() >= 1; }

  // --- Its file

  // The project was not loaded from it, nor saved to it.
  void SetFile(const std::filesystem::path& file);
  // It was, when the file was in this state.
  void OwnFile(const std::filesystem::path& file, const std::optional<FileStamp>& stamp);
  const std::optional<FileStamp>& own_file() const { return own_file_; }

  // What the project holds now stands in a file, or is an example.
  void MarkKept() { kept_ = Fingerprint(); }
  // Whether there is work that stands nowhere else.
  bool HasUnsavedWork() const;

 private:
  // What a step exchanges beside the cells.
  struct Identity {
    std::string name, note, title;
    std::filesystem::path file;
    std::optional<FileStamp> own_file;
    std::uint64_t kept;

    bool operator==(const Identity&) const = default;
  };

  Identity identity() const;
  void SetIdentity(const Identity& identity);
  std::uint64_t Fingerprint() const;

  Worksheet worksheet_;
  SheetEditor editor_{worksheet_.grid()};
  Context context_;
  std::string title_;
  std::optional<FileStamp> own_file_;
  std::uint64_t kept_ = 0;  // the fingerprint of what was last kept
};

}  // namespace quorval
