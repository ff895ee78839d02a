#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "batch/program.h"

namespace quorval::test {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;
using Json = nlohmann::ordered_json;

TEST(Help, TellsTheWholeProgram) {
  const Ended help = RunProgram({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_EQ(help.err, "");
  for (const char* word : {"list", "describe", "run", "demo", "Exit status", "message: TEXT"})
    EXPECT_THAT(help.out, HasSubstr(word));
  const Ended run = RunProgram({"run", "--help"});
  EXPECT_EQ(run.status, 0);
  for (const char* option : {"--demo", "--set", "--decimals", "--project", "--json", "--plots",
                             "--plot-format", "--report"})
    EXPECT_THAT(run.out, HasSubstr(option));
  EXPECT_THAT(RunProgram({"--version"}).out, AllOf(StartsWith("quorval-batch 5."), EndsWith("\n")));
}

TEST(List, NamesEachAnalysisByItsMenuEntry) {
  EXPECT_THAT(RunProgram({"list"}).out,
              testing::ContainsRegex("(^|\n)ols +&Ord. Least Squares Regression Analysis\n"));
  EXPECT_THAT(Json::parse(RunProgram({"list", "--json"}).out),
              testing::Contains(
                  Json{{"id", "ols"}, {"caption", "&Ord. Least Squares Regression Analysis"}}));
}

TEST(Demo, NamesTheExamplesOfTheMenu) {
  EXPECT_EQ(RunProgram({"demo"}).out,
            "Detection Limit Example\n"
            "Precision profile example\n"
            "Evaluation of linearity example\n"
            "Control Chart Example\n"
            "XY Regression Single\n"
            "XY Regression Duplicate\n"
            "Polynomial regression\n"
            "Reference Interval Example\n"
            "Evaluation of a single diagnostic test\n"
            "Comparison of two diagnostic tests\n");
}

TEST(Describe, ShowsEachFieldLetterByLetter) {
  EXPECT_THAT(RunProgram({"describe", "ols"}).out,
              testing::StartsWith(R"text(ols: "&Ord. Least Squares Regression Analysis"

mode            choice  default "single"     "Select:"
  single                                     "Single (x, y)"
  duplicate                                  "Duplicate (x, y)"
id              text    default "1"          "(Optional:) ID.:"
first-column    text    default "2"          "x:"; "x1:" while mode is duplicate
second-column   text    default "3"          "y:"; "x2:" while mode is duplicate
third-column    text    default "4"          "y1:"; shown while mode is duplicate
fourth-column   text    default "5"          "y2:"; shown while mode is duplicate
xc1             text    default ""           "Select critical value (Xc1):"
xc2             text    default ""           "Select critical value (Xc2):"
outlier-limit   text    default "4"          "Specify number of standard deviations as outlier rejection limit:"
show-residuals  check   default "off"        "Display x, y and residual values (y-(a0+bx))"
show-bands      check   default "off"        "Display coordinates of 95%-confidence bands (at 11 positions)"
plot-bands      check   default "on"         "Show 95%-confidence bands in plot"

Quantities of the results sheet:
  n                  none       whole    "  Number of (x, y) data points"
)text"));
}

TEST(Describe, GivesTheSameAsJson) {
  const Json json = Json::parse(RunProgram({"describe", "ols", "--json"}).out);
  EXPECT_EQ(json["analysis"], "ols");
  EXPECT_EQ(json["title"], "  Ordinary Least-Squares Regression Analysis");
  ASSERT_EQ(json["fields"].size(), 12u);
  EXPECT_EQ(json["fields"][0], Json::parse(R"json({
    "key": "mode", "caption": "", "kind": "choice",
    "choices": [{"word": "single", "caption": "Single (x, y)"
},
                {"word": "duplicate", "caption": "Duplicate (x, y)"}],
    "default": "single", "group": "Select:"
})json"));
  EXPECT_EQ(json["fields"][2], Json::parse(R"json({
    "key": "first-column", "caption": "x:", "kind": "text", "choices": [], "default": "2",
    "group": "Select data columns:", "other-caption": "x1:",
    "other-caption-while": {"mode": "duplicate"}})json"));
  EXPECT_EQ(json["fields"][4]["shown-while"], Json::parse(R"json({"mode": "duplicate"})json"));
  EXPECT_EQ(json["fields"][11]["default"], "on");
  EXPECT_EQ(json["quantities"][13], Json::parse(R"json({"name": "sd_yx", "caption": "  SDyx",
    "unit": "measurand", "width": "64 bits"})json"));
  EXPECT_EQ(json["tables"][1]["name"], "bands");
}

// Every dialog can be described, whatever it is made of.
TEST(Describe, KnowsEveryAnalysisOfTheList) {
  for (const Json& analysis : Json::parse(RunProgram({"list", "--json"}).out)) {
    const std::string id = analysis["id"];
    EXPECT_EQ(RunProgram({"describe", id}).status, 0) << id;
    const Json json = Json::parse(RunProgram({"describe", id, "--json"}).out);
    EXPECT_EQ(json["caption"], analysis["caption"]) << id;
    EXPECT_FALSE(json["fields"].empty()) << id;
  }
}

}  // namespace
}  // namespace quorval::test
