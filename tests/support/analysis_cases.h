// What the tests of several analyses look at in the same way.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "app/examples.h"
#include "support/sheet_lines.h"
#include "support/transcript.h"

namespace quorval::test {

// Runs on a built-in example.
inline Transcript RunOnExample(std::string_view menu, const Analysis& analysis,
                               const Settings& settings = {}) {
  Worksheet worksheet;
  const Example& example = *FindExample(menu);
  WriteExample(example, worksheet);
  Context context;
  context.ProjectName = example.project.name;
  return RunOn(worksheet, analysis, settings, context);
}

struct SheetNumber {
  int row, column;
  double value;
};

inline void ExpectNumbers(const Transcript& told, std::initializer_list<SheetNumber> numbers,
                          double relative_error = 1e-12) {
  for (const auto& [row, column, value] : numbers) {
    EXPECT_NEAR(told.Value(row, column), value, relative_error * std::abs(value))
        << row << ", " << column;
    EXPECT_EQ(told.sheet.At(column, row).look.type, CellType::kNumber) << row << ", " << column;
  }
}

// "x,y x,y ..." to nine decimals.
inline std::string PointsText(const Series& series) {
  const auto rounded = [](Real value) { return ShortestText(ToNumber(FixedText(value, 9))); };
  std::string text;
  for (const Point& point : series.points)
    text += (text.empty() ? "" : " ") + rounded(point.x) + "," + rounded(point.y);
  return text;
}

// A run that ends early, on columns from column 2 on.
struct EarlyEnd {
  std::string what;
  Columns columns;
  Settings settings;
  std::vector<std::string> boxes;
  int last_row = 0;  // of the sheet that remains
};

inline void ExpectEarlyEnds(const Analysis& analysis, const std::vector<EarlyEnd>& cases) {
  for (const EarlyEnd& early : cases) {
    const Transcript told = RunAnalysis(analysis, early.columns, early.settings);
    EXPECT_EQ(told.outcome, Outcome::kRefused) << early.what;
    EXPECT_THAT(told.boxes, testing::ElementsAreArray(early.boxes)) << early.what;
    EXPECT_EQ(told.sheet.DataRowCnt(), early.last_row) << early.what;
    EXPECT_THAT(told.plots, testing::IsEmpty()) << early.what;
  }
}

// Every procedure closes its results window when a run fails.
inline void ExpectWindowCloses(const Analysis& analysis) {
  for (const Procedure& procedure : analysis.procedures)
    EXPECT_EQ(procedure.failure.aftermath, Aftermath::kWindowCloses) << procedure.window;
}

}  // namespace quorval::test
