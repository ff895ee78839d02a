#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "batch/program.h"
#include "support/data_folder.h"
#include "support/temporary_folder.h"

namespace quorval::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

// By the folder that stands beside the program.
TEST(Verify, AgreesWithEveryPublishedResult) {
  const Answered answer = RunForJson({"verify"});
  EXPECT_EQ(answer.status, 0);
  EXPECT_EQ(answer.err, "");
  EXPECT_EQ(answer.json["schema"], 1);
  EXPECT_EQ(answer.json["passed"], true);
  EXPECT_EQ(answer.json["failures"], 0);
  std::set<std::string> analyses;
  for (const auto& row : answer.json["rows"]) {
    std::vector<std::string> keys;
    for (const auto& [key, value] : row.items()) keys.push_back(key);
    ASSERT_THAT(keys, ElementsAre("data", "source", "reference", "analysis", "settings", "quantity",
                                  "published", "computed", "digits", "needed", "tolerance", "why",
                                  "passed"));
    EXPECT_EQ(row["passed"], true) << row;
    EXPECT_NE(row["reference"], "") << row;
    EXPECT_NE(row["why"], "") << row;
    analyses.insert(row["analysis"]);
  }
  EXPECT_THAT(analyses,
              testing::IsSupersetOf({"ols", "deming", "polynomial", "precision", "difference",
                                     "diagnostic", "one-sample", "two-samples"}));
}

class FalsifiedFolder : public testing::Test {
 protected:
  // The folder that comes with the program, with one published slope changed in its sixth digit.
  FalsifiedFolder() {
    std::filesystem::copy(PublishedFolder(), folder.path());
    std::string results = BytesOf(folder / "results.csv");
    const auto at = results.find("1.00211681802045");
    WriteBytes(folder / "results.csv", results.replace(at, 7, "1.00212"));
  }
  TemporaryFolder folder;
};

TEST_F(FalsifiedFolder, Fails) {
  const Ended ended =
      RunProgram({"verify", "--data", folder.path(), "--json", folder / "out.json"});
  EXPECT_EQ(ended.status, 1);
  EXPECT_THAT(ended.out, HasSubstr("\n1 of "));
  EXPECT_THAT(ended.out, HasSubstr("  FAIL\n"));
  const auto json = nlohmann::ordered_json::parse(BytesOf(folder / "out.json"));
  EXPECT_EQ(json["passed"], false);
  EXPECT_EQ(json["failures"], 1);
  EXPECT_EQ(json["rows"][0]["quantity"], "slope");
  EXPECT_EQ(json["rows"][0]["passed"], false);
}

TEST(Verify, RefusesAFolderWithoutTables) {
  const TemporaryFolder empty;
  const Ended ended = RunProgram({"verify", "--data", empty.path()});
  EXPECT_EQ(ended.status, 2);
  EXPECT_EQ(ended.out, "");
  EXPECT_THAT(ended.err, HasSubstr("runs.csv"));
}

TEST(Verify, WritesItsReport) {
  const TemporaryFolder folder;
  const Ended ended = RunProgram({"verify", "--report", folder / "report.pdf"});
#ifdef QUORVAL_PICTURES
  EXPECT_EQ(ended.status, 0);
  EXPECT_THAT(BytesOf(folder / "report.pdf"), StartsWith("%PDF"));
#else
  EXPECT_EQ(ended.status, 2);
  EXPECT_THAT(ended.err, HasSubstr("built without pictures"));
#endif
}

}  // namespace
}  // namespace quorval::test
