#include "batch/lookup.h"

#include <string>

#include "batch/commands.h"

namespace quorval {

MenuEntry AnalysisNamed(std::string_view id) {
  for (const MenuEntry& entry : Analyses())
    if (entry.analysis->id == id) return entry;
  throw Unusable("there is no analysis \"" + std::string(id) + "\"; \"list\" names them");
}

const Tool& ToolNamed(std::string_view id) {
  const Tool* const tool = FindTool(id);
  if (tool == nullptr)
    throw Unusable("there is no data tool \"" + std::string(id) +
                   "\"; there are sort, transform and format");
  return *tool;
}

const Example& ExampleNamed(std::string_view menu) {
  const Example* const example = FindExample(menu);
  if (example == nullptr)
    throw Unusable("there is no example \"" + std::string(menu) + "\"; \"demo\" names them");
  return *example;
}

}  // namespace quorval
