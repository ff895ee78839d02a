// What the dialog refuses, where a run stops, and what it tells and goes on.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "difference_runs.h"

namespace quorval::test {
namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;

struct Case {
  std::string_view what;
  Columns columns;
  Settings settings;
  std::vector<std::string> boxes;
};

const Columns kThree{{"1", "2", "3"}, {"2", "2", "4"}, {"1", "3", "5"}, {"2", "4", "5"}};
const std::string kColumns = "Incompatible column selection(s)";
const std::string kUnequal = "Unequal number of observations in columns: No analysis";
const std::string kTooFew = " n < 3: No analysis ";
const std::string kNotPositive = " Negative or zero numbers occurred: No analysis ";
const std::string kNoDispersion = " No dispersion in variables: No analysis ";
const std::string kFault{kDifferenceFault};
const std::string kCorrelation = "Error in correlation computation";
const std::string kOutliers = "Error in outlier evaluation";

// --- Refusals and failures: boxes in order, an empty sheet, no plots

class DifferenceRefuses : public testing::TestWithParam<Case> {};

TEST_P(DifferenceRefuses, WithItsBoxesAndAnEmptySheet) {
  const Transcript told = RunDifference(GetParam().columns, GetParam().settings);
  EXPECT_EQ(told.outcome, Outcome::kRefused) << GetParam().what;
  EXPECT_THAT(told.boxes, ElementsAreArray(GetParam().boxes)) << GetParam().what;
  EXPECT_EQ(told.sheet.DataRowCnt(), 0);
  EXPECT_THAT(told.plots, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Single, DifferenceRefuses,
    testing::Values(
        Case{"columns before the limit",
             kThree,
             {{"first-column", "0"}, {"outlier-limit", "0"}},
             {kColumns}},
        Case{"no data", {}, {}, {kTooFew}},
        Case{"two pairs, one negative", {{"1", "-2"}, {"2", "2"}}, {}, {kTooFew}},
        Case{"unequal columns", {{"1", "2", "3"}, {"1", "2"}}, {}, {kUnequal, kTooFew}},
        Case{"a word among two rows", {{"1", "n.d."}, {"1", "2"}}, {}, {kFault}},
        Case{"a zero x", {{"0", "2", "3"}, {"1", "2", "4"}}, {}, {kNotPositive}},
        Case{"a negative y", {{"1", "2", "3"}, {"1", "-2", "4"}}, {}, {kNotPositive}},
        Case{"a zero, constant limits alone",
             {{"0", "2", "3"}, {"1", "2", "4"}},
             {{"limits", "a"}, {"a-constant", "1"}},
             {kNotPositive}},
        Case{"a zero and no dispersion", {{"0", "0", "0"}, {"1", "2", "4"}}, {}, {kNotPositive}},
        Case{"x all equal", {{"3", "3", "3"}, {"1", "2", "3"}}, {}, {kNoDispersion}},
        Case{"x and y identical", {{"1", "2", "3"}, {"1", "2", "3"}}, {}, {kFault}},
        Case{"a constant difference", {{"1", "2", "3"}, {"3", "4", "5"}}, {}, {kFault}},
        Case{"limit A empty", kThree, {{"limits", "a"}}, {kFault}},
        Case{"limit B a word", kThree, {{"limits", "b"}, {"b-percent", "5%"}}, {kFault}},
        Case{"division point empty",
             kThree,
             {{"limits", "c"}, {"c-constant", "1"}, {"c-percent", "1"}},
             {kFault}},
        Case{"limits before the columns", {{"1", "2", "3"}, {"1"}}, {{"limits", "a"}}, {kFault}},
        Case{"one pair mean, a curve through 0",
             {{"10", "20", "30"}, {"30", "20", "10"}},
             {{"limits", "c"}, {"c-constant", "1"}, {"c-division", "0"}, {"c-percent", "10"}},
             {kFault}}));

const Settings kDuplicate{{"mode", "duplicate"}};

INSTANTIATE_TEST_SUITE_P(
    Duplicate, DifferenceRefuses,
    testing::Values(Case{"two samples",
                         {{"1", "2"}, {"1", "2"}, {"1", "3"}, {"1", "2"}},
                         kDuplicate,
                         {kTooFew}},
                    Case{"unequal by the third test",
                         {{"1", "2", "3"}, {"1", "2", "3"}, {"1", "2"}, {"1", "2"}},
                         kDuplicate,
                         {kUnequal}},
                    Case{"a blank ID field", kThree, {{"mode", "duplicate"}, {"id", ""}}, {kFault}},
                    Case{"a word",
                         {{"1", "2", "3"}, {"1", "2", "3"}, {"1", "n.d.", "3"}, {"1", "2", "3"}},
                         kDuplicate,
                         {kFault}},
                    Case{"means of x all equal",
                         {{"1", "2", "3"}, {"3", "2", "1"}, {"1", "2", "3"}, {"1", "2", "3"}},
                         kDuplicate,
                         {" No dispersion in x: No analysis "}},
                    Case{"X and Y identical",
                         {{"1", "2", "3"}, {"3", "4", "5"}, {"2", "3", "4"}, {"2", "3", "4"}},
                         kDuplicate,
                         {kFault}}));

// --- Runs that tell something, or could, and go on

class DifferenceGoesOn : public testing::TestWithParam<Case> {};

TEST_P(DifferenceGoesOn, ToItsEnd) {
  const Transcript told = RunDifference(GetParam().columns, GetParam().settings);
  EXPECT_EQ(told.outcome, Outcome::kDone) << GetParam().what;
  EXPECT_THAT(told.boxes, ElementsAreArray(GetParam().boxes)) << GetParam().what;
  EXPECT_EQ(told.plots.size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(
    , DifferenceGoesOn,
    testing::Values(
        Case{"no IDs", kThree, {{"id", ""}}, {}}, Case{"ID 0", kThree, {{"id", "0"}}, {}},
        Case{"the last column as ID", kThree, {{"id", "500"}}, {}},
        Case{"ID negative, duplicate", kThree, {{"mode", "duplicate"}, {"id", "-1"}}, {}},
        Case{"columns are rounded halves to even",
             kThree,
             {{"first-column", "2.5"}, {"second-column", "3.4"}},
             {}},
        Case{"identical columns, user limits",
             {{"1", "2", "3"}, {"1", "2", "3"}},
             {{"limits", "b"}, {"b-percent", "1"}},
             {}},
        Case{"one pair mean, the curve beyond the division point",
             {{"10", "20", "30"}, {"30", "20", "10"}},
             {{"limits", "c"}, {"c-constant", "1"}, {"c-division", "-1"}, {"c-percent", "10"}},
             {}},
        Case{"differences of one size",
             {{"10", "20", "30"}, {"12", "18", "32"}},
             {},
             {kCorrelation}},
        Case{"relative differences of one size",
             {{"3", "10", "12"}, {"5", "6", "20"}},
             {},
             {kCorrelation}},
        Case{"differences that only 64 bits tell apart",
             {{"0.1", "0.2", "0.3"}, {"0.2", "0.3", "0.4"}},
             {},
             {kOutliers}}));

TEST(Difference, ShowsACorrelationOf0WhereThereIsNone) {
  const Transcript told = RunDifference({{"10", "20", "30"}, {"12", "18", "32"}});
  EXPECT_EQ(told.Value(24, 2), 0);
  EXPECT_EQ(told.Text(24, 3), " n.s.");
}

TEST(Difference, LeavesTheRowsAboveTheFirstNumberThatBadDecimalsStop) {
  Context context;
  context.NDec = "abc";
  const Transcript told = RunAnalysis(difference::kDifference, kThree, {}, context);
  EXPECT_THAT(told.boxes, ElementsAreArray({kFault}));
  EXPECT_EQ(told.sheet.DataRowCnt(), 11);
}

}  // namespace
}  // namespace quorval::test
