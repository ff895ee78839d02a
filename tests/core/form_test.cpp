#include "core/form.h"

#include <gtest/gtest.h>

namespace quorval {
namespace {

constexpr Choice kKinds[] = {{"plain", "Plain"}, {"weighted", "Weighted"}};
constexpr Field kKind{
    .key = "kind", .kind = FieldKind::kChoice, .initial = "plain", .choices = kKinds};
constexpr Field kLimit{
    .key = "limit",
    .caption = "Limit:",
    .initial = "4",
    .demand = {.reading = Reading::kLeadingNumber, .above = 0, .refusal = "limit"}};
constexpr Field kPower{
    .key = "power",
    .initial = "2",
    .shown = {When{"kind", "weighted"}},
    .demand = {.reading = Reading::kTextAsNumber32, .most = 2, .refusal = "power"}};
constexpr Field kReplicates{.key = "replicates", .initial = "200"};

constexpr Field kInnerFields[] = {kReplicates};
constexpr Dialog kInner{.window = "inner", .title = "Inner", .fields = kInnerFields};

constexpr Field kFields[] = {kKind,
                             kLimit,
                             kPower,
                             {.kind = FieldKind::kNote, .caption = "A note"},
                             {.kind = FieldKind::kButton, .caption = "Options", .opens = &kInner}};
bool IsUnlucky(const Form& form) { return form.Is(kKind, "plain") && form.Text(kLimit) == "13"; }
constexpr Rule kRules[] = {
    DemandsOf(kLimit), DemandsOf(kPower), {.broken = IsUnlucky, .refusal = "unlucky"}};
constexpr Dialog kDialog{.window = "outer", .title = "Outer", .fields = kFields, .rules = kRules};
static_assert(WellFormed(kDialog));

constexpr bool WithRule(const Rule& rule) {
  return WellFormed(Dialog{.window = "w", .title = "t", .fields = kFields, .rules = {&rule, 1}});
}
static_assert(!WithRule(DemandsOf(kReplicates)));
static_assert(!WithRule(DemandsOf(kKind)));
static_assert(!WithRule(Filled(kLimit)));
static_assert(!WithRule({.broken = IsUnlucky}));

constexpr bool WithFields(std::span<const Field> fields) {
  return WellFormed(Dialog{.window = "w", .title = "t", .fields = fields});
}
constexpr Field kTwice[] = {kLimit, kLimit};
constexpr Field kUnknownCondition[] = {kPower};
constexpr Field kBadDefault[] = {
    {.key = "kind", .kind = FieldKind::kChoice, .initial = "none", .choices = kKinds}};
constexpr Field kBadCheck[] = {{.key = "check", .kind = FieldKind::kCheck}};
constexpr Field kDeadButton[] = {{.kind = FieldKind::kButton, .caption = "Options"}};
static_assert(!WithFields(kTwice));
static_assert(!WithFields(kUnknownCondition));
static_assert(!WithFields(kBadDefault));
static_assert(!WithFields(kBadCheck));
static_assert(!WithFields(kDeadButton));

TEST(Form, HoldsTheFieldsOfTheDialogsBehindIt) {
  Form form(kDialog);
  ASSERT_EQ(form.fields().size(), 4u);
  EXPECT_EQ(form.Text(kReplicates), "200");
  form.Set("replicates", "500");
  form.Set("limit", "3");
  form.Reset(kInner);
  EXPECT_EQ(form.Text(kReplicates), "200");
  EXPECT_EQ(form.Text(kLimit), "3");
}

TEST(Form, KnowsWhichFieldsAreShown) {
  Form form(kDialog);
  EXPECT_FALSE(form.Holds(kPower.shown));
  form.Set("kind", "weighted");
  EXPECT_TRUE(form.Holds(kPower.shown));
}

TEST(Form, ReadsTheLeadingNumberInDialogsAndTheWholeTextInRuns) {
  Form form(kDialog);
  form.Set("limit", " 2x");
  EXPECT_EQ(Raw(form.LeadingNumber(kLimit)), 2);
  EXPECT_THROW(form.TextAsInt16(kLimit), Fault);
  form.Set("limit", "none");
  EXPECT_EQ(Raw(form.LeadingNumber(kLimit)), 0);
  form.Set("limit", "0.1");
  EXPECT_EQ(Raw(form.LeadingNumber32(kLimit)), 0.10000000149011612);
}

TEST(Form, TellsTheFirstBrokenRule) {
  Form form(kDialog);
  const auto told = [&](std::string_view key, std::string_view text) {
    form.Set(key, text);
    Notices notices;
    const std::string_view words = form.BrokenRule(notices);
    EXPECT_EQ(notices.empty(), words.empty() || words == "unlucky");
    return words;
  };
  EXPECT_EQ(told("power", "2.01"), "");  // hidden
  EXPECT_EQ(told("limit", "13"), "unlucky");
  EXPECT_EQ(told("kind", "weighted"), "power");
  EXPECT_EQ(told("limit", "-1"), "limit");
  EXPECT_EQ(told("limit", "1e39"), "limit");  // beyond 32 bits
  EXPECT_EQ(told("limit", "1e-50"), "power");
  EXPECT_EQ(told("power", "2.00000001"), "");
}

// What was read in part or not at all; a copy of the form is no longer listened to.
TEST(Form, NotesWhatItCouldNotReadWhole) {
  struct Reading {
    const char* text;
    void (*read)(const Form&);
    std::string outcome;
  };
  const auto leading = [](const Form& form) { static_cast<void>(form.LeadingNumber32(kLimit)); };
  const auto whole = [](const Form& form) { static_cast<void>(form.TextAsNumber32(kLimit)); };
  const auto column = [](const Form& form) { static_cast<void>(form.TextAsInt16(kLimit)); };
  for (const auto& [text, read, outcome] : std::initializer_list<Reading>{
           {"1.5", leading, ""},
           {" 2 ", leading, ""},
           {"1,5", leading, R"(holds "1,5" and was read as 1)"},
           {"2x", leading, R"(holds "2x" and was read as 2)"},
           {"four", leading, R"(holds "four", which is no number, and was read as 0)"},
           {"", leading, "is empty and was read as 0"},
           {"1e39", leading, R"(holds "1e39", which is too large)"},
           {"1e39 SD", leading, R"(holds "1e39 SD", which is no number)"},
           {"2.5", whole, ""},
           {"2,5", whole, R"(holds "2,5", which is no number)"},
           {"", whole, "is empty"},
           {"7", column, ""},
           {"7.0", column, ""},
           {"2.4", column, R"(holds "2.4" and was read as 2)"},
           {"2x", column, R"(holds "2x", which is no number)"},
           {"70000", column, R"(holds "70000", which is too large)"}}) {
    Form form(kDialog);
    form.Set("limit", text);
    Notices notices;
    const Form::Listening listening(form, notices);
    try {
      read(form);
    } catch (const Fault& fault) {
      EXPECT_TRUE(fault.noted) << text;
    }
    ASSERT_EQ(notices.size(), outcome.empty() ? 0U : 1U) << text;
    if (outcome.empty()) continue;
    EXPECT_EQ(notices[0].kind, "field");
    EXPECT_EQ(notices[0].text, "the field \"Limit:\" " + outcome);
    const Form copy = form;
    EXPECT_NO_THROW(static_cast<void>(copy.HoldsNumber(kLimit)));
    EXPECT_EQ(notices.size(), 1U) << text;
  }
}

TEST(Form, NamesAFieldByWhatTellsItFromOthers) {
  static constexpr Choice kWays[] = {{"a", "Way A:"}, {"b", "Way B:"}};
  static constexpr When kB{"way", "b"};
  static constexpr Field kNamed[] = {
      {.key = "way", .kind = FieldKind::kChoice, .initial = "a", .choices = kWays},
      {.key = "x", .caption = " x: ", .renamed = kB, .other_caption = "x1:"},
      {.key = "first", .group = "Columns:", .heading = "First sample:", .caption = "No.:"},
      {.key = "second", .group = "Columns:", .heading = "Second sample:", .caption = "No.:"},
      {.key = "beside-a", .beside = {"way", "a"}},
      {.key = "limit-b", .caption = "Limit:", .beside = kB},
      {.key = "limit", .group = "Others:", .caption = "Limit:"},
      {.key = "twin1", .group = "Twins:", .caption = "Twin:"},
      {.key = "twin2", .group = "Twins:", .caption = "Twin:"}};
  static constexpr Dialog kNaming{.window = "w", .title = "t", .fields = kNamed};
  static_assert(WellFormed(kNaming));
  Form form(kNaming);
  form.Set("way", "b");
  const std::string expected[] = {
      "x1:",           "First sample: No.:", "Second sample: No.:",  "Way A:",
      "Way B: Limit:", "Others: Limit:",     "Twins: Twin: (twin1)", "Twins: Twin: (twin2)"};
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    Notices notices;
    const Form::Listening listening(form, notices);
    form.Note(kNamed[i + 1], "");
    EXPECT_EQ(notices[0].text, "the field \"" + expected[i] + "\" is empty");
  }
}

}  // namespace
}  // namespace quorval
