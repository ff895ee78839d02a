#include "app/manual.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace quorval {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ManualTest : public testing::Test {
 protected:
  void Write(const std::string& file, const std::string& text) const {
    test::WriteBytes(folder / file, text);
  }

  test::TemporaryFolder folder;
};

std::vector<std::string> FilesOf(const std::vector<ManualHit>& hits) {
  std::vector<std::string> files;
  for (const ManualHit& hit : hits) files.push_back(hit.entry->file);
  return files;
}

TEST_F(ManualTest, ReadsTheContentsAsATree) {
  Write("contents.md",
        "# Quorval\nSome words.\n- [Start](start.md)\n## Regression\n- [OLS](ols.md)\n"
        "  - [Bands](bands.md)\n");
  const Manual manual(folder.path());
  std::vector<std::string> lines;
  for (const ManualEntry& entry : manual.entries())
    lines.push_back(std::to_string(entry.depth) + " " + entry.title + " " + entry.file);
  EXPECT_THAT(lines,
              ElementsAre("0 Start start.md", "0 Regression ", "1 OLS ols.md", "2 Bands bands.md"));
}

TEST_F(ManualTest, FindsThePagesThatHoldEveryWord) {
  Write("contents.md", "- [Worksheet](sheet.md)\n- [Slope tests](slope.md)\n- [Lost](lost.md)\n");
  Write("sheet.md", "# Worksheet\n\nA column ends at its first empty cell. The slope of it.\n");
  Write("slope.md", "# Tests\n\n| row | The Slope b of the line |\nA column.\n");
  const Manual manual(folder.path());
  EXPECT_THAT(FilesOf(manual.Search("SLOPE")), ElementsAre("slope.md", "sheet.md"));
  EXPECT_THAT(FilesOf(manual.Search("column empty")), ElementsAre("sheet.md"));
  EXPECT_THAT(manual.Search("kurtosis"), IsEmpty());
  EXPECT_THAT(manual.Search("  "), IsEmpty());
  EXPECT_EQ(manual.Search("line").front().excerpt, "row | The Slope b of the line |");
}

TEST_F(ManualTest, IsEmptyWithoutContents) {
  EXPECT_THAT(Manual(folder / "none").entries(), IsEmpty());
}

}  // namespace
}  // namespace quorval
