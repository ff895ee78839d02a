#include <array>
#include <cerrno>
#include <cmath>
#include <fstream>
#include <map>
#include <optional>
#include <string>
#include <system_error>

#include "core/conversion.h"
#include "core/worksheet.h"
#include "formats/project_file.h"
#include "formats/project_schema.h"
#include "formats/sqlite.h"

namespace quorval {
namespace {

using sqlite::Database;
using sqlite::Statement;

constexpr int kLongestValue = 64 << 20;  // bytes of one text or picture
constexpr std::size_t kMostLooks = 100000;
constexpr std::size_t kMostPictures = 1000;

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
  return address + "?immutable=1";
}

// The library would not say why it cannot open a file.
void CheckReadable(const std::filesystem::path& path) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (error) Refuse(("cannot be read: " + WordsOf(error.value())).c_str());
  if (!std::filesystem::is_regular_file(status)) Refuse("cannot be read: it is no ordinary file");
  errno = 0;
  if (!std::ifstream(path)) Refuse(("cannot be read: " + WordsOf(errno)).c_str());
}

// Read-only, without locks and journals of others, and without trust in what the file says.
Database OpenUntrusted(const std::filesystem::path& path) {
  CheckReadable(path);
  Database database = sqlite::Open(Address(path), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
  sqlite3_limit(database.get(), SQLITE_LIMIT_LENGTH, kLongestValue);
  sqlite3_limit(database.get(), SQLITE_LIMIT_SQL_LENGTH, 10000);
  sqlite3_limit(database.get(), SQLITE_LIMIT_ATTACHED, 0);
  sqlite3_db_config(database.get(), SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(database.get(), SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite::Execute(database, "PRAGMA cell_size_check=ON; PRAGMA mmap_size=0");
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
    if (looks.size() == kMostLooks) Refuse("damaged: it holds too many looks");
    looks[look.Integer(0)] = {
        .type = TypeFrom(look.Integer(1)),
        .decimals = InRange<std::uint8_t>(look.Integer(2), 0, 30),
        .bold = look.Integer(3) != 0,
        .italic = look.Integer(4) != 0,
        .overflow = look.Integer(5) != 0,
        .colour = InRange<Colour>(look.Integer(6), 0, kWhite),
        .span_columns = InRange<std::uint16_t>(look.Integer(7), 1, Worksheet::kColumns),
        .span_rows = InRange<std::uint16_t>(look.Integer(8), 1, project_schema::kMostRows),
    };
  }
  return looks;
}

Pictures ReadPictures(const Database& database) {
  Pictures pictures;
  Statement picture(database, "SELECT id, image FROM picture");
  while (picture.Step()) {
    if (pictures.size() == kMostPictures) Refuse("damaged: it holds too many pictures");
    pictures[picture.Integer(0)] = std::make_shared<const std::string>(picture.Blob(1));
  }
  return pictures;
}

template <class Key, class Value>
const Value& Known(const std::map<Key, Value>& values, Key key) {
  const auto found = values.find(key);
  if (found == values.end()) Refuse("damaged: a cell has a look or picture that is missing");
  return found->second;
}

SavedGrid ReadCells(const Database& database) {
  using project_schema::kMostRows;
  const Looks looks = ReadLooks(database);
  const Pictures pictures = ReadPictures(database);
  SavedGrid saved{Grid(Worksheet::kColumns, kMostRows)};
  std::int64_t look_number = 0;
  const CellLook* look = nullptr;
  Statement read(database, "SELECT \"column\", \"row\", text, value, look, picture FROM cell");
  while (read.Step()) {
    const int row = InRange<int>(read.Integer(1), 1, kMostRows);
    Cell& cell = saved.grid.Edit(InRange<int>(read.Integer(0), 1, Worksheet::kColumns), row);
    if (look == nullptr || look_number != read.Integer(4)) {
      look_number = read.Integer(4);
      look = &Known(looks, look_number);
    }
    cell.look = *look;
    const bool has_text = !read.IsNull(2);
    const bool has_value = !read.IsNull(3);
    if (has_value)
      cell.value = Raw(Real(read.Number(3)));
    else if (has_text)
      cell.text = read.Text(2);
    if (!read.IsNull(5)) cell.picture = Known(pictures, read.Integer(5));
    if (has_text || has_value || cell.picture) saved.rows = std::max(saved.rows, row);
  }
  return saved;
}

}  // namespace

bool IsProjectFile(const std::filesystem::path& path) {
  constexpr std::string_view kSignature{"SQLite format 3", 16};
  std::array<char, kSignature.size()> bytes{};
  if (!std::filesystem::is_regular_file(path)) return false;
  std::ifstream file(path, std::ios::binary);
  return file.read(bytes.data(), bytes.size()) &&
         std::string_view(bytes.data(), bytes.size()) == kSignature;
}

SavedGrid ReadProjectFile(const std::filesystem::path& path) {
  const Database database = OpenUntrusted(path);
  CheckSchema(database);
  CheckPages(database);
  try {
    return ReadCells(database);
  } catch (const Fault&) {
    Refuse("damaged: it holds a number that is not finite");
  }
}

}  // namespace quorval
