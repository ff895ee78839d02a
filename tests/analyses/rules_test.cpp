// What OK refuses and lets pass, of every field that a dialog has a rule for: tests/data/rules.txt.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "analyses/registry.h"
#include "support/data_table.h"

namespace quorval::test {
namespace {

struct RuleCase {
  Words analyses;
  Settings mode;
  Words keys, refused;
  std::string words;
  Words passing;
};

std::vector<RuleCase> Cases() {
  std::vector<RuleCase> cases;
  for (const TableLine& line : ReadTable("rules.txt"))
    cases.push_back({WordsOf(line.name), SettingsOf(line[0]), line[1], line[2],
                     line[3].empty() ? "" : line[3][0], line[4]});
  return cases;
}

// A form that OK lets pass.
Form SoundForm(const Analysis& analysis, const Settings& mode) {
  Form form(*analysis.dialog);
  for (const Field* field : form.fields())
    if (field->key.ends_with("column") && field->initial.empty()) form.Set(field->key, "2");
  for (const auto& [key, text] : mode) form.Set(key, text);
  return form;
}

void ExpectRefused(Form form, const std::string& key, const std::string& text,
                   const std::string& words) {
  form.Set(key, text);
  Notices notices;
  EXPECT_EQ(form.BrokenRule(notices), words) << key << " = " << text;
  ASSERT_EQ(notices.size(), 1U) << key << " = " << text;
  EXPECT_EQ(notices[0].kind, "field");
  EXPECT_THAT(notices[0].text,
              testing::HasSubstr(text.empty() ? "is empty" : "holds \"" + text + "\""));
}

void ExpectPassing(Form form, const std::string& key, const std::string& text) {
  form.Set(key, text);
  Notices notices;
  EXPECT_EQ(form.BrokenRule(notices), "") << key << " = " << text;
  EXPECT_THAT(notices, testing::IsEmpty());
}

TEST(Rules, RefuseWhatLiesOutsideAndLetPassWhatLiesInside) {
  for (const RuleCase& one : Cases())
    for (const std::string& id : one.analyses) {
      SCOPED_TRACE(id);
      const Form sound = SoundForm(*FindAnalysis(id), one.mode);
      for (const std::string& key : one.keys) {
        for (const std::string& text : one.refused) ExpectRefused(sound, key, text, one.words);
        for (const std::string& text : one.passing) ExpectPassing(sound, key, text);
      }
    }
}

TEST(RuleCases, CoverEveryFieldOfEveryRule) {
  std::set<Words> covered;
  for (const RuleCase& one : Cases())
    for (const std::string& id : one.analyses)
      for (const std::string& key : one.keys) covered.insert({id, key, one.words});
  for (const MenuEntry& entry : Analyses()) {
    const Analysis& analysis = *entry.analysis;
    const Form form(*analysis.dialog);
    for (const Rule& rule : analysis.dialog->rules)
      for (const Field* named : rule.Fields()) {
        const Demand& demand = form.Find(named->key)->demand;
        const std::string_view words =
            rule.asks == Rule::Asks::kFilled ? demand.refusal_if_blank : demand.refusal;
        EXPECT_TRUE(covered.contains(
            {std::string(analysis.id), std::string(named->key), std::string(words)}))
            << analysis.id << ": " << named->key;
      }
  }
}

}  // namespace
}  // namespace quorval::test
