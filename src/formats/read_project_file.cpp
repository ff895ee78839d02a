#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <string>
#include <system_error>

#include "core/conversion.h"
#include "core/worksheet.h"
#include "formats/budget.h"
#include "formats/project_file.h"
#include "formats/project_schema.h"
#include "formats/regular_file.h"
#include "formats/sqlite.h"

namespace quorval {
namespace {

using sqlite::Database;
using sqlite::Statement;

[[noreturn]] void Refuse(const char* why) { throw FileError(why); }

// As part of a "file:" address, where three characters have a meaning.
std::string Address(const std::filesystem::path& path) {
  std::string address = "file:";
  for (char c : std::filesystem::absolute(path).string()) {
    if (c == '%') {
      address += "%25";
    } else if (c == '?') {
      address += "%3f";
    } else if (c == '#') {
      address += "%23";
    } else {
      address += c;
    }
  }
  return address;
}

// The library would not say why it cannot open a file.
void CheckReadable(const std::filesystem::path& path) {
  errno = 0;
  if (!std::ifstream(path)) Refuse(("cannot be read: " + WordsOf(errno)).c_str());
}

// Whether the file was left in the mode of a write-ahead log, by the numbers of the versions that
// write and read it in its first page.
bool HasLog(const std::filesystem::path& path) {
  constexpr std::size_t kWriteVersion = 18, kReadVersion = 19;
  constexpr char kLog = 2;
  std::array<char, kReadVersion + 1> head{};
  std::ifstream(path, std::ios::binary).read(head.data(), head.size());
  return head[kWriteVersion] == kLog || head[kReadVersion] == kLog;
}

// Of a log that holds anything the latest changes would be missing.  It is not read: that writes
// into files beside the project, and the program that keeps the log may write at the same time.
void RefuseChangesInLog(const std::filesystem::path& path) {
  std::error_code error;
  const auto size = std::filesystem::file_size(path.string() + "-wal", error);
  if (!error && size > 0)
    Refuse("another program holds changes of the file back: close the file there first");
}

void RefuseChangesSince(std::filesystem::file_time_type time, const std::filesystem::path& path) {
  RefuseChangesInLog(path);
  if (std::filesystem::last_write_time(path) != time)
    Refuse("another program wrote the file while it was read");
}

// A file that its program has left, with nothing in its log, is read as it stands.  Any other is
// read under the lock that keeps others from changing it; it is refused while one of them writes,
// and where one was killed while it wrote.
std::string AddressToRead(const std::filesystem::path& path) {
  if (!HasLog(path)) return Address(path);
  RefuseChangesInLog(path);
  return Address(path) + "?immutable=1";
}

// Read-only, and without trust in what the file says.
Database OpenUntrusted(const std::filesystem::path& path) {
  constexpr int kPatience = 500;  // milliseconds, for another program to end its writing
  Database database = sqlite::Open(AddressToRead(path), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
  sqlite3_busy_timeout(database.get(), kPatience);
  sqlite3_limit(database.get(), SQLITE_LIMIT_LENGTH, limits::kLongestValue);
  sqlite3_limit(database.get(), SQLITE_LIMIT_SQL_LENGTH, 10000);
  sqlite3_limit(database.get(), SQLITE_LIMIT_ATTACHED, 0);
  sqlite3_db_config(database.get(), SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(database.get(), SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite::Execute(database, "PRAGMA cell_size_check=ON; PRAGMA mmap_size=0; BEGIN");
  return database;
}

std::int64_t Pragma(const Database& database, std::string_view sql) {
  Statement statement(database, sql);
  return statement.Step() ? statement.Integer(0) : 0;
}

// That the tables are ours to the letter leaves no view, virtual table or computed column to read.
void CheckSchema(const Database& database) {
  using namespace project_schema;
  if (Pragma(database, "PRAGMA application_id") != kApplicationId) Refuse("not a project");
  if (Pragma(database, "PRAGMA user_version") != kVersion) Refuse("another version");
  Statement count(database, "SELECT count(*) FROM sqlite_schema");
  if (!count.Step() || count.Integer(0) != static_cast<std::int64_t>(kTables.size()))
    Refuse("damaged: its tables are not those of a project");
  Statement find(database, "SELECT 1 FROM sqlite_schema WHERE type = 'table' AND sql = ?");
  for (const Table& table : kTables) {
    find.Bind(1, table.sql);
    if (!find.Step()) Refuse("damaged: its tables are not those of a project");
    find.Reset();
  }
}

void CheckPages(const Database& database) {
  Statement check(database, "PRAGMA quick_check(1)");
  if (!check.Step() || check.Text(0) != "ok") Refuse("damaged");
}

// A column's type binds no value in it: a word may stand among the numbers, and would be taken for
// 0.
void Expect(bool right_kind) {
  if (!right_kind) Refuse("damaged: it holds a value of another kind than its column");
}

std::int64_t WholeIn(Statement& row, int column) {
  Expect(row.Type(column) == SQLITE_INTEGER);
  return row.Integer(column);
}

double NumberIn(Statement& row, int column) {
  Expect(row.Type(column) == SQLITE_FLOAT || row.Type(column) == SQLITE_INTEGER);
  return row.Number(column);
}

std::string_view TextIn(Statement& row, int column) {
  Expect(row.Type(column) == SQLITE_TEXT);
  return row.Text(column);
}

std::string_view BytesIn(Statement& row, int column) {
  Expect(row.Type(column) == SQLITE_BLOB);
  return row.Blob(column);
}

template <class Whole>
Whole InRange(std::int64_t number, std::int64_t least, std::int64_t most) {
  if (number < least || number > most) Refuse("damaged: it holds a number that makes no sense");
  return static_cast<Whole>(number);
}

CellType TypeFrom(std::int64_t number) {
  for (CellType type : {CellType::kEdit, CellType::kPicture, CellType::kNumber})
    if (number == static_cast<std::int64_t>(type)) return type;
  Refuse("damaged: it holds a type of cell that is not known");
}

using Looks = std::map<std::int64_t, CellLook>;
using Pictures = std::map<std::int64_t, Picture>;

Looks ReadLooks(const Database& database) {
  Looks looks;
  Statement look(database, "SELECT * FROM look");
  while (look.Step()) {
    if (looks.size() == limits::kLooks) Refuse("damaged: it holds too many looks");
    looks[WholeIn(look, 0)] = {
        .type = TypeFrom(WholeIn(look, 1)),
        .decimals = InRange<std::uint8_t>(WholeIn(look, 2), 0, 30),
        .bold = WholeIn(look, 3) != 0,
        .italic = WholeIn(look, 4) != 0,
        .overflow = WholeIn(look, 5) != 0,
        .colour = InRange<Colour>(WholeIn(look, 6), 0, kWhite),
        .span_columns = InRange<std::uint16_t>(WholeIn(look, 7), 1, Worksheet::kColumns),
        .span_rows = InRange<std::uint16_t>(WholeIn(look, 8), 1, project_schema::kMostRows),
    };
  }
  return looks;
}

Pictures ReadPictures(const Database& database) {
  Pictures pictures;
  Statement picture(database, "SELECT id, image FROM picture");
  while (picture.Step()) {
    if (pictures.size() == limits::kPictures) Refuse("damaged: it holds too many pictures");
    pictures[WholeIn(picture, 0)] = std::make_shared<const std::string>(BytesIn(picture, 1));
  }
  return pictures;
}

template <class Key, class Value>
const Value& Known(const std::map<Key, Value>& values, Key key) {
  const auto found = values.find(key);
  if (found == values.end()) Refuse("damaged: a cell has a look or picture that is missing");
  return found->second;
}

SavedGrid ReadCells(const Database& database, Budget& budget) {
  using project_schema::kMostRows;
  const Looks looks = ReadLooks(database);
  const Pictures pictures = ReadPictures(database);
  SavedGrid saved{Grid(Worksheet::kColumns, kMostRows)};
  std::int64_t look_number = 0;
  const CellLook* look = nullptr;
  Statement read(database, "SELECT \"column\", \"row\", text, value, look, picture FROM cell");
  while (read.Step()) {
    budget.cells.Take();
    const int column = InRange<int>(WholeIn(read, 0), 1, Worksheet::kColumns);
    const int row = InRange<int>(WholeIn(read, 1), 1, kMostRows);
    Cell cell;
    if (const std::int64_t number = WholeIn(read, 4); look == nullptr || look_number != number) {
      look_number = number;
      look = &Known(looks, number);
    }
    cell.look = *look;
    const bool has_text = !read.IsNull(2);
    const bool has_value = !read.IsNull(3);
    if (has_value) {
      cell.value = Raw(Real(NumberIn(read, 3)));
    } else if (has_text) {
      cell.text = TextIn(read, 2);
      budget.text.Take(cell.text.size());
    }
    if (!read.IsNull(5)) cell.picture = Known(pictures, WholeIn(read, 5));
    if (has_text || has_value || cell.picture) saved.rows = std::max(saved.rows, row);
    saved.grid.Put(column, row, std::move(cell));
  }
  return saved;
}

}  // namespace

bool IsProjectFile(const std::filesystem::path& path) {
  static constexpr char kBytes[] = "SQLite format 3";  // and a NUL
  constexpr std::string_view kSignature(kBytes, sizeof kBytes);
  std::array<char, kSignature.size()> bytes{};
  if (!std::filesystem::is_regular_file(path)) return false;
  std::ifstream file(path, std::ios::binary);
  return file.read(bytes.data(), bytes.size()) &&
         std::string_view(bytes.data(), bytes.size()) == kSignature;
}

SavedGrid ReadProjectFile(const std::filesystem::path& named) {
  RequireRegularFile(named);
  CheckReadable(named);
  const std::filesystem::path path = std::filesystem::canonical(named);  // where its log would be
  const bool has_log = HasLog(path);
  const auto last_written = std::filesystem::last_write_time(path);
  Budget budget(path);
  const Database database = OpenUntrusted(path);
  CheckSchema(database);
  CheckPages(database);
  try {
    SavedGrid saved = ReadCells(database, budget);
    if (has_log) RefuseChangesSince(last_written, path);
    return saved;
  } catch (const Fault&) {
    Refuse("damaged: it holds a number that is not finite");
  }
}

}  // namespace quorval
