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
  const Texts wls{"wls"}, demings{"deming", "weighted-deming"}, weighted{"weighted-deming"};
  const Texts comparisons{"ols", "wls", "deming", "weighted-deming", "passing-bablok"};
  const Texts difference{"difference"}, precision{"precision"}, chart{"control-chart"};
  const Texts raw{"precision-profile", "trueness-profile", "linearity"};
  const Texts profiles{"precision-profile", "trueness-profile"};
  const Texts imprecision{"precision-profile"}, trueness{"trueness-profile"};
  const Texts detection{"detection-limit"}, samples{"several-samples"};
  const Settings duplicate{{"mode", "duplicate"}}, several{{"mode", "several"}};
  const Settings pairs{{"mode", "pairs"}}, ep17{{"procedure", "b"}};

  const Texts pair{"first-column", "second-column"}, duplicates{"third-column", "fourth-column"};
  const Texts id{"id"}, limit{"outlier-limit"}, ratio{"sd-ratio"}, exponent{"weighting-exponent"};
  const Texts truncation{"truncation-limit"}, span{"start-column", "last-column"};
  const Texts several_limit{"several-outlier-limit"}, levels{"level-column", "sd-column"};
  const Texts means{"true-column", "mean-column"}, sem{"sem-column"};
  const Texts assigned{"value-column", "mean-column", "sd-column"};
  const Texts sd_columns{"dl-column", "loq-column"}, dl{"dl-column"}, loq{"loq-column"};
  const Texts low{"blank-column", "start-column", "last-column"};

  // 64 bits and 32 bits of what a text starts with.
  const Texts below1{"0", "-1", "0.99999999999", "", "y", "1e39"}, from1{"1", "501", "2x", "40000"};
  const Texts no_amount{"0", "-1", "1e-50", "1e39", "", "SD"}, amount{"1e-40", "4 SD"};
  const Texts beyond2{"-0.1", "2.1", "3x", "1e39"}, to2{"0", "2", "2.00000001", ""};
  const Texts negative{"-1", "-1e-30", "1e39"}, from0{"0", "", "-1e-50"};
  // 32 bits and 16 bits of the whole text.
  const Texts no_limit{"0", "-1", "1e-50", "1e39", "", "4 SD"}, any_limit{"1e-40"};
  const Texts outside{"0", "0.5", "501", "500.6", "2x", "40000"}, inside{"1", "0.6", "500", "2.5"};
  const Texts no_column{"0", "0.5", "501", "500.6", "2x", "40000", ""};
  const Texts blank{""}, anything{"", "0", "x"};

  const std::string not_allowed = "Selected column no. not allowed!";
  const std::string thirty = "Selected column no. < 1 or > 30!";
  const std::string grid = "Selected column no. < 1 or > 500!";
  const std::string columns = "Incompatible column selection(s)";
  const std::string option = "Incompatible option value(s)";
  const std::string no_sds = "Negative value for Outlier limit not allowed!";
  const std::string no_power = "Weighting exponent should be between zero and 2 incl.";
  const std::string no_truncation = "Negative value for Lower limit of truncation not allowed";
  const std::string no_dl = "No column no. was selected for DL analysis!";
  const std::string no_loq = "No column no. was selected for LOQ analysis!";
  const std::string no_blank = "No column no. was selected for the blank measurements!";
  const std::string no_start = "No column start no. was selected for low sample measurements!";
  const std::string no_last = "No last column no. was selected for low sample measurements!";
  return {
      {comparisons, {}, pair, below1, not_allowed, from1},
      {comparisons, duplicate, duplicates, below1, not_allowed, from1},
      {comparisons, {}, duplicates, {}, {}, anything},
      {{"ols", "passing-bablok"}, {}, id, {}, {}, anything},
      {{"wls", "deming", "weighted-deming"}, {}, id, {"0", "ID", "1e39"}, not_allowed, {"", "501"}},
      {{"ols"}, {}, limit, no_amount, no_sds, amount},
      {{"wls", "deming", "weighted-deming"}, {}, limit, no_amount, option, amount},
      {demings, {}, ratio, no_amount, option, amount},
      {demings, duplicate, ratio, {}, {}, anything},
      {wls, {}, exponent, beyond2, no_power, to2},
      {weighted, {}, exponent, beyond2, option, to2},
      {wls, {}, truncation, negative, no_truncation, from0},
      {weighted, {}, truncation, negative, option, from0},
      {difference, {}, id, {"501", "ID", "40000"}, columns, {"", "0", "-1", "500"}},
      {difference, {}, pair, no_column, columns, inside},
      {difference, duplicate, duplicates, no_column, columns, inside},
      {difference, {}, duplicates, {}, {}, anything},
      {difference, {}, limit, no_limit, option, any_limit},
      {raw, {}, span, no_column, thirty, inside},
      {raw, {}, limit, no_limit, option, any_limit},
      {profiles, pairs, span, {}, {}, anything},
      {profiles, pairs, limit, {}, {}, anything},
      {imprecision, pairs, levels, no_column, thirty, inside},
      {imprecision, {}, levels, {}, {}, anything},
      {trueness, pairs, means, no_column, thirty, inside},
      {trueness, pairs, sem, {"0", "501", "70000"}, thirty, {"1", "500", "", "x"}},
      {trueness, {}, {"true-column", "mean-column", "sem-column"}, {}, {}, anything},
      {precision, {}, {"column"}, no_column, thirty, inside},
      {precision, {}, limit, no_limit, option, any_limit},
      {precision, {}, {"start-column", "last-column", "several-outlier-limit"}, {}, {}, anything},
      {precision, several, span, no_column, thirty, inside},
      {precision, several, several_limit, no_limit, option, any_limit},
      {precision, several, {"column", "outlier-limit"}, {}, {}, anything},
      {chart, {}, assigned, no_column, grid, inside},
      {chart, {}, {"date-column"}, {}, {}, anything},
      {samples, {}, span, no_column, grid, inside},
      {samples, {}, limit, no_limit, option, any_limit},
      {detection, {}, sd_columns, outside, grid, inside},
      {detection, {}, dl, blank, no_dl, {}},
      {detection, {}, loq, blank, no_loq, {}},
      {detection, {{"dl", "off"}}, dl, {}, {}, anything},
      {detection, {{"loq", "off"}}, loq, {}, {}, anything},
      {detection, {}, low, {}, {}, anything},
      {detection, {}, limit, no_limit, option, any_limit},
      {detection, ep17, low, outside, grid, inside},
      {detection, ep17, {"blank-column"}, blank, no_blank, {}},
      {detection, ep17, {"start-column"}, blank, no_start, {}},
      {detection, ep17, {"last-column"}, blank, no_last, {}},
      {detection, ep17, sd_columns, {}, {}, anything},
      {detection, ep17, limit, no_limit, option, any_limit},
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
