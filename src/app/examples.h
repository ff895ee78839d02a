// The built-in example data.
#pragma once

#include <span>
#include <string_view>

#include "core/worksheet.h"

namespace quorval {

// One column of an example: its title in row 0, its cells from row 1 on.
struct ExampleColumn {
  int column;
  std::string_view title;
  std::span<const double> values;
};

struct Example {
  std::string_view menu;    // its entry, and its name for the batch program
  std::string_view name{};  // the project's
  std::string_view note{};
  int ids = 0;  // so many IDs "s1", "s2", ... in column 1, under the title "ID"; 0: none
  std::span<const ExampleColumn> columns{};

  bool Built() const { return !columns.empty(); }
};

// In the order of the menu.
std::span<const Example> Examples();

// The example of this name; null where there is none.
const Example* FindExample(std::string_view menu);

// Clears the worksheet and writes the example's cells.
void WriteExample(const Example& example, Worksheet& worksheet);

}  // namespace quorval
