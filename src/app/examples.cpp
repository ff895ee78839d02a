#include "app/examples.h"

#include <algorithm>
#include <string>

#include "app/example_data.h"

namespace quorval {
namespace {

namespace data = example_data;

constexpr ExampleColumn kDetectionLimit[] = {
    {2, "Blanks", data::kBlanks}, {3, "S1", data::kLow1}, {4, "S2", data::kLow2},
    {5, "S3", data::kLow3},       {6, "S4", data::kLow4}, {7, "S5", data::kLow5},
};

// The empty cell above the remarks ends the column's data.
constexpr ExampleText kDetectionLimitRemarks[] = {
    {3, 6, "S1-S5 represent five samples with low amounts of analyte"},
    {3, 7, "that have been measured four times each"},
};

constexpr ExampleColumn kPrecisionProfile[] = {
    {2, "Level 1", data::kPrecision1},
    {3, "Level 2", data::kPrecision2},
    {4, "Level 3", data::kPrecision3},
};

constexpr ExampleColumn kLinearity[] = {
    {2, "Level 1", data::kLinearity1},
    {3, "Level 2", data::kLinearity2},
    {4, "Level 3", data::kLinearity3},
    {5, "Level 4", data::kLinearity4},
};

constexpr ExampleText kLinearityLabels[] = {
    {1, 1, "x"}, {1, 2, "y1"}, {1, 3, "y2"}, {1, 4, "y3"}, {1, 5, "y4"},
};

constexpr double kAssignedMean[] = {10.2};
constexpr double kAssignedSD[] = {0.8};
constexpr ExampleColumn kControlChart[] = {
    {2, "Ass. mean", kAssignedMean},
    {3, "Ass. SD", kAssignedSD},
    {5, "Values", data::kControlValues},
};

constexpr ExampleText kControlChartTexts[] = {
    {4, 0, "Opt. Date"}, {4, 1, "02/08/04"},      {4, 2, "02/09/04"}, {4, 3, "02/10/04"},
    {4, 4, "02/12/04"},  {4, 5, "02/13/04"},      {4, 6, "02/14/04"}, {4, 7, "02/15/04"},
    {4, 8, "02/16/04"},  {6, 4, "Missing value"},
};

constexpr ExampleColumn kXYSingle[] = {
    {2, "x", data::kA},
    {3, "y", data::kB},
};

constexpr ExampleColumn kXYDuplicate[] = {
    {2, "x1", data::kA},
    {3, "x2", data::kC},
    {4, "y1", data::kB},
    {5, "y2", data::kD},
};

constexpr ExampleColumn kPolynomial[] = {
    {2, "x", data::kPolynomialX},
    {3, "y", data::kPolynomialY},
};

constexpr ExampleColumn kReference[] = {{2, "Carbamide", data::kCarbamide}};

constexpr ExampleColumn kOneTest[] = {
    {2, "Non-dis.", data::kA},
    {3, "Diseased", data::kDiseased},
};

constexpr ExampleColumn kTwoTests[] = {
    {2, "Non-dis. 1", data::kA},
    {3, "Dis. 1", data::kDiseased1},
    {4, "Non-dis 2", data::kB},
    {5, "Dis. 2", data::kDiseased2},
};

constexpr Example kExamples[] = {
    {.menu = "Detection Limit Example",
     .project = {"Demo Detection Limit Project", "Demo Detection Limit Project."},
     .columns = kDetectionLimit,
     .texts = kDetectionLimitRemarks},
    {.menu = "Precision profile example",
     .project = {"Demo Precision Profile", "Demo precision profile example: 3 levels "},
     .columns = kPrecisionProfile},
    {.menu = "Evaluation of linearity example",
     .project = {"Demo Linearity Example", "Demo linearity example"},
     .columns = kLinearity,
     .texts = kLinearityLabels},
    {.menu = "Control Chart Example",
     .project = {"Demo Control Chart project", ""},
     .columns = kControlChart,
     .texts = kControlChartTexts},
    {.menu = "XY Regression Single",
     .project = {"Demo XY Regression Project (single)",
                 "Demo regression example with single set of data, N=25."},
     .ids = 25,
     .columns = kXYSingle},
    {.menu = "XY Regression Duplicate",
     .project = {"Demo Regression Project (dupl)",
                 "Demo regression example with duplicate set of data, N=25."},
     .ids = 25,
     .columns = kXYDuplicate},
    {.menu = "Polynomial regression",
     .project = {"Demo Polynomial regression Project", "Demo Polynomial regression Project"},
     .columns = kPolynomial},
    {.menu = "Reference Interval Example",
     .project = {"Demo Ref. Project",
                 "Demo example with reference interval data (S-Carbamide mmol/L example), N=158."},
     .question = ExampleQuestion::kNever,
     .ids = 158,
     .columns = kReference,
     .failure = "Error concerning reference interval demo data"},
    {.menu = "Evaluation of a single diagnostic test",
     .project = {"Demo Single Diagnostic Test",
                 "Demo single diagnostic test example , N=25 for non-diseased and diseased "
                 "groups."},
     .question = ExampleQuestion::kAfterClearing,
     .before_clearing = {"Demo Single Dia Test",
                         "Demo example corrsponding to a single diagnostic test, N=25."},
     .ids = 25,
     .columns = kOneTest},
    {.menu = "Comparison of two diagnostic tests",
     .project = {"Demo Paired Comparison of two diagnostic tests",
                 "Demo two diagnostic test example, N=25 for all groups."},
     .question = ExampleQuestion::kAfterClearing,
     .before_clearing = {"Demo Two Dia Tests ",
                         "Demo example corresponding to comparison of two diagnostic tests "
                         "(paired), N=25."},
     .ids = 25,
     .columns = kTwoTests},
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
  for (const ExampleText& text : example.texts) worksheet.SetText(text.column, text.row, text.text);
}

}  // namespace quorval
