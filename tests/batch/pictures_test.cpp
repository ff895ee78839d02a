#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "batch/program.h"
#include "support/temporary_folder.h"

namespace quorval::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;
using testing::UnorderedElementsAre;

const Arguments kOls{"run", "ols", "--demo", "XY Regression Single"};

Arguments OlsWith(const Arguments& more) {
  Arguments arguments = kOls;
  arguments.insert(arguments.end(), more.begin(), more.end());
  return arguments;
}

#ifdef QUORVAL_PICTURES

std::vector<std::string> FilesIn(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    names.push_back(entry.path().filename());
  return names;
}

TEST(Plots, AreWrittenInEachFormat) {
  const TemporaryFolder folder;
  const std::vector<std::pair<std::string, std::string>> formats{
      {"png", "\x89PNG"}, {"svg", "<?xml"}, {"pdf", "%PDF"}};
  for (const auto& [format, head] : formats) {
    const auto plots = folder / "new" / format;
    const Ended ended = RunProgram(OlsWith({"--plots", plots, "--plot-format", format}));
    EXPECT_EQ(ended.status, 0) << ended.err;
    EXPECT_THAT(FilesIn(plots), UnorderedElementsAre("frmXY1s." + format, "frmRes1s." + format));
    EXPECT_THAT(BytesOf(plots / ("frmXY1s." + format)), StartsWith(head));
  }
  RunProgram(OlsWith({"--plots", folder.path()}));
  EXPECT_THAT(BytesOf(folder / "frmRes1s.png"), StartsWith("\x89PNG"));
}

TEST(Plots, OfARefusedRunAreNone) {
  const TemporaryFolder folder;
  const Ended ended = RunProgram(OlsWith({"--plots", folder.path(), "--set", "xc1=1e39"}));
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(MessagesIn(ended.err), MessageLines({"Error occurred"}));
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(Report, IsOnePdfOfResultsAndPlots) {
  const TemporaryFolder folder;
  const auto report = folder / "report.pdf";
  const Ended ended = RunProgram(OlsWith({"--report", report, "--set", "show-residuals=on"}));
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.err, "");
  const std::string pdf = BytesOf(report);
  EXPECT_THAT(pdf, StartsWith("%PDF"));
  // A page of the plots' bitmaps follows the pages of the sheet.
  EXPECT_THAT(pdf, HasSubstr("/Subtype /Image"));
  EXPECT_THAT(FilesIn(folder.path()), UnorderedElementsAre("report.pdf"));
}

TEST(Pictures, ThatCannotBeWrittenAreNamed) {
  const TemporaryFolder folder;
  const std::string file = folder / "file";
  WriteBytes(file, "");
  const Ended plots = RunProgram(OlsWith({"--plots", file + "/plots"}));
  EXPECT_EQ(plots.status, 2);
  EXPECT_THAT(plots.err, HasSubstr(file + "/plots"));
  const Ended report = RunProgram(OlsWith({"--report", file + "/report.pdf"}));
  EXPECT_EQ(report.status, 2);
  EXPECT_THAT(report.err, HasSubstr(file + "/report.pdf"));
}

#else

TEST(Pictures, AreRefusedByAProgramBuiltWithout) {
  const TemporaryFolder folder;
  for (const char* option : {"--plots", "--report"}) {
    const Ended ended = RunProgram(OlsWith({option, folder / "new"}));
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.out, "");
    EXPECT_THAT(ended.err, HasSubstr(std::string("without pictures: --plots and --report")));
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
  }
}

#endif

}  // namespace
}  // namespace quorval::test
