#include "core/intake.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/transcript.h"

namespace quorval {
namespace {

using testing::ElementsAre;

constexpr Field kPairFields[] = {Text9, Text10, Text11, Text12, Text13};
constexpr Dialog kPairDialog{.window = "pair", .title = "pair", .fields = kPairFields};
constexpr Field kColumnFields[] = {WithInitial(Text1, "2"), Text2};
constexpr Dialog kColumnDialog{.window = "column", .title = "column", .fields = kColumnFields};

// A dialog over a worksheet whose columns from 2 on are given.
class Intake : public testing::Test {
 protected:
  void Fill(const test::Columns& columns) {
    for (std::size_t i = 0; i < columns.size(); ++i)
      for (std::size_t row = 0; row < columns[i].size(); ++row)
        worksheet.SetText(static_cast<int>(i) + 2, static_cast<int>(row) + 1, columns[i][row]);
  }

  Worksheet worksheet;
  Context context;
  test::RecordedMessages messages;
  ResultsSheet sheet{context};
  Form pair_form{kPairDialog};
  Form column_form{kColumnDialog};
  quorval::Run pair{pair_form, worksheet, context, messages, sheet};
  quorval::Run column{column_form, worksheet, context, messages, sheet};
};

TEST_F(Intake, EndsAColumnAtItsFirstEmptyCell) {
  Fill({{"5", "7", "", "9"}, {"0", "0", "0"}, {"", "1"}, {"n.d.", "2"}});
  EXPECT_THAT(WalkColumn(worksheet, 2), ElementsAre("5", "7"));
  EXPECT_THAT(WalkColumn(worksheet, 3), ElementsAre("0", "0", "0"));
  EXPECT_THAT(WalkColumn(worksheet, 4), ElementsAre());
  EXPECT_THAT(WalkColumn(worksheet, 5), ElementsAre("n.d.", "2"));
  EXPECT_THAT(WalkColumn(worksheet, 501), ElementsAre());
}

TEST_F(Intake, ReadsAFullColumn) {
  for (int row = 1; row <= Worksheet::kLastRow; ++row) worksheet.SetValue(2, row, row);
  EXPECT_EQ(WalkColumn(worksheet, 2).size(), 9999u);
}

TEST_F(Intake, NeverTakesTheTitleAsData) {
  worksheet.SetText(2, 0, "17");
  Fill({{"1"}});
  const Column read = ReadDialogColumn(column);
  EXPECT_EQ(read.header, "17");
  EXPECT_THAT(read.values, ElementsAre("1"));
}

TEST_F(Intake, RefusesAColumnNumberOffTheGrid) {
  for (const auto& [text, accepted] : std::initializer_list<std::pair<std::string_view, bool>>{
           {"0", false}, {"-3", false}, {"1", true}, {"31", true}, {"500", true}, {"501", false}}) {
    messages.boxes.clear();
    column_form.Set("column", text);
    if (accepted) {
      EXPECT_NO_THROW(ReadDialogColumn(column)) << text;
    } else {
      EXPECT_THROW(ReadDialogColumn(column), Failure) << text;
      EXPECT_THAT(messages.boxes,
                  ElementsAre("Selected column number should be positive integer =< 30!"));
    }
  }
  column_form.Set("column", "two");
  EXPECT_THROW(ReadDialogColumn(column), Fault);
}

TEST_F(Intake, TakesIdsByPosition) {
  Fill({{"1", "2", "3"}});
  worksheet.SetText(4, 1, "a");
  worksheet.SetText(4, 3, "c");
  column_form.Set("id", "4");
  EXPECT_THAT(ReadColumnWithId(column).ids, ElementsAre("a", "", "c"));
  for (const char* none : {"", "0", "-1"}) {
    column_form.Set("id", none);
    EXPECT_THAT(ReadColumnWithId(column).ids, ElementsAre("", "", ""));
  }
  column_form.Set("id", "x");
  EXPECT_THROW(ReadColumnWithId(column), Fault);
}

TEST_F(Intake, RefusesPairsOfUnequalLength) {
  Fill({{"1", "2"}, {"1"}});
  for (int row = 1; row <= 2; ++row) worksheet.SetText(1, row, "id");
  EXPECT_THROW(ReadPairSingle(pair), Failure);
  EXPECT_THAT(messages.boxes,
              ElementsAre("Unequal number of observations in columns: No analysis"));
}

TEST_F(Intake, NeedsAllThreeEqualitiesOfDuplicates) {
  const test::Columns unequal[] = {{{"1", "2"}, {"1"}, {"1", "2"}, {"1", "2"}},
                                   {{"1", "2"}, {"1", "2"}, {"1", "2"}, {"1"}},
                                   {{"1", "2"}, {"1", "2"}, {"1"}, {"1"}}};
  for (const test::Columns& columns : unequal) {
    worksheet.Clear();
    Fill(columns);
    EXPECT_THROW(ReadPairDuplicate(pair), Failure);
  }
  worksheet.Clear();
  Fill({{"1", "2"}, {"3", "4"}, {"5", "6"}, {"7", "8"}});
  const PairColumns read = ReadPairDuplicate(pair);
  EXPECT_THAT(read.columns[2].values, ElementsAre("5", "6"));
}

TEST_F(Intake, TakesABlankIdFieldAsNoneInTheSingleFormOnly) {
  Fill({{"1"}, {"1"}, {"1"}, {"1"}});
  pair_form.Set("id", "");
  EXPECT_THAT(ReadPairSingle(pair).ids, ElementsAre(""));
  EXPECT_THROW(ReadPairDuplicate(pair), Fault);
  pair_form.Set("id", "0");
  EXPECT_THAT(ReadPairDuplicate(pair).ids, ElementsAre(""));
}

TEST_F(Intake, ReadsAColumnBeyondTheGridAsEmpty) {
  Fill({{"1"}});
  pair_form.Set("id", "501");
  pair_form.Set("second-column", "2");
  EXPECT_THAT(ReadPairSingle(pair).ids, ElementsAre(""));
  pair_form.Set("second-column", "501");
  EXPECT_THROW(ReadPairSingle(pair), Failure);
}

}  // namespace
}  // namespace quorval
