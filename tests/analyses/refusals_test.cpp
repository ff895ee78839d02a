// What the analyses refuse, where they fail, and what they tell and go on: tests/data/refusals.txt.
#include <map>
#include <set>

#include "analyses/registry.h"
#include "support/analysis_cases.h"
#include "support/data_table.h"

namespace quorval::test {
namespace {

class RefusalsTest : public testing::TestWithParam<std::string> {};

// A section is "ANALYSIS, what becomes of the results window of a run that fails".
TEST_P(RefusalsTest, TellTheirBoxesAndLeaveTheirRows) {
  const std::size_t comma = GetParam().find(", ");
  const Analysis& analysis = *FindAnalysis(GetParam().substr(0, comma));
  const std::map<std::string, Aftermath> aftermaths{{"stays", Aftermath::kWindowStays},
                                                    {"closes", Aftermath::kWindowCloses},
                                                    {"is not shown", Aftermath::kWindowNotShown}};
  for (const Procedure& procedure : analysis.procedures)
    EXPECT_EQ(procedure.failure.aftermath, aftermaths.at(GetParam().substr(comma + 2)));

  Columns columns;
  for (const TableLine& line : ReadTable("refusals.txt")) {
    if (line.section != GetParam()) continue;
    SCOPED_TRACE(line.name);
    if (line[1] != Words{"^"}) columns = ColumnsOf(line[1]);
    const Transcript told = RunAnalysis(analysis, columns, SettingsOf(line[0]));
    EXPECT_EQ(told.boxes, line[2]);
    const bool done = line[3] == Words{"done"};
    EXPECT_EQ(told.outcome, done ? Outcome::kDone : Outcome::kRefused);
    EXPECT_EQ(told.plots.empty(), !done);
    if (!done) {
      EXPECT_EQ(told.sheet.DataRowCnt(), line[3].empty() ? 0 : std::stoi(line[3][0]));
    }
  }
}

std::set<std::string> Sections() {
  std::set<std::string> sections;
  for (const TableLine& line : ReadTable("refusals.txt")) sections.insert(line.section);
  return sections;
}

INSTANTIATE_TEST_SUITE_P(, RefusalsTest, testing::ValuesIn(Sections()));

}  // namespace
}  // namespace quorval::test
