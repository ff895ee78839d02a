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

TEST_F(Intake, NotesWhatTheColumnsHide) {
  Fill({{"5", "7", "", "9", "n.d.", "", "11"}, {}, {"", "1"}, {"1"}});
  worksheet.SetText(5, 0, "17");
  worksheet.SetText(4, 0, "18");
  Notices notices;
  for (int number : {2, 2, 3, 4, 5, 501}) WalkColumn(notices, worksheet, number);
  EXPECT_EQ(
      notices,
      Notices({{"gap",
                "column 2 ends at row 3, its first empty cell; 2 numbers and 1 word below "
                "were not read",
                2, 3},
               {"empty", "column 3 is empty", 3},
               {"gap", "column 4 ends at row 1, its first empty cell; 1 number below was not read",
                4, 1},
               {"title",
                "row 0 of column 5 holds \"17\": it is the column's title and was not read as "
                "a number",
                5, 0},
               {"empty", "the worksheet ends at column 500: column 501 reads as empty", 501}}));
}

TEST_F(Intake, NotesTheWordThatStopsAColumn) {
  const quorval::Column words{.number = 2, .values = {"1", "<0.5", " ", "2", "1e39", "1e999"}};
  const quorval::Column large{.number = 3, .values = {"1", "1e39"}};
  Notices notices;
  EXPECT_THROW(words.Numbers(notices), Fault);
  EXPECT_EQ(large.Numbers(notices).size(), 2U);
  EXPECT_THROW(large.Numbers32(notices), Fault);
  EXPECT_EQ(
      notices,
      Notices({{"word",
                "row 2 of column 2 holds \"<0.5\", which is no number; 1 more word stands "
                "below",
                2, 2},
               {"word", "row 2 of column 3 holds \"1e39\", which is too large a number", 3, 2}}));
}

// IDs belong to rows: a gap among them ends nothing, and an empty column 1, which is the default,
// means none.
TEST_F(Intake, NotesIdsThatAreMissingOrToSpare) {
  Fill({{"1", "2", "3"}, {"1", "2", "3"}});
  ReadPairSingle(pair);
  EXPECT_THAT(pair.notices, testing::IsEmpty());
  for (int row : {1, 3, 5, 6}) worksheet.SetText(1, row, "id");
  ReadPairSingle(pair);
  EXPECT_EQ(
      pair.notices,
      Notices(
          {{"gap", "column 1 holds no ID in 1 of 3 rows with data, the first of them row 2", 1, 2},
           {"length", "column 1 holds 2 IDs below row 3, where the data end", 1, 4}}));
  pair.notices.clear();
  pair_form.Set("id", "9");
  ReadPairSingle(pair);
  EXPECT_EQ(pair.notices, Notices({{"empty", "column 9 is empty", 9}}));
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
