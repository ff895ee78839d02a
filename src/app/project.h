// The project: its worksheet, and the context that every results sheet quotes.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "core/context.h"
#include "core/worksheet.h"

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

  // An example took the project's place.
  void TakeExample(std::string_view name, std::string_view note);

  bool HasData() const { return worksheet_.DataRowCnt() >= 1; }

 private:
  Worksheet worksheet_;
  Context context_;
  std::string title_;
};

}  // namespace quorval
