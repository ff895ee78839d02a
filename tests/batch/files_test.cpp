#include <gmock/gmock.h>
#include <sys/stat.h>

#include <cstdlib>

#include "app/examples.h"
#include "batch/program.h"
#include "support/temporary_folder.h"

namespace quorval::test {
namespace {

using testing::HasSubstr;

// By hand from the printed data of the sets.
TEST(Convert, WritesAnExampleAsSeparatedValues) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunProgram({"convert", "--demo", "Polynomial regression", folder / "a.csv"}).status, 0);
  EXPECT_EQ(BytesOf(folder / "a.csv"),
            ",x,y\n,6,0.029\n,7,0.052\n,8,0.079\n,9,0.125\n,10,0.181\n,11,0.261\n,12,0.425\n"
            ",13,0.738\n");
}

TEST(Convert, BringsEachExampleBackFromEachFormat) {
  for (const Example& example : Examples()) {
    const TemporaryFolder folder;
    const std::string name(example.menu);
    ASSERT_EQ(RunProgram({"convert", "--demo", name, folder / "a.csv"}).status, 0);
    for (const char* file : {"a.qvl", "a.xls", "a.xlsx", "a.tsv"}) {
      ASSERT_EQ(RunProgram({"convert", "--demo", name, folder / file}).status, 0);
      ASSERT_EQ(RunProgram({"convert", folder / file, folder / "back.csv"}).status, 0);
      EXPECT_EQ(BytesOf(folder / "back.csv"), BytesOf(folder / "a.csv")) << name << ", " << file;
    }
  }
}

// Where LibreOffice is there its reading of our workbooks is ours.
TEST(Convert, WritesWorkbooksThatLibreOfficeReads) {
  if (std::system("command -v soffice >/dev/null") != 0) GTEST_SKIP() << "no LibreOffice";
  const TemporaryFolder folder;
  for (const char* file : {"a.xls", "b.xlsx"}) {
    const std::string csv = (folder / file).replace_extension(".csv");
    ASSERT_EQ(RunProgram({"convert", "--demo", "Control Chart Example", folder / file}).status, 0);
    ASSERT_EQ(RunProgram({"convert", folder / file, folder / "ours.csv"}).status, 0);
    const std::string command =
        "HOME=" + folder.path().string() +
        " soffice --headless --convert-to 'csv:Text - txt - csv (StarCalc):44,34,76' --outdir " +
        folder.path().string() + " " + (folder / file).string() + " >/dev/null 2>&1";
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(BytesOf(csv), BytesOf(folder / "ours.csv")) << file;
  }
}

TEST(Convert, SaysWhatCannotBeUsed) {
  const TemporaryFolder folder;
  WriteBytes(folder / "a.csv", "x\n1\n");
  WriteBytes(folder / "a.qvl", "no project");
  const struct {
    Arguments arguments;
    const char* words;
  } cases[] = {
      {{"convert", folder / "a.csv", folder / "b.pdf"}, ".xls .xlsx .csv .tsv"},
      {{"convert", folder / "a.csv", folder / "none/b.xls"}, "none/b.xls"},
      {{"convert", folder / "none.xls", folder / "b.csv"}, "none.xls"},
      {{"convert", folder / "a.qvl", folder / "b.csv"}, "a.qvl"},
      {{"convert", folder / "a.csv"}, "IN OUT"},
      {{"convert", "--demo", "nothing", folder / "b.csv"}, "nothing"},
      {{"data", "turn", folder / "a.csv", "--save", folder / "b.csv"}, "turn"},
      {{"data", "sort", folder / "a.csv"}, "--save"},
      {{"data", "sort", folder / "a.csv", "--set", "row=1", "--save", folder / "b.csv"}, "row"},
  };
  for (const auto& one : cases) {
    const Ended ended = RunProgram(one.arguments);
    EXPECT_EQ(ended.status, 2);
    EXPECT_THAT(ended.err, HasSubstr(one.words));
  }
  EXPECT_EQ(folder.Count(), 2u);
}

