// The names of what the results sheets show, over every row that a sheet can have.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>
#include <string>

#include "analyses/registry.h"
#include "app/examples.h"
#include "app/workbench.h"
#include "core/conversion.h"
#include "support/example_runs.h"
#include "support/scripted_platform.h"
#include "support/temporary_folder.h"

namespace quorval {
namespace {

class QuantitiesTest : public testing::TestWithParam<std::string_view> {
 protected:
  const Analysis& analysis() const { return *FindAnalysis(GetParam()); }

  // Calls `look` with the results of each run of the analysis.
  template <class Look>
  void OverItsRuns(Look&& look) {
    for (const test::ExampleRun& run : test::ExampleRuns()) {
      if (run.analysis != GetParam()) continue;
      SCOPED_TRACE(testing::PrintToString(run));
      workbench.ImportExample(*FindExample(run.example));
      OpenAnalysis& open = workbench.Open(analysis());
      open.form = Form(*analysis().dialog);
      for (const auto& [key, value] : run.settings) open.form.Set(key, value);
      ASSERT_EQ(workbench.PressOk(open), Outcome::kDone);
      if (run.reanalysed) workbench.Reanalyse(open);
      look(*open.results);
      workbench.Exit(open);
    }
  }

  test::TemporaryFolder folder;
  test::ScriptedPlatform platform;
  Workbench workbench{platform, folder.path()};
};

bool ShowsNumber(const Cell& cell) {
  if (cell.value) return true;
  try {
    return !cell.text.empty() && (ToNumber(cell.text), true);
  } catch (const Fault&) {
    return false;
  }
}

bool InTable(std::span<const GivenTable> tables, int row, int column) {
  for (const GivenTable& one : tables)
    if (row >= one.first_row && row <= one.last_row && column >= one.first_column &&
        column <= one.last_column)
      return true;
  return false;
}

TEST_P(QuantitiesTest, EveryNumberOfASheetHasANameOrStandsInATableWithOne) {
  OverItsRuns([](const ResultsWindow& results) {
    const Grid& grid = results.sheet.grid();
    std::set<std::pair<int, int>> named;
    for (const GivenQuantity& one : results.sheet.quantities()) named.insert({one.row, one.column});
    for (int row = 6; row <= grid.DataRowCnt(); ++row)  // the head has the project's name
      for (int column = 1; column <= grid.DataColCnt(); ++column)
        if (const Cell cell = grid.At(column, row); ShowsNumber(cell)) {
          EXPECT_TRUE(named.contains({row, column}) || InTable(results.sheet.tables(), row, column))
              << "row " << row << ", column " << column << ": " << cell.Text();
        }
  });
}

TEST_P(QuantitiesTest, NoNameStandsTwiceAndEachIsTheValueOfItsCell) {
  OverItsRuns([](const ResultsWindow& results) {
    std::set<std::string_view> names;
    for (const GivenQuantity& one : results.sheet.quantities()) {
      EXPECT_TRUE(names.insert(one.quantity.name).second) << one.quantity.name;
      const Cell cell = results.sheet.grid().At(one.column, one.row);
      const double shown = cell.value ? *cell.value : Raw(ToNumber(cell.text));
      EXPECT_EQ(shown, one.value) << one.quantity.name;
      if (one.quantity.width == Width::kWhole) {
        EXPECT_EQ(std::floor(one.value), one.value) << one.quantity.name;
      }
      if (one.quantity.width == Width::k32) {
        EXPECT_EQ(static_cast<float>(one.value), one.value) << one.quantity.name;
      }
    }
  });
}

TEST_P(QuantitiesTest, WhatAnAnalysisDeclaresIsWhatItsSheetsShow) {
  std::set<std::string_view> declared, given, tables, listed;
  for (const Quantity& one : analysis().quantities)
    EXPECT_TRUE(declared.insert(one.name).second) << one.name;
  for (const NamedTable& one : analysis().tables) tables.insert(one.name);
  OverItsRuns([&](const ResultsWindow& results) {
    for (const GivenQuantity& one : results.sheet.quantities()) given.insert(one.quantity.name);
    for (const GivenTable& one : results.sheet.tables()) listed.insert(one.table.name);
  });
  EXPECT_EQ(given, declared);
  EXPECT_EQ(listed, tables);
}

TEST_P(QuantitiesTest, EveryPlotIsDeclared) {
  OverItsRuns([](const ResultsWindow& results) {
    for (const Plot& plot : results.plots) {
      const PlotWindow& declared = results.DeclarationOf(plot);
      EXPECT_EQ(plot.window, declared.window);
      if (declared.caption.empty())
        EXPECT_FALSE(plot.caption.empty()) << plot.window;
      else
        EXPECT_EQ(plot.caption, declared.caption);
    }
  });
}

std::vector<std::string_view> Ids() {
  std::vector<std::string_view> ids;
  for (const MenuEntry& entry : Analyses()) ids.push_back(entry.analysis->id);
  return ids;
}

INSTANTIATE_TEST_SUITE_P(, QuantitiesTest, testing::ValuesIn(Ids()));

// The same thing has the same name everywhere; so a name has one unit and one width.
TEST(QuantityNames, MeanTheSameInEveryAnalysis) {
  std::map<std::string_view, Quantity> known;
  for (const MenuEntry& entry : Analyses())
    for (const Quantity& one : entry.analysis->quantities) {
      const auto [found, fresh] = known.try_emplace(one.name, one);
      EXPECT_EQ(found->second.unit, one.unit) << one.name << " of " << entry.analysis->id;
      EXPECT_EQ(found->second.width, one.width) << one.name << " of " << entry.analysis->id;
      EXPECT_FALSE(one.caption.empty()) << one.name << " of " << entry.analysis->id;
    }
}

}  // namespace
}  // namespace quorval
