#include "formats/replaced_file.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <thread>

#include "formats/file_error.h"
#include "formats/project_file.h"
#include "formats/workbook.h"
#include "formats/worksheet_file.h"
#include "support/temporary_folder.h"

namespace quorval {
namespace {

namespace fs = std::filesystem;
using test::BytesOf;
using test::TemporaryFolder;
using test::WriteBytes;
using testing::HasSubstr;

std::string WhyNotReplaced(const fs::path& path) {
  try {
    ReplaceFile(path, "new");
    return "replaced";
  } catch (const FileError& error) {
    return error.what();
  }
}

TEST(ReplacedFile, RefusesWhatIsProtectedOrNoFile) {
  const TemporaryFolder folder;
  WriteBytes(folder / "read-only", "old");
  chmod((folder / "read-only").c_str(), 0444);
  mkfifo((folder / "pipe").c_str(), 0600);
  fs::create_symlink("/dev/full", folder / "device");
  fs::create_symlink("circle", folder / "circle");
  fs::create_directory(folder / "folder");
  const struct {
    const char* name;
    const char* why;
  } cases[] = {{"read-only", "read-only"},
               {"pipe", "pipe or a device"},
               {"device", "pipe or a device"},
               {"circle", "leads in a circle"},
               {"folder", "folder"},
               {"none/a", "no such file or folder"},
               {"read-only/a", "a file that is no folder"},
               {"none/", "no name"}};
  for (const auto& one : cases)
    EXPECT_THAT(WhyNotReplaced(folder / one.name), HasSubstr(one.why)) << one.name;
  EXPECT_EQ(BytesOf(folder / "read-only"), "old");
  EXPECT_EQ(folder.Count(), 5u);
}

TEST(ReplacedFile, KeepsLinksAndMakesWhatTheyLeadTo) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "data");
  fs::create_symlink("data/there", folder / "dangling");
  fs::create_symlink(folder / "dangling", folder / "second");
  ReplaceFile(folder / "second", "made");
  EXPECT_EQ(BytesOf(folder / "data/there"), "made");
  ReplaceFile(folder / "dangling", "replaced");
  EXPECT_EQ(BytesOf(folder / "data/there"), "replaced");
  EXPECT_TRUE(fs::is_symlink(folder / "dangling") && fs::is_symlink(folder / "second"));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder / "data"), {}), 1);
}

TEST(ReplacedFile, TakesNamesAsLongAsNamesCanBe) {
  const TemporaryFolder folder;
  std::string letters;  // of two bytes, shifted by one so that a cut may fall between them
  while (letters.size() < 250) letters += "\xC2\xB5";
  for (const std::string& name : {std::string(255, 'n'), "n" + letters, letters + ".qvl"}) {
    ReplaceFile(folder / name, "old");
    ReplaceFile(folder / name, "new");
    EXPECT_EQ(BytesOf(folder / name), "new");
  }
  EXPECT_EQ(folder.Count(), 3u);
  EXPECT_THAT(WhyNotReplaced(folder / std::string(256, 'n')), HasSubstr("too long"));
}

TEST(ReplacedFile, HasTheRightsOfTheOldOneOrOfAnyNewOne) {
  const TemporaryFolder folder;
  const auto path = folder / "a";
  const mode_t mask = umask(027);
  ReplaceFile(path, "new");
  umask(mask);
  struct stat made {};
  stat(path.c_str(), &made);
  EXPECT_EQ(made.st_mode & 0777, 0640u);
  chmod(path.c_str(), 0606);
  const bool given = geteuid() == 0 && chown(path.c_str(), 1234, 2345) == 0;
  ReplaceFile(path, "newer");
  stat(path.c_str(), &made);
  EXPECT_EQ(made.st_mode & 0777, 0606u);
  if (given) {
    EXPECT_EQ(std::pair(made.st_uid, made.st_gid), std::pair(1234u, 2345u));
  }
}

// Each clears away what crashed saves left, and must leave the others' files alone.
TEST(ReplacedFile, IsWrittenBySeveralAtOnce) {
  const TemporaryFolder folder;
  const auto path = folder / "a.qvl";
  Worksheet worksheet;
  WriteProjectFile(path, worksheet.grid(), {"name", ""});
  chmod(path.c_str(), 0640);
  std::atomic<int> failures = 0;
  std::vector<std::thread> savers;
  for (int saver = 0; saver < 4; ++saver)
    savers.emplace_back([&] {
      for (int save = 0; save < 50; ++save) try {
          WriteProjectFile(path, worksheet.grid(), {"name", ""});
        } catch (const FileError&) {
          ++failures;
        }
    });
  for (std::thread& saver : savers) saver.join();
  EXPECT_EQ(failures, 0);
  EXPECT_EQ(fs::status(path).permissions(), static_cast<fs::perms>(0640));
  EXPECT_EQ(ReadProjectFile(path).grid.Text(1, 1), "name");
  EXPECT_EQ(folder.Count(), 1u);
}

// A pipe that nobody writes to would be waited for.
TEST(Readers, RefuseWhatIsNoFile) {
  const TemporaryFolder folder;
  for (const char* name : {"a.csv", "a.xls", "a.xlsx", "a.ods", "a.qvl"}) {
    mkfifo((folder / name).c_str(), 0600);
    Worksheet worksheet;
    EXPECT_FALSE(IsWorkbook(folder / name));
    EXPECT_TRUE(ReadWorksheet(folder / name, worksheet).has_value());
    EXPECT_THROW(ReadProjectFile(folder / name), FileError);
  }
}

}  // namespace
}  // namespace quorval
