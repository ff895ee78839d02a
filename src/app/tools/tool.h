// The data tools: small dialogs that change one or two columns of the worksheet in place.
#pragma once

#include <span>
#include <string_view>

#include "app/main_menu.h"
#include "core/analysis.h"

namespace quorval {

// One press of a tool's OK: all it may read, and the worksheet it changes.
struct ToolRun {
  const Form& form;
  Worksheet& worksheet;
  Messages& messages;
  Notices notices{};

  [[noreturn]] void Refuse(std::string_view words) const {
    messages.Tell(words);
    throw Refusal{};
  }
};

struct Tool {
  std::string_view id;  // what the batch program calls it
  Command command;      // its entry in the Data menu
  const Dialog* dialog;
  FailurePolicy failure{};
  void (*run)(ToolRun&);
  std::string_view manual;  // its page of the manual
};

// The column that a field names.  Refuses a number outside the worksheet; a
// Fault where the field holds none.
int ColumnOf(const ToolRun& run, const Field& field);

// The one place where a tool is run, guarded and ended.
Outcome Execute(const Tool& tool, ToolRun& run);

// In the order of the menu.
std::span<const Tool* const> Tools();
// The tool of this id, or behind this menu entry; null where there is none.
const Tool* FindTool(std::string_view id);
const Tool* FindTool(Command command);

extern const Tool kSortTool;
extern const Tool kTransformTool;
extern const Tool kFormatTool;

}  // namespace quorval