TEST(Convert, TellsWhatAFileLeavesOutAndMakesTextsSafe) {
  const TemporaryFolder folder;
  WriteBytes(folder / "a.csv", "=1+1,-2\n");
  ASSERT_EQ(RunProgram({"convert", "--safe-texts", folder / "a.csv", folder / "b.csv"}).status, 0);
  EXPECT_EQ(BytesOf(folder / "b.csv"), "'=1+1,-2\n");
  WriteBytes(folder / "long.csv", std::string(32768, 'x'));
  const Ended ended = RunProgram({"convert", folder / "long.csv", folder / "long.xlsx"});
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.err,
            "note: Texts are longer than the 32767 characters that spreadsheet programs take: "
            "1 cell, A1\n");
}

// "-" and the device are the same; a stream is written to, a pipe with a name is refused.
TEST(Run, WritesItsJsonToStreams) {
  const TemporaryFolder folder;
  const Arguments run = {"run", "ols", "--demo", "XY Regression Single", "--json"};
  const auto to = [&](const std::string& file) {
    Arguments arguments = run;
    arguments.push_back(file);
    return RunProgram(arguments);
  };
  const std::string json = to("-").out;
  EXPECT_EQ(to("/dev/stdout").out, json);
  EXPECT_EQ(to("/dev/stderr").err, json);
  EXPECT_EQ(to("/dev/fd/2").err, json);
  EXPECT_EQ(to("/dev/null").status, 0);
  mkfifo((folder / "pipe").c_str(), 0600);
  for (const std::string& file : {(folder / "pipe").string(), std::string("/dev/full")}) {
    const Ended ended = to(file);
    EXPECT_EQ(ended.status, 2);
    EXPECT_THAT(ended.err, HasSubstr("pipe or a device"));
  }
}

TEST(Data, SavesWhatAToolChanged) {
  const TemporaryFolder folder;
  WriteBytes(folder / "a.csv", "key,second\n3,c1\n1,2\n2,5\n");
  EXPECT_EQ(RunProgram(
                {"data", "sort", folder / "a.csv", "--set", "column=1", "--save", folder / "b.csv"})
                .status,
            0);
  EXPECT_EQ(BytesOf(folder / "b.csv"), "key,second\n1,c1\n2,2\n3,5\n");
}

TEST(Data, TellsARefusalAndWritesNothing) {
  const TemporaryFolder folder;
  WriteBytes(folder / "a.csv", "x\n0\n");
  const Ended ended = RunProgram({"data", "transform", folder / "a.csv", "--set", "column=1",
                                  "--set", "transform=3", "--save", folder / "b.csv"});
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(MessagesIn(ended.err),
            MessageLines({"Non-positive value(s): No transformation", "Error"}));
  EXPECT_EQ(folder.Count(), 1u);
}

TEST(Data, ShowsTheWorksheetWithItsRowsFromZero) {
  const TemporaryFolder folder;
  WriteBytes(folder / "a.csv", "x\n2.345\n");
  const Answered answer =
      RunForJson({"data", "format", folder / "a.csv", "--set", "column=1", "--set", "decimals=1"});
  ASSERT_EQ(answer.status, 0);
  const auto& cells = answer.json["worksheet"]["cells"];
  EXPECT_EQ(cells[0]["row"], 0);
  EXPECT_EQ(cells[1]["text"], "2.3");
  EXPECT_EQ(cells[1]["value"], 2.345);
  EXPECT_EQ(cells[1]["decimals"], "1");
}

TEST(Run, SavesAndExportsItsResults) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunProgram({"run", "ols", "--demo", "XY Regression Single", "--save", folder / "r.qvl",
                        "--export", folder / "r.xlsx"})
                .status,
            0);
  for (const char* file : {"r.qvl", "r.xlsx"}) {
    ASSERT_EQ(RunProgram({"convert", folder / file, folder / "r.csv"}).status, 0);
    EXPECT_THAT(BytesOf(folder / "r.csv"), HasSubstr("\n  Slope b,0.99594326920194")) << file;
  }
}

// A project brings its name; --project overrides it.
TEST(Run, TakesTheNameOfAProject) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunProgram({"convert", "--demo", "XY Regression Single", folder / "a.qvl"}).status, 0);
  EXPECT_THAT(RunProgram({"run", "ols", folder / "a.qvl"}).out,
              HasSubstr("Demo XY Regression Project (single)"));
  EXPECT_THAT(RunProgram({"run", "ols", folder / "a.qvl", "--project", "Mine"}).out,
              HasSubstr("Mine"));
}

}  // namespace
}  // namespace quorval::test
