// What the user is told, box by box, when a run is refused or fails.
#include <gmock/gmock.h>

#include "analyses/reference/samples.h"

namespace quorval::reference {
namespace {

struct RefusedRun {
  Values values;
  test::Settings settings;
  Values boxes;
};

void ExpectRefused(const std::vector<RefusedRun>& cases) {
  for (std::size_t i = 0; i < cases.size(); ++i) {
    SCOPED_TRACE(i);
    const test::Transcript transcript = RunReference(cases[i].values, cases[i].settings);
    EXPECT_EQ(transcript.outcome, Outcome::kRefused);
    EXPECT_EQ(transcript.boxes, cases[i].boxes);
    EXPECT_TRUE(transcript.plots.empty());
  }
}

Values CountUp(int first, int last) {
  Values values;
  for (int i = first; i <= last; ++i) values.push_back(std::to_string(i));
  return values;
}

TEST(ReferenceIntake, RefusesWhatIsNoSample) {
  const Values twenty = CountUp(1, 20);
  ExpectRefused({
      {CountUp(1, 19), {}, {" N < 20: No data analysis! "}},
      {{}, {}, {" N < 20: No data analysis! "}},
      {Repeated(40, "5.1"), {}, {"No dispersion of reference values"}},
      {Repeated(30, "1", {"1.000000001"}), {}, {"No dispersion of reference values"}},  // 32 bits
      {Repeated(30, "1", {"n.d."}), {}, {"Error"}},
      {{"n.d.", "2"}, {}, {"Error"}},
      {Repeated(30, "1", {"1e39"}), {}, {"Error"}},
      {twenty, {{"column", "x"}}, {"Error"}},
      {twenty, {{"column", ""}}, {"Error"}},
      {twenty, {{"id", "x"}}, {"Error"}},
      {twenty, {{"column", "0"}}, {"Selected column number should be positive integer =< 30!"}},
      {twenty, {{"column", "501"}}, {"Selected column number should be positive integer =< 30!"}},
  });
  for (const char* id : {"", "1", "0", "-3", "600"})
    EXPECT_EQ(RunReference(twenty, {{"id", id}}).outcome, Outcome::kDone) << id;
}

TEST(ReferenceNonparametric, RefusesWhatTheSampleCannotGive) {
  const test::Settings bootstrap{{"percentile-rule", "bootstrap-n-plus-1"}};
  const auto with_replications = [&](const char* text) {
    return test::Settings{{"percentile-rule", "bootstrap-n-half"}, {"replications", text}};
  };
  const Values small = CountUp(1, 38);
  ExpectRefused({
      {small,
       {{"percentile-rule", "simple-n-plus-1"}},
       {"The desired lower percentile is too extreme in relation to sample size!", "Error"}},
      {small, bootstrap, {"Error", "Error"}},
      {small, with_replications("4"), {"No. of bootstrap replications < 5: No analysis!", "Error"}},
      {small,
       with_replications("-1"),
       {"No. of bootstrap replications < 5: No analysis!", "Error"}},
      {small, with_replications(""), {"Error", "Error"}},
      {small, with_replications("many"), {"Error", "Error"}},
      {small, with_replications("32768"), {"Error", "Error"}},
  });
  for (const char* rule : {"simple-n-plus-1", "bootstrap-n-plus-1"})
    EXPECT_EQ(RunReference(CountUp(1, 39), {{"percentile-rule", rule}}).outcome, Outcome::kDone);
  const test::Transcript narrow = RunReference(CountUp(1, 20));  // t = 1.0 and 20.0
  EXPECT_EQ(narrow.Value(13, 2), 1);
  EXPECT_EQ(narrow.Value(15, 2), 20);
  EXPECT_EQ(RunReference(small, with_replications("5")).outcome, Outcome::kDone);
}

TEST(ReferenceParametric, RefusesALimitFirstAndThenNonPositiveNumbers) {
  const std::string limit = "Outlier detection limit should be a positive number of SD\u00B4s";
  const std::string transform = "Transformation not possible on non-positive numbers!";
  const Values from_zero = CountUp(0, 40);
  for (const char* procedure : {"log", "power", "power-modulus"})
    ExpectRefused({
        {from_zero, {{"procedure", procedure}}, {transform}},
        {from_zero, {{"procedure", procedure}, {"outlier-limit", "0"}}, {limit}},
    });
  for (const char* procedure : {"direct", "exponential", "exponential-modulus"}) {
    EXPECT_EQ(RunProcedure(from_zero, procedure).outcome, Outcome::kDone) << procedure;
    for (const char* text : {"", "0", "-2", "four", "2,5", "2 SD", "1e-50"})
      ExpectRefused({{from_zero, {{"procedure", procedure}, {"outlier-limit", text}}, {limit}}});
  }
  EXPECT_EQ(RunReference(from_zero, {{"outlier-limit", "0"}}).outcome, Outcome::kDone);
}

// A sample of two kinds of values, unequally many, has the same skewness whatever the transform.
TEST(ReferenceParametric, TellsThatSymmetryCouldNotBeReached) {
  const std::string power = "Power transformation to symmetry could not be reached";
  const std::string exponential = "Exponential transformation to symmetry could not be reached";
  const std::string two_stage = "Exponential  transformation to symmetry could not be reached";
  const Values two_kinds = Repeated(19, "1", {"2"});
  // Skewed to the left: the search raises them to powers whose cubes leave the 64-bit range.
  const Values huge = Repeated(19, "1e37", {"1e36"});
  const Values far = CountUp(5000, 5030);
  Values far_and_skewed = far, far_and_left = far;
  far_and_skewed.push_back("5090");
  far_and_left.push_back("4940");
  ExpectRefused({
      {two_kinds, {{"procedure", "power"}}, {power, "Error"}},
      {two_kinds, {{"procedure", "exponential"}}, {exponential, "Error"}},
      {two_kinds, {{"procedure", "power-modulus"}}, {power, "Error"}},
      {two_kinds, {{"procedure", "exponential-modulus"}}, {two_stage, "Error"}},
      {huge, {{"procedure", "power"}}, {"Error in skewness sub", power, "Error"}},
      {huge, {{"procedure", "power-modulus"}}, {"Error in skewness sub", power, "Error"}},
      {far_and_left,
       {{"procedure", "exponential"}},
       {"Error in exponential transformation routine", exponential, "Error"}},
      {far_and_skewed,
       {{"procedure", "exponential"}},
       {"Error in skewness sub", exponential, "Error"}},
      {far_and_skewed,
       {{"procedure", "exponential-modulus"}},
       {"Error in skewness sub", two_stage, "Error"}},
  });
}

TEST(ReferenceParametric, TellsWhichRoutineFailed) {
  const auto samples = ReadSamples();
  // A percentile or a limit that has no counterpart on the scale of the data.
  ExpectRefused({
      {samples.at("outliers160"),
       {{"procedure", "exponential-modulus"}},
       {"Error in inverse exponential-modulus function", "Error"}},
      {samples.at("skewed39"),
       {{"procedure", "exponential"}},
       {"Error in exponential-parametric reference interval estimation", "Error"}},
  });
  // The sheet is written by the estimator, so unusable decimals are its failure.
  const std::pair<const char*, const char*> faults[] = {
      {"direct", "Error in parametric reference interval estimation"},
      {"log", "Error in log-parametric reference interval estimation"},
      {"power", "Error in power-parametric reference interval estimation"},
      {"exponential", "Error in exponential-parametric reference interval estimation"},
      {"power-modulus", "Error"},
      {"exponential-modulus", "Error in exponential-modulus transformation"},
  };
  for (const auto& [procedure, fault] : faults) {
    const auto transcript =
        RunReference(samples.at("gauss20"), {{"procedure", procedure}}, WithDecimals("many"));
    EXPECT_EQ(transcript.boxes, (Values{fault, "Error"}));
  }
  EXPECT_EQ(RunReference(samples.at("gauss20"), {}, WithDecimals("-1")).boxes, Values{"Error"});
}

TEST(ReferenceParametric, GoesOnWithoutATestOfNormality) {
  Values values = CountUp(1, 400);
  values.push_back("100000");
  const test::Transcript transcript = RunProcedure(values, "direct");
  EXPECT_EQ(transcript.outcome, Outcome::kDone);
  EXPECT_EQ(transcript.boxes, Values{"Error in Anderson-Darling test"});
  EXPECT_EQ(transcript.Text(20, 1), "  P ");
  EXPECT_EQ(transcript.Text(20, 2), "");
  EXPECT_EQ(transcript.Value(22, 2), 1);
}

TEST(ReferencePlots, FailWithTheHistogram) {
  const Values values = CountUp(1, 30);
  for (const char* procedure : {"nonparametric", "direct", "log"})
    for (const char* count : {"ten", "40000"})
      ExpectRefused({{values,
                      {{"procedure", procedure}, {"classes", "user"}, {"class-count", count}},
                      {"Error in histogram display", "Error"}}});
}

}  // namespace
}  // namespace quorval::reference
