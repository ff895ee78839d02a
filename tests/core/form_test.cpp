#include "core/form.h"

#include <gtest/gtest.h>

namespace quorval {
namespace {

constexpr Choice kKinds[] = {{"plain", "Plain"}, {"weighted", "Weighted"}};
constexpr Field kKind{
    .key = "kind", .kind = FieldKind::kChoice, .initial = "plain", .choices = kKinds};
constexpr Field kLimit{.key = "limit", .initial = "4"};
constexpr Field kPower{.key = "power", .initial = "2", .shown = {When{"kind", "weighted"}}};
constexpr Field kReplicates{.key = "replicates", .initial = "200"};

constexpr Field kInnerFields[] = {kReplicates};
constexpr Dialog kInner{.window = "inner", .title = "Inner", .fields = kInnerFields};

constexpr Field kFields[] = {kKind,
                             kLimit,
                             kPower,
                             {.kind = FieldKind::kNote, .caption = "A note"},
                             {.kind = FieldKind::kButton, .caption = "Options", .opens = &kInner}};
constexpr Rule kRules[] = {{[](const Form& form) { return form.Number(kLimit) <= 0; }, "limit"},
                           {[](const Form& form) { return form.Number(kPower) > 2; }, "power"}};
constexpr Dialog kDialog{.window = "outer", .title = "Outer", .fields = kFields, .rules = kRules};
static_assert(WellFormed(kDialog));

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
  EXPECT_EQ(Raw(form.Number(kLimit)), 2);
  EXPECT_THROW(form.Column(kLimit), Fault);
  form.Set("limit", "none");
  EXPECT_EQ(Raw(form.Number(kLimit)), 0);
  form.Set("limit", "0.1");
  EXPECT_EQ(Raw(form.Number32(kLimit)), 0.10000000149011612);
}

TEST(Form, TellsTheFirstBrokenRule) {
  Form form(kDialog);
  EXPECT_EQ(form.BrokenRule(), nullptr);
  form.Set("power", "2.01");
  EXPECT_EQ(form.BrokenRule()->words, "power");
  form.Set("limit", "-1");
  EXPECT_EQ(form.BrokenRule()->words, "limit");
  form.Set("limit", "1e39");  // beyond 32 bits
  EXPECT_EQ(form.BrokenRule()->words, "limit");
}

}  // namespace
}  // namespace quorval
