#include <iostream>

#include "app/examples.h"
#include "batch/commands.h"

namespace quorval {

void AddDemoCommand(CLI::App& program, Task& chosen) {
  CLI::App* const demo =
      program.add_subcommand("demo", "List the built-in example sets, one a line");
  demo->footer("Each name can be given to --demo in the place of a data file.");
  demo->callback([&chosen] {
    chosen = [] {
      for (const Example& example : Examples()) std::cout << example.menu << '\n';
      return ExitStatus::kDone;
    };
  });
}

}  // namespace quorval
