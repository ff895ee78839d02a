#include <algorithm>
#include <iomanip>
#include <iostream>
#include <memory>

#include "analyses/registry.h"
#include "batch/commands.h"
#include "batch/json.h"

namespace quorval {
namespace {

void PrintList() {
  std::size_t widest = 0;
  for (const MenuEntry& entry : Analyses()) widest = std::max(widest, entry.analysis->id.size());
  for (const MenuEntry& entry : Analyses())
    std::cout << std::left << std::setw(static_cast<int>(widest)) << entry.analysis->id << "  "
              << entry.caption << '\n';
}

Json ListJson() {
  Json analyses = Json::array();
  for (const MenuEntry& entry : Analyses())
    analyses.push_back({{"id", entry.analysis->id}, {"caption", entry.caption}});
  return analyses;
}

}  // namespace

void AddListCommand(CLI::App& program, Task& chosen) {
  CLI::App* const list =
      program.add_subcommand("list", "List the analyses: id and menu caption, one a line");
  const auto as_json = std::make_shared<bool>(false);
  list->add_flag("--json", *as_json, "Print the list as JSON");
  list->callback([&chosen, as_json] {
    chosen = [as_json] {
      if (*as_json) {
        std::cout << JsonText(ListJson());
      } else {
        PrintList();
      }
      return ExitStatus::kDone;
    };
  });
}

}  // namespace quorval
