// What the tests of several analyses look at in the same way.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
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

struct Number {
  int row, column;
  double value;
};

// The tolerance is relative above 1, absolute below.
inline void ExpectNumbers(const Transcript& told, const std::vector<Number>& numbers,
                          double tolerance = 1e-12) {
  for (const auto& [row, column, value] : numbers) {
    EXPECT_NEAR(told.Value(row, column), value, tolerance * std::max(1.0, std::abs(value)))
        << row << ", " << column;
    EXPECT_EQ(told.sheet.At(column, row).look.type, CellType::kNumber) << row << ", " << column;
  }
}

inline std::vector<std::size_t> SizesOf(const Plot& plot) {
  std::vector<std::size_t> sizes;
  for (const Series& series : plot.series) sizes.push_back(series.points.size());
  return sizes;
}

// "x,y x,y ..." to nine decimals.
inline std::string PointsText(const Series& series) {
  const auto rounded = [](Real value) { return ShortestText(ToNumber(FixedText(value, 9))); };
  std::string text;
  for (const Point& point : series.points)
    text += (text.empty() ? "" : " ") + rounded(point.x) + "," + rounded(point.y);
  return text;
}

}  // namespace quorval::test
