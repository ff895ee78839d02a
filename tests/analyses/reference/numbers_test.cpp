// The numbers of every procedure on every sample.  The expected ones are written by
// tests/independent/reference_interval.py, which computes them with NumPy and SciPy.
#include <gtest/gtest.h>

#include "analyses/reference/samples.h"

namespace quorval::reference {
namespace {

struct ExpectedCell {
  int row, column;
  std::string content;
};

// By sample, procedure and percentile rule.
std::map<std::vector<std::string>, std::vector<ExpectedCell>> ReadExpected() {
  std::map<std::vector<std::string>, std::vector<ExpectedCell>> runs;
  const auto columns = test::ReadDataFile("reference_expected.csv");
  for (std::size_t i = 0; i < columns[0].size(); ++i)
    runs[{columns[0][i], columns[1][i], columns[2][i]}].push_back(
        {std::stoi(columns[3][i]), std::stoi(columns[4][i]), columns[5][i]});
  return runs;
}

void ExpectCell(const test::Transcript& transcript, const ExpectedCell& expected) {
  const auto& [row, column, content] = expected;
  const bool is_P = row == 20;  // a text, whether it looks like a number or not
  if (is_P || !IsNumber(content)) {
    EXPECT_EQ(transcript.Text(row, column), content) << row << ' ' << column;
    return;
  }
  const double number = std::stod(content);
  EXPECT_NEAR(transcript.Value(row, column), number, 1e-9 * std::max(1.0, std::fabs(number)))
      << row << ' ' << column;
  EXPECT_EQ(transcript.sheet.At(column, row).look.type, CellType::kNumber) << row << ' ' << column;
}

TEST(ReferenceInterval, GivesTheNumbersOfAnIndependentComputation) {
  const auto samples = ReadSamples();
  const auto runs = ReadExpected();
  EXPECT_EQ(runs.size(), 116U);
  for (const auto& [run, cells] : runs) {
    SCOPED_TRACE(run[0] + ' ' + run[1] + ' ' + run[2]);
    const Values& values = samples.at(run[0]);
    const test::Transcript transcript = RunProcedure(values, run[1], {{"percentile-rule", run[2]}});
    EXPECT_EQ(transcript.outcome, Outcome::kDone);
    EXPECT_EQ(transcript.boxes, Values{});
    EXPECT_EQ(transcript.Value(9, 2), static_cast<double>(values.size()));
    for (const ExpectedCell& cell : cells) ExpectCell(transcript, cell);
  }
}

TEST(ReferenceInterval, RepeatsABootstrapExactly) {
  const Values values = ReadSamples().at("gauss120");
  const test::Settings settings{{"percentile-rule", "bootstrap-n-plus-1"}, {"replications", "5"}};
  const test::Transcript first = RunReference(values, settings);
  EXPECT_EQ(first.outcome, Outcome::kDone);
  EXPECT_EQ(first.sheet, RunReference(values, settings).sheet);
}

// Ten values each of two kinds have kurtosis -2 whatever the transform, so the search for the
// exponent goes 40 times by 0.5 from 0.8 and the last one is used.
TEST(ReferenceInterval, GoesOnWithoutASolutionOfTheModulus) {
  for (const char* procedure : {"power-modulus", "exponential-modulus"}) {
    const test::Transcript transcript =
        RunProcedure(Repeated(10, "1", Repeated(10, "2")), procedure);
    EXPECT_EQ(transcript.outcome, Outcome::kDone);
    EXPECT_EQ(transcript.boxes,
              Values{"Max no. of iterations: No solution to modulus transformation"});
    EXPECT_NEAR(transcript.Value(12, 2), 0.8 + 39 * 0.5, 1e-12);
    EXPECT_NEAR(transcript.Value(37, 2), -2, 1e-9);
    EXPECT_EQ(transcript.plots.size(), 3U);
  }
}

}  // namespace
}  // namespace quorval::reference
