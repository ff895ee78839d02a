#include "formats/project_file.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <random>

#include "core/worksheet.h"
#include "formats/file_error.h"
#include "formats/project_schema.h"
#include "support/temporary_folder.h"

namespace quorval {
namespace {

using test::BytesOf;
using test::TemporaryFolder;
using test::WriteBytes;
using testing::HasSubstr;

// Every property of a cell, at the edges of the sheet and beside them.
Grid Everything() {
  Worksheet worksheet;
  Grid& grid = worksheet.grid();
  grid.SetText(1, 1, "Größe\nµg/L");
  grid.SetText(2, 2, "001");
  grid.SetValue(3, 2, 0.1 + 0.2);
  grid.SetValue(3, 3, 5e-324);
  grid.SetValue(3, 4, -1.7976931348623157e308);
  grid.SetNumber(4, 2, 2.5, 30);
  grid.SetText(500, 10000, std::string("a\0b", 3));
  CellLook& look = grid.Edit(5, 2).look;
  look.bold = look.italic = look.overflow = true;
  look.colour = 0x123456;
  Cell& picture = grid.Edit(6, 3);
  picture.picture = std::make_shared<const std::string>("\x89PNG\0\xFF", 6);
  picture.look.type = CellType::kPicture;
  picture.look.span_columns = 5;
  picture.look.span_rows = 3;
  return grid;
}

// Cell by cell, pictures by their bytes.
void ExpectEqual(const Grid& actual, const Grid& expected) {
  for (int column = 1; column <= expected.Columns(); ++column)
    for (int row = 1; row <= expected.Rows(); ++row) {
      Cell a = actual.At(column, row);
      Cell b = expected.At(column, row);
      if (row == 1 && a.Empty() && b.Empty()) continue;  // grey, and painted anew
      if (a.picture && b.picture) {
        EXPECT_EQ(*a.picture, *b.picture);
        a.picture = b.picture = nullptr;
      }
      if (row == 1) a.look = b.look;
      ASSERT_EQ(a, b) << "column " << column << ", row " << row;
    }
}

TEST(ProjectFile, KeepsWhatTheGridKnowsOfEachCell) {
  const TemporaryFolder folder;
  const Grid grid = Everything();
  WriteProjectFile(folder / "a.qvl", grid, {"name", ""});
  SavedGrid saved = ReadProjectFile(folder / "a.qvl");
  EXPECT_EQ(saved.rows, 10002);
  EXPECT_EQ(saved.grid.Text(1, 10001), "name");
  EXPECT_EQ(saved.grid.Text(1, 10002), "");
  saved.grid.SetRows(10000);
  ExpectEqual(saved.grid, grid);
}

TEST(ProjectFile, OfAnEmptySheetHoldsItsTwoTexts) {
  const TemporaryFolder folder;
  WriteProjectFile(folder / "a b%3f#?.qvl", Worksheet().grid(), {"", ""});
  EXPECT_EQ(ReadProjectFile(folder / "a b%3f#?.qvl").rows, 2);
}

// The tables as docs/file-format.md tells them to other programs.
TEST(ProjectFile, CanBeQueried) {
  const TemporaryFolder folder;
  WriteProjectFile(folder / "a.qvl", Everything(), {"name", "note"});
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open((folder / "a.qvl").c_str(), &database), SQLITE_OK);
  std::string answer;
  const auto take = [](void* to, int, char** values, char**) {
    *static_cast<std::string*>(to) = values[0];
    return 0;
  };
  sqlite3_exec(database,
               "SELECT group_concat(value, ' ') FROM (SELECT cell.value FROM cell JOIN look "
               "ON look.id = cell.look WHERE look.type = 13 AND look.decimals = 30)",
               take, &answer, nullptr);
  EXPECT_EQ(answer, "2.5");
  sqlite3_exec(database, "SELECT text FROM cell WHERE \"column\" = 2 AND \"row\" = 2", take,
               &answer, nullptr);
  EXPECT_EQ(answer, "001");
  sqlite3_close(database);
}

TEST(ProjectFile, ReplacesTheOldOneAndLeavesNothingBeside) {
  const TemporaryFolder folder;
  Worksheet worksheet;
  WriteProjectFile(folder / "a.qvl", worksheet.grid(), {});
  std::filesystem::permissions(
      folder / "a.qvl", std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  std::filesystem::create_symlink("a.qvl", folder / "link.qvl");
  WriteBytes(folder / ".a.qvl.new-crashed", "left by a crash");
  worksheet.SetText(1, 5, "new");
  WriteProjectFile(folder / "link.qvl", worksheet.grid(), {});
  EXPECT_EQ(ReadProjectFile(folder / "a.qvl").grid.Text(1, 6), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.qvl"));
  EXPECT_EQ(folder.Count(), 2u);
  EXPECT_EQ(std::filesystem::status(folder / "a.qvl").permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST(ProjectFile, IsNotWrittenWhereItCannotBe) {
  const TemporaryFolder folder;
  const Worksheet worksheet;
  EXPECT_THROW(WriteProjectFile(folder / "none/a.qvl", worksheet.grid(), {}), FileError);
  EXPECT_THROW(WriteProjectFile("", worksheet.grid(), {}), FileError);
  std::filesystem::create_directory(folder / "folder.qvl");
  EXPECT_THROW(WriteProjectFile(folder / "folder.qvl", worksheet.grid(), {}), FileError);
  EXPECT_EQ(folder.Count(), 1u);
}

// --- Files that are none of ours, or no longer

std::string WhyNot(const std::filesystem::path& path) {
  try {
    ReadProjectFile(path);
    return "read";
  } catch (const FileError& error) {
    return error.what();
  }
}

TEST(ProjectFile, RefusesWhatIsNone) {
  const TemporaryFolder folder;
  const auto refuses = [&](std::string_view bytes) {
    WriteBytes(folder / "a.qvl", bytes);
    return WhyNot(folder / "a.qvl");
  };
  EXPECT_NE(WhyNot(folder / "none.qvl"), "read");
  EXPECT_NE(WhyNot(folder.path()), "read");
  EXPECT_NE(WhyNot("/dev/null"), "read");
  EXPECT_NE(refuses(""), "read");
  EXPECT_NE(refuses("text"), "read");
  EXPECT_NE(refuses(std::string(100000, '\xFF')), "read");
}

TEST(ProjectFile, RefusesEachTruncation) {
  const TemporaryFolder folder;
  WriteProjectFile(folder / "a.qvl", Everything(), {"name", "note"});
  const std::string whole = BytesOf(folder / "a.qvl");
  for (std::size_t size = 0; size < whole.size(); size += 1013) {
    WriteBytes(folder / "b.qvl", whole.substr(0, size));
    EXPECT_NE(WhyNot(folder / "b.qvl"), "read") << size;
  }
}

TEST(ProjectFile, SurvivesAnyBytes) {
  const TemporaryFolder folder;
  WriteProjectFile(folder / "a.qvl", Everything(), {"name", "note"});
  const std::string whole = BytesOf(folder / "a.qvl");
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    std::string damaged = whole;
    for (int i = 0; i < 8; ++i) damaged[random() % damaged.size()] = static_cast<char>(random());
    WriteBytes(folder / "b.qvl", damaged);
    WhyNot(folder / "b.qvl");
  }
}

struct Hostile {
  const char* sql;
  const char* why;
};

TEST(ProjectFile, TrustsNothingInAFile) {
  const Hostile kFiles[] = {
      {"PRAGMA application_id = 1", "not a project"},
      {"PRAGMA user_version = 2", "version"},
      {"DROP TABLE picture", "tables"},
      {"CREATE VIEW more AS SELECT 1", "tables"},
      {"DROP TABLE cell; CREATE VIEW cell AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + "
       "1 FROM n) SELECT i, i, zeroblob(1000000000), 1, 1, NULL FROM n",
       "tables"},
      {"ALTER TABLE cell ADD COLUMN more AS (zeroblob(1000000000))", "tables"},
      {"UPDATE cell SET \"row\" = 20003", "no sense"},
      {"UPDATE cell SET \"column\" = 0", "no sense"},
      {"UPDATE cell SET \"column\" = 4294967297", "no sense"},
      {"UPDATE cell SET value = 9e999 WHERE value NOT NULL", "not finite"},
      {"UPDATE cell SET value = '1,5' WHERE value NOT NULL", "another kind"},
      {"UPDATE cell SET \"row\" = 'one'", "another kind"},
      {"UPDATE cell SET text = x'31' WHERE text NOT NULL", "another kind"},
      {"UPDATE cell SET picture = 'a' WHERE picture NOT NULL", "another kind"},
      {"UPDATE look SET bold = 1.5", "another kind"},
      {"UPDATE look SET type = 12", "type of cell"},
      {"UPDATE look SET decimals = 31", "no sense"},
      {"UPDATE look SET span_rows = 0", "no sense"},
      {"DELETE FROM look", "missing"},
      {"DELETE FROM picture", "missing"},
      {"UPDATE cell SET text = zeroblob(70000000) WHERE text NOT NULL", "too big"},
  };
  for (const Hostile& hostile : kFiles) {
    const TemporaryFolder folder;
    WriteProjectFile(folder / "a.qvl", Everything(), {"name", "note"});
    sqlite3* database = nullptr;
    sqlite3_open((folder / "a.qvl").c_str(), &database);
    ASSERT_EQ(sqlite3_exec(database, hostile.sql, nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
    EXPECT_THAT(WhyNot(folder / "a.qvl"), HasSubstr(hostile.why)) << hostile.sql;
  }
}

// --- Files that another program holds open

struct Held {
  std::string_view what;
  const char* sql;  // of the other program, which then stays
  const char* found;
};

TEST(ProjectFile, IsReadWithAllThatIsCommittedOrNotAtAll) {
  const Held kCases[] = {
      {"not committed", "BEGIN; UPDATE cell SET text = 'new' WHERE text = '001'", "001"},
      {"about to commit", "BEGIN EXCLUSIVE; UPDATE cell SET text = 'new' WHERE text = '001'",
       "another program is writing"},
      {"committed", "UPDATE cell SET text = 'new' WHERE text = '001'", "new"},
      {"committed to a log",
       "PRAGMA journal_mode=WAL; UPDATE cell SET text = 'new' WHERE text = '001'", "holds changes"},
      {"a log without changes",
       "PRAGMA journal_mode=WAL; UPDATE cell SET text = 'new' WHERE text = "
       "'001'; PRAGMA wal_checkpoint(TRUNCATE)",
       "new"},
  };
  for (const Held& held : kCases) {
    const TemporaryFolder folder;
    WriteProjectFile(folder / "a.qvl", Everything(), {"name", "note"});
    sqlite3* database = nullptr;
    sqlite3_open((folder / "a.qvl").c_str(), &database);
    ASSERT_EQ(sqlite3_exec(database, held.sql, nullptr, nullptr, nullptr), SQLITE_OK);
    const auto found = [&]() -> std::string {
      try {
        return ReadProjectFile(folder / "a.qvl").grid.Text(2, 2);
      } catch (const FileError& error) {
        return error.what();
      }
    };
    EXPECT_THAT(found(), HasSubstr(held.found)) << held.what;
    sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_close(database);
    EXPECT_EQ(found(), "new") << held.what << ", and closed";
    EXPECT_EQ(folder.Count(), 1u) << held.what;
  }
}

// A program that was killed while it wrote leaves pages of both states, and a journal to undo it.
TEST(ProjectFile, IsRefusedHalfWritten) {
  const TemporaryFolder folder;
  WriteProjectFile(folder / "a.qvl", Everything(), {"name", "note"});
  sqlite3* database = nullptr;
  sqlite3_open((folder / "a.qvl").c_str(), &database);
  ASSERT_EQ(sqlite3_exec(database,
                         "PRAGMA cache_size=1; BEGIN; UPDATE cell SET text = 'new';"
                         "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT 99)"
                         "INSERT INTO picture SELECT 9 + i, zeroblob(9999) FROM n",
                         nullptr, nullptr, nullptr),
            SQLITE_OK);
  for (const char* end : {"", "-journal"})
    WriteBytes((folder / "killed.qvl").string() + end, BytesOf((folder / "a.qvl").string() + end));
  sqlite3_close(database);
  EXPECT_THAT(WhyNot(folder / "killed.qvl"), HasSubstr("broke off"));
}

// Several cells of one place: a foreign program may write them, and the last one stands.
TEST(ProjectFile, ReadsWordsWhereNumbersAreExpected) {
  const TemporaryFolder folder;
  WriteProjectFile(folder / "a.qvl", Everything(), {"name", "note"});
  sqlite3* database = nullptr;
  sqlite3_open((folder / "a.qvl").c_str(), &database);
  sqlite3_exec(database, "INSERT INTO cell VALUES (2, 2, 7, NULL, 1, NULL)", nullptr, nullptr,
               nullptr);
  sqlite3_close(database);
  EXPECT_EQ(ReadProjectFile(folder / "a.qvl").grid.Text(2, 2), "7");
}

}  // namespace
}  // namespace quorval
