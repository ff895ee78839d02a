// Data and expectations that the tests of the regressions share.
#pragma once

#include "app/example_data.h"
#include "support/analysis_cases.h"
#include "support/data_file.h"

namespace quorval::test {

inline Columns SingleSet() { return {TextsOf(example_data::kA), TextsOf(example_data::kB)}; }
inline Columns DuplicateSet() {
  return {TextsOf(example_data::kA), TextsOf(example_data::kC), TextsOf(example_data::kB),
          TextsOf(example_data::kD)};
}

// 40 points on the line y = x with small residuals, and six points 8 above or below it.
inline Columns WithSixOutliers() {
  constexpr std::array<double, 6> kSmall{0.25, -0.5, 0.125, -0.125, 0.5, -0.25};
  std::vector<double> x, y;
  for (int i = 0; i < 40; ++i) {
    x.push_back(i + 1);
    y.push_back(x.back() + kSmall[static_cast<std::size_t>(i % 6)]);
    if (i % 7 == 2) y.back() += i % 2 == 0 ? 8 : -8;
  }
  return {TextsOf(x), TextsOf(y)};
}

// The same points measured twice; the rows of the six lie further apart in y.
inline Columns DuplicatesWithOutliers() {
  const Columns once = WithSixOutliers();
  std::vector<double> x2, y2;
  for (std::size_t i = 0; i < once[0].size(); ++i) {
    const Real apart = i % 3 == 0 ? 0.25 : -0.125;
    y2.push_back(Raw(ToNumber(once[1][i]) + (i % 7 == 2 ? 5 * apart : apart)));
    x2.push_back(std::stod(once[0][i] + (i % 2 == 0 ? ".1" : ".2")));
  }
  return {once[0], TextsOf(x2), once[1], TextsOf(y2)};
}

// The numbers of one case of tests/independent/regressions.py.
inline std::vector<Number> NumbersOf(const std::string& name) {
  static const auto columns = ReadDataFile("regressions.csv");
  std::vector<Number> numbers;
  for (std::size_t i = 0; i < columns[0].size(); ++i)
    if (columns[0][i] == name)
      numbers.push_back(
          {std::stoi(columns[1][i]), std::stoi(columns[2][i]), std::stod(columns[3][i])});
  return numbers;
}

// Rows "NUMBER:first cell|second|..."; an empty cell is not looked at, but in column 1.
inline void ExpectLabels(const Transcript& told, const Lines& rows) {
  ASSERT_FALSE(rows.empty());
  for (const std::string& row : rows) {
    std::istringstream cells(row);
    std::string number, text;
    std::getline(cells, number, ':');
    for (int column = 1; column == 1 || cells.good(); ++column) {
      text.clear();
      std::getline(cells, text, '|');
      if (column > 1 && text.empty()) continue;
      EXPECT_EQ(told.Text(std::stoi(number), column), text) << row;
    }
  }
}

// A run whose numbers the independent script has computed.
struct ComputedCase {
  std::string name;
  Columns columns;
  Settings settings;
};

inline void ExpectComputed(const Analysis& analysis, const ComputedCase& computed, double digits) {
  SCOPED_TRACE(computed.name);
  const std::vector<Number> numbers = NumbersOf(computed.name);
  ASSERT_FALSE(numbers.empty());
  Settings settings = computed.settings;
  settings.emplace_back("show-residuals", "on");
  if (Form(*analysis.dialog).Find("show-bands") != nullptr)
    settings.emplace_back("show-bands", "on");
  const Transcript told = RunAnalysis(analysis, computed.columns, settings);
  EXPECT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, testing::IsEmpty());
  ExpectNumbers(told, numbers, digits);
}

}  // namespace quorval::test
