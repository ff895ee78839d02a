// What OK refuses and lets pass, of every field that a dialog has a rule for.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "analyses/registry.h"
#include "support/transcript.h"

namespace quorval::test {
namespace {

using Texts = std::vector<std::string>;

struct RuleCase {
  Texts analyses;
  Settings mode;
  Texts keys;
  Texts refused;
  std::string words;
  Texts passing;
};

std::vector<RuleCase> Cases() {
  const Texts comparisons{"ols", "wls", "deming", "weighted-deming", "passing-bablok"};
  const Texts pair{"first-column", "second-column"}, duplicates{"third-column", "fourth-column"};
  const Texts span{"start-column", "last-column"}, limit{"outlier-limit"};
  const Settings duplicate{{"mode", "duplicate"}}, several{{"mode", "several"}},
      pairs{{"mode", "pairs"}}, ep17{{"procedure", "b"}};
  const std::string column = "Selected column no. not allowed!";
  const std::string thirty = "Selected column no. < 1 or > 30!";
  const std::string worksheet = "Selected column no. < 1 or > 500!";
  const std::string columns = "Incompatible column selection(s)";
  const std::string option = "Incompatible option value(s)";
  // 64 bits and 32 bits of what a text starts with; 16 bits and 32 bits of the whole text.
  const Texts below1{"0", "-1", "0.99999999999", "", "y", "1e39"}, from1{"1", "501", "2x", "40000"};
  const Texts no_amount{"0", "-1", "1e-50", "1e39", "", "SD"}, amount{"1e-40", "4 SD"};
  const Texts outside{"0", "0.5", "501", "500.6", "2x", "40000"}, inside{"1", "0.6", "500", "2.5"};
  const Texts outside_or_blank{"0", "0.5", "501", "500.6", "2x", "40000", ""};
  const Texts no_limit{"0", "-1", "1e-50", "1e39", "", "4 SD"}, any_limit{"1e-40"};
  const Texts exponent{"weighting-exponent"}, beyond2{"-0.1", "2.1", "3x", "1e39"},
      to2{"0", "2", "2.00000001", ""};
  const Texts truncation{"truncation-limit"}, negative{"-1", "-1e-30", "1e39"},
      other{"0", "", "-1e-50"};
  return {
      {comparisons, {}, pair, below1, column, from1},
      {comparisons, {}, duplicates, {}, {}, {"0"}},
      {comparisons, duplicate, duplicates, below1, column, from1},
      {{"ols", "passing-bablok"}, {}, {"id"}, {}, {}, {"", "0", "ID"}},
      {{"wls", "deming", "weighted-deming"}, {}, {"id"}, {"0", "ID", "1e39"}, column, {"", "501"}},
      {{"ols"}, {}, limit, no_amount, "Negative value for Outlier limit not allowed!", amount},
      {{"wls", "deming", "weighted-deming"}, {}, limit, no_amount, option, amount},
      {{"deming", "weighted-deming"}, {}, {"sd-ratio"}, no_amount, option, amount},
      {{"deming", "weighted-deming"}, duplicate, {"sd-ratio"}, {}, {}, {"0"}},
      {{"wls"},
       {},
       exponent,
       beyond2,
       "Weighting exponent should be between zero and 2 incl.",
       to2},
      {{"weighted-deming"}, {}, exponent, beyond2, option, to2},
      {{"wls"},
       {},
       truncation,
       negative,
       "Negative value for Lower limit of truncation not allowed",
       other},
      {{"weighted-deming"}, {}, truncation, negative, option, other},
      {{"difference"}, {}, {"id"}, {"501", "ID", "40000"}, columns, {"", "0", "-1", "500"}},
      {{"difference"}, {}, pair, outside_or_blank, columns, inside},
      {{"difference"}, {}, duplicates, {}, {}, {"0"}},
      {{"difference"}, duplicate, duplicates, outside_or_blank, columns, inside},
      {{"difference", "precision", "precision-profile", "trueness-profile", "linearity",
        "detection-limit", "several-samples"},
       {},
       limit,
       no_limit,
       option,
       any_limit},
      {{"precision-profile", "trueness-profile", "linearity"},
       {},
       span,
       outside_or_blank,
       thirty,
       inside},
      {{"precision"}, {}, {"column"}, outside_or_blank, thirty, inside},
      {{"precision"}, {}, {"start-column", "last-column", "several-outlier-limit"}, {}, {}, {"0"}},
      {{"precision"}, several, span, outside_or_blank, thirty, inside},
      {{"precision"}, several, {"several-outlier-limit"}, no_limit, option, any_limit},
      {{"precision"}, several, {"column", "outlier-limit"}, {}, {}, {"0"}},
      {{"precision-profile", "trueness-profile"},
       pairs,
       {"start-column", "last-column", "outlier-limit"},
       {},
       {},
       {"0"}},
      {{"precision-profile"}, {}, {"level-column", "sd-column"}, {}, {}, {"0"}},
      {{"precision-profile"},
       pairs,
       {"level-column", "sd-column"},
       outside_or_blank,
       thirty,
       inside},
      {{"trueness-profile"}, {}, {"true-column", "mean-column", "sem-column"}, {}, {}, {"0"}},
      {{"trueness-profile"},
       pairs,
       {"true-column", "mean-column"},
       outside_or_blank,
       thirty,
       inside},
      {{"trueness-profile"},
       pairs,
       {"sem-column"},
       {"0", "501", "70000"},
       thirty,
       {"1", "500", "", "x"}},
      {{"control-chart"},
       {},
       {"value-column", "mean-column", "sd-column"},
       outside_or_blank,
       worksheet,
       inside},
      {{"control-chart"}, {}, {"date-column"}, {}, {}, {"0", "x", ""}},
      {{"several-samples"}, {}, span, outside_or_blank, worksheet, inside},
      {{"detection-limit"}, {}, {"dl-column", "loq-column"}, outside, worksheet, inside},
      {{"detection-limit"},
       {},
       {"dl-column"},
       {""},
       "No column no. was selected for DL analysis!",
       {}},
      {{"detection-limit"},
       {},
       {"loq-column"},
       {""},
       "No column no. was selected for LOQ analysis!",
       {}},
      {{"detection-limit"}, {{"dl", "off"}}, {"dl-column"}, {}, {}, {"", "0"}},
      {{"detection-limit"}, {{"loq", "off"}}, {"loq-column"}, {}, {}, {"", "0"}},
      {{"detection-limit"}, {}, {"blank-column", "start-column", "last-column"}, {}, {}, {"", "0"}},
      {{"detection-limit"}, ep17, {"dl-column", "loq-column"}, {}, {}, {"", "0"}},
      {{"detection-limit"},
       ep17,
       {"blank-column", "start-column", "last-column"},
       outside,
       worksheet,
       inside},
      {{"detection-limit"},
       ep17,
       {"blank-column"},
       {""},
       "No column no. was selected for the blank measurements!",
       {}},
      {{"detection-limit"},
       ep17,
       {"start-column"},
       {""},
       "No column start no. was selected for low sample measurements!",
       {}},
      {{"detection-limit"},
       ep17,
       {"last-column"},
       {""},
       "No last column no. was selected for low sample measurements!",
       {}},
  };
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
  std::set<Texts> covered;
  for (const RuleCase& one : Cases())
    for (const std::string& id : one.analyses)
      for (const std::string& key : one.keys) covered.insert({id, key, one.words});
  for (const MenuEntry& entry : Analyses()) {
    const Analysis& analysis = *entry.analysis;
    const Form form(*analysis.dialog);
    for (const Rule& rule : analysis.dialog->rules)
      for (const Field* named : rule.fields) {
        if (named == nullptr) continue;
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
