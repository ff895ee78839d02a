// What the command line refuses: exit 2, in words that name it, before anything runs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "batch/program.h"
#include "support/temporary_folder.h"

namespace quorval::test {
namespace {

using testing::HasSubstr;
using testing::Not;

const std::string kDemo = "XY Regression Single";

struct Unusable {
  Arguments arguments;
  std::string named;
};
void PrintTo(const Unusable& line, std::ostream* out) {
  for (const std::string& argument : line.arguments) *out << argument << ' ';
}

class CommandLine : public testing::TestWithParam<Unusable> {};

TEST_P(CommandLine, IsRefusedByName) {
  const Ended ended = RunProgram(GetParam().arguments);
  EXPECT_EQ(ended.status, 2);
  EXPECT_EQ(ended.out, "");
  EXPECT_THAT(ended.err, HasSubstr(GetParam().named));
  EXPECT_THAT(ended.err, Not(HasSubstr("message:")));
}

Arguments OlsWith(const Arguments& more) {
  Arguments arguments{"run", "ols", "--demo", kDemo};
  arguments.insert(arguments.end(), more.begin(), more.end());
  return arguments;
}

INSTANTIATE_TEST_SUITE_P(
    , CommandLine,
    testing::Values(Unusable{{}, "command is required"}, Unusable{{"nonsense"}, "nonsense"},
                    Unusable{{"list", "extra"}, "extra"}, Unusable{{"--nonsense"}, "--nonsense"},
                    Unusable{{"describe"}, "ANALYSIS"}, Unusable{{"describe", "olt"}, "\"olt\""},
                    Unusable{{"run"}, "ANALYSIS"}, Unusable{{"run", "ols"}, "--demo"},
                    Unusable{{"run", "olt", "--demo", kDemo}, "\"olt\""},
                    Unusable{{"run", "ols", "--demo", "XY"}, "\"XY\""},
                    Unusable{{"run", "ols", "no such file.csv"},
                             "no such file.csv: there is no such file"},
                    Unusable{{"run", "ols", "a.csv", "b.csv"}, "b.csv"},
                    Unusable{{"run", "ols", "a.csv", "--demo", kDemo}, "--demo"}));

INSTANTIATE_TEST_SUITE_P(
    OfRun, CommandLine,
    testing::Values(Unusable{OlsWith({"--set", "weight=2"}), "\"weight\""},
                    Unusable{OlsWith({"--set", "mode=triplicate"}), "\"triplicate\""},
                    Unusable{OlsWith({"--set", "mode="}), "single, duplicate"},
                    Unusable{OlsWith({"--set", "show-bands=yes"}), "on, off"},
                    Unusable{OlsWith({"--set", "xc1"}), "KEY=VALUE"},
                    Unusable{OlsWith({"--set", "xc1=5", "--set", "xc3=6"}), "\"xc3\""},
                    Unusable{OlsWith({"--json"}), "--json"},
                    Unusable{OlsWith({"--json", ""}), "--json"},
                    Unusable{OlsWith({"--plot-format", "png"}), "--plots"},
                    Unusable{OlsWith({"--plots", "x", "--plot-format", "bmp"}), "bmp"}));

TEST(Output, ThatCannotBeWrittenIsNamed) {
  const TemporaryFolder folder;
  const std::string nowhere = folder / "no" / "run.json";
  const Ended ended = RunProgram(OlsWith({"--json", nowhere}));
  EXPECT_EQ(ended.status, 2);
  EXPECT_THAT(ended.err, HasSubstr(nowhere));
}

TEST(DataFile, ThatDoesNotFitIsNamed) {
  const TemporaryFolder folder;
  const std::string file = folder / "latin.csv";
  WriteBytes(file, "x,y\n1,\xB5\n");
  const Ended ended = RunProgram({"run", "ols", file});
  EXPECT_EQ(ended.status, 2);
  EXPECT_EQ(ended.out, "");
  EXPECT_THAT(ended.err, HasSubstr("latin.csv: text that is not UTF-8 in row 1"));
}

}  // namespace
}  // namespace quorval::test
