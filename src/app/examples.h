// The built-in example data.
#pragma once

#include <span>
#include <string_view>

#include "core/worksheet.h"

namespace quorval {

// One column of an example: its title in row 0, its numbers from row 1 on.
struct ExampleColumn {
  int column;
  std::string_view title;
  std::span<const double> values;
};

// A text anywhere in the sheet: a label, a remark, a date.
struct ExampleText {
  int column, row;
  std::string_view text;
};

// What an example calls the project that it fills.
struct ExampleProject {
  std::string_view name{};
  std::string_view note{};
};

// When an example asks whether data may be lost.
enum class ExampleQuestion {
  kFirst,          // and leaves everything as it is when they may not
  kAfterClearing,  // too late to find any data
  kNever,
};

struct Example {
  std::string_view menu;  // its entry, and its name for the batch program
  ExampleProject project{};
  ExampleQuestion question = ExampleQuestion::kFirst;
  ExampleProject before_clearing{};  // of those that clear before they ask
  int ids = 0;  // so many IDs "s1", "s2", ... in column 1, under the title "ID"; 0: none
  std::span<const ExampleColumn> columns{};
  std::span<const ExampleText> texts{};
  std::string_view failure = "Error";
};

// In the order of the menu.
std::span<const Example> Examples();

// The example of this name; null where there is none.
const Example* FindExample(std::string_view menu);

// Clears the worksheet and writes the example's cells.
void WriteExample(const Example& example, Worksheet& worksheet);

}  // namespace quorval
