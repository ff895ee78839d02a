// What every analysis tells beside its boxes, of a column that ends early, a word, a shorter column
// and an empty field.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "support/notice_cases.h"

namespace quorval::test {
namespace {

using testing::Contains;
using testing::ElementsAreArray;
using testing::IsEmpty;

std::string Named(int column) { return "column " + std::to_string(column); }

class NoticesOf : public testing::TestWithParam<NoticeCase> {
 protected:
  const NoticeCase& one = GetParam();
  Transcript Run(const Worksheet& worksheet, const Settings& settings) {
    return RunOn(worksheet, *FindAnalysis(one.analysis), settings);
  }
  Transcript Run(const Worksheet& worksheet) { return Run(worksheet, one.settings); }
};

TEST_P(NoticesOf, AreNoneOfASoundWorksheet) {
  const Transcript told = Run(SoundWorksheet());
  EXPECT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  EXPECT_THAT(told.notices, IsEmpty());
}

TEST_P(NoticesOf, TellWhereEachColumnEnds) {
  const Transcript told = Run(WithGaps(one));
  EXPECT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  Notices expected;
  for (int column : one.columns)
    expected.push_back(
        {"gap",
         Named(column) + " ends at row 22, its first empty cell; 2 numbers below were not read",
         column, kGap});
  if (one.labels > 0)
    expected.push_back({"length",
                        Named(one.labels) + " holds 3 " + (one.labels == 1 ? "ID" : "date") +
                            "s below row 21, where the data end",
                        one.labels, kGap});
  EXPECT_EQ(told.notices, expected);
}

TEST_P(NoticesOf, TellWhereAWordStands) {
  for (int column : one.columns) {
    const Transcript told = Run(WithWord(column));
    EXPECT_EQ(told.outcome, Outcome::kRefused);
    EXPECT_THAT(told.boxes, ElementsAreArray(one.failure));
    EXPECT_EQ(
        told.notices,
        Notices({{"word", "row 19 of " + Named(column) + " holds \"<0.5\", which is no number",
                  column, kWord}}));
  }
}

// Columns are converted before their size is judged.
TEST_P(NoticesOf, TellOfAWordAmongTooFewRows) {
  Worksheet worksheet = SoundWorksheet();
  for (int column : one.columns) {
    worksheet.SetText(column, 1, "n.d.");
    for (int row = 2; row <= kRows; ++row) worksheet.SetText(column, row, "");
  }
  const Transcript told = Run(worksheet);
  EXPECT_THAT(told.boxes, ElementsAreArray(one.failure));
  EXPECT_THAT(told.notices, Contains(Notice{"word",
                                            "row 1 of " + Named(one.columns[0]) +
                                                " holds \"n.d.\", which is no number",
                                            one.columns[0], 1}));
}

TEST_P(NoticesOf, TellWhichColumnIsShorter) {
  const Transcript told = Run(WithShorterColumn(one));
  EXPECT_THAT(told.boxes, ElementsAreArray(one.unequal));
  const int shorter = one.columns.back();
  const auto of_lengths = std::ranges::find(told.notices, "length", &Notice::kind);
  if (one.unequal.empty()) {
    EXPECT_EQ(told.outcome, Outcome::kDone);
    return;
  }
  ASSERT_NE(of_lengths, told.notices.end());
  EXPECT_EQ(of_lengths->column, shorter);
  EXPECT_EQ(of_lengths->row, kRows);
  EXPECT_THAT(of_lengths->text,
              testing::StartsWith(Named(shorter) + " holds 23 values, 1 fewer than column "));
}

TEST_P(NoticesOf, TellWhichFieldIsBlank) {
  const Transcript told = Run(SoundWorksheet(), WithBlank(one));
  EXPECT_EQ(told.outcome, Outcome::kRefused);
  EXPECT_THAT(told.boxes, ElementsAreArray(one.refusal));
  ASSERT_EQ(told.notices.size(), 1U);
  EXPECT_EQ(told.notices[0].kind, "field");
  EXPECT_THAT(told.notices[0].text,
              testing::StartsWith("the field \"" + one.caption + "\" is empty"));
}

INSTANTIATE_TEST_SUITE_P(, NoticesOf, testing::ValuesIn(NoticeCases()));

TEST(NoticeCases, CoverEveryAnalysis) {
  std::set<std::string> covered;
  for (const NoticeCase& one : NoticeCases()) covered.insert(one.analysis);
  for (const MenuEntry& entry : Analyses())
    EXPECT_TRUE(covered.contains(std::string(entry.analysis->id))) << entry.analysis->id;
}

// --- What single analyses tell besides

TEST(Notices, TellWhatAnAnalysisLeavesOut) {
  for (const TableLine& line : ReadTable("left_out.txt")) {
    SCOPED_TRACE(line.name);
    const Transcript told =
        RunAnalysis(*FindAnalysis(line.section), ColumnsOf(line[1]), SettingsOf(line[0]));
    EXPECT_EQ(told.outcome, Outcome::kDone);
    Notice notice{line[2][0], line[2][1]};
    if (line[3].size() == 2) {
      notice.column = std::stoi(line[3][0]);
      notice.row = std::stoi(line[3][1]);
    }
    EXPECT_EQ(told.notices, Notices{notice});
  }
}

TEST(Notices, TellWhereTheArithmeticEnds) {
  const Transcript line = RunAnalysis(regression::kOls, {{"1", "2", "3"}, {"2", "4", "6"}});
  EXPECT_THAT(line.boxes, testing::ElementsAre("Error occurred"));
  ASSERT_EQ(line.notices.size(), 1U);
  EXPECT_EQ(line.notices[0].kind, "arithmetic");
  const Transcript falling = RunAnalysis(
      regression::kPassingBablok, {{"1", "2", "3", "4", "5", "6"}, {"6", "5", "3", "4", "1", "2"}});
  EXPECT_THAT(falling.boxes, testing::ElementsAre("Error occurred"));
  EXPECT_EQ(falling.notices,
            Notices({{"arithmetic",
                      "the rank correlation of x and y is -0.8857, and the slopes want one above "
                      "0"}}));
  // Claimed by a routine of its own words.
  const Transcript plot = RunAnalysis(
      diagnostic::kDiagnostic,
      {std::vector<std::string>(12, "1"), {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}});
  EXPECT_THAT(plot.boxes, testing::ElementsAre("Error in plot Roc-curve routine", "Error"));
  ASSERT_EQ(plot.notices.size(), 1U);
  EXPECT_EQ(plot.notices[0].kind, "arithmetic");
}

}  // namespace
}  // namespace quorval::test
