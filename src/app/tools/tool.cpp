#include "app/tools/tool.h"

#include <algorithm>

namespace quorval {
namespace {

constexpr const Tool* kTools[] = {&kSortTool, &kTransformTool, &kFormatTool};

template <class Key>
const Tool* Find(Key key, Key Tool::*member) {
  const auto found = std::ranges::find_if(kTools, [&](auto* tool) { return tool->*member == key; });
  return found == std::end(kTools) ? nullptr : *found;
}

}  // namespace

int ColumnOf(const ToolRun& run, const Field& field) {
  const int column = run.form.TextAsInt16(field);
  if (column < 1 || column > Worksheet::kColumns) {
    run.form.Note(field, "; the worksheet has the columns 1 to 500");
    run.Refuse(" Selected column no. < 1 or > 500: No analysis ");
  }
  return column;
}

Outcome Execute(const Tool& tool, ToolRun& run) {
  const Form::Listening listening(run.form, run.notices);
  return Guard(run.messages, tool.failure,
               [&] { NotingItsFault(run.notices, [&] { tool.run(run); }); });
}

std::span<const Tool* const> Tools() { return kTools; }
const Tool* FindTool(std::string_view id) { return Find(id, &Tool::id); }
const Tool* FindTool(Command command) { return Find(command, &Tool::command); }

}  // namespace quorval
