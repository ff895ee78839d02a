#include "app/examples.h"

#include <algorithm>
#include <string>

#include "app/example_data.h"

namespace quorval {
namespace {

constexpr ExampleColumn kXYSingle[] = {
    {2, "x", example_data::kA},
    {3, "y", example_data::kB},
};

constexpr ExampleColumn kXYDuplicate[] = {
    {2, "x1", example_data::kA},
    {3, "x2", example_data::kC},
    {4, "y1", example_data::kB},
    {5, "y2", example_data::kD},
};

constexpr Example kExamples[] = {
    {.menu = "Detection Limit Example"},
    {.menu = "Precision profile example"},
    {.menu = "Evaluation of linearity example"},
    {.menu = "Control Chart Example"},
    {.menu = "XY Regression Single",
     .name = "Demo XY Regression Project (single)",
     .note = "Demo regression example with single set of data, N=25.",
     .ids = 25,
     .columns = kXYSingle},
    {.menu = "XY Regression Duplicate",
     .name = "Demo Regression Project (dupl)",
     .note = "Demo regression example with duplicate set of data, N=25.",
     .ids = 25,
     .columns = kXYDuplicate},
    {.menu = "Polynomial regression"},
    {.menu = "Reference Interval Example"},
    {.menu = "Evaluation of a single diagnostic test"},
    {.menu = "Comparison of two diagnostic tests"},
};

}  // namespace

std::span<const Example> Examples() { return kExamples; }

const Example* FindExample(std::string_view menu) {
  const auto found = std::ranges::find(kExamples, menu, &Example::menu);
  return found == std::end(kExamples) ? nullptr : &*found;
}

void WriteExample(const Example& example, Worksheet& worksheet) {
  worksheet.Clear();
  if (example.ids > 0) worksheet.SetText(1, 0, "ID");
  for (int i = 1; i <= example.ids; ++i) worksheet.SetText(1, i, "s" + std::to_string(i));
  for (const ExampleColumn& column : example.columns) {
    worksheet.SetText(column.column, 0, column.title);
    for (int row = 1; double value : column.values) worksheet.SetValue(column.column, row++, value);
  }
}

}  // namespace quorval
