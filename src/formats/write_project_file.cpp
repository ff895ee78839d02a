#include <algorithm>
#include <string>
#include <vector>

#include "core/conversion.h"
#include "formats/project_file.h"
#include "formats/project_schema.h"
#include "formats/replaced_file.h"
#include "formats/sqlite.h"

namespace quorval {
namespace {

using sqlite::Database;
using sqlite::Statement;

// The database is written once into a file that is there, empty, and then put in place as a whole:
// it needs no journal.
Database Create(const std::filesystem::path& path) {
  Database database = sqlite::Open(path.string(), SQLITE_OPEN_READWRITE);
  sqlite::Execute(database,
                  "PRAGMA page_size=16384; PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF;"
                  "PRAGMA locking_mode=EXCLUSIVE; PRAGMA temp_store=MEMORY; BEGIN");
  using namespace project_schema;
  sqlite::Execute(database, ("PRAGMA application_id=" + std::to_string(kApplicationId)).c_str());
  sqlite::Execute(database, ("PRAGMA user_version=" + std::to_string(kVersion)).c_str());
  for (const Table& table : kTables) sqlite::Execute(database, std::string(table.sql).c_str());
  return database;
}

// Gives each look, or each picture, a number the first time it is met.
template <class Value>
class Numbered {
 public:
  // The number, and whether it is new.
  std::pair<std::int64_t, bool> NumberOf(const Value& value) {
    if (last_ < values_.size() && values_[last_] == value) return {Number(), false};
    last_ = static_cast<std::size_t>(std::ranges::find(values_, value) - values_.begin());
    const bool is_new = last_ == values_.size();
    if (is_new) values_.push_back(value);
    return {Number(), is_new};
  }

 private:
  std::int64_t Number() const { return static_cast<std::int64_t>(last_) + 1; }

  std::vector<Value> values_;
  std::size_t last_ = 0;
};

class Writer {
 public:
  explicit Writer(const Database& database) : database_(database) {}

  void Write(int column, int row, const Cell& cell) {
    cell_.Bind(1, std::int64_t{column});
    cell_.Bind(2, std::int64_t{row});
    if (cell.text.empty()) {
      cell_.Bind(3, nullptr);
    } else {
      cell_.Bind(3, cell.text);
    }
    if (cell.value) {
      cell_.Bind(4, *cell.value);
    } else {
      cell_.Bind(4, nullptr);
    }
    cell_.Bind(5, NumberOf(cell.look));
    if (cell.picture) {
      cell_.Bind(6, NumberOf(cell.picture));
    } else {
      cell_.Bind(6, nullptr);
    }
    cell_.Run();
  }

  void WriteText(int column, int row, std::string_view text) {
    cell_.Bind(1, std::int64_t{column});
    cell_.Bind(2, std::int64_t{row});
    cell_.Bind(3, text);
    cell_.Bind(4, nullptr);
    cell_.Bind(5, NumberOf(CellLook{}));
    cell_.Bind(6, nullptr);
    cell_.Run();
  }

 private:
  std::int64_t NumberOf(const CellLook& look) {
    const auto [number, is_new] = looks_.NumberOf(look);
    if (!is_new) return number;
    int parameter = 0;
    for (std::int64_t part :
         {number, static_cast<std::int64_t>(look.type), std::int64_t{look.decimals},
          std::int64_t{look.bold}, std::int64_t{look.italic}, std::int64_t{look.overflow},
          std::int64_t{look.colour}, std::int64_t{look.span_columns}, std::int64_t{look.span_rows}})
      look_.Bind(++parameter, part);
    look_.Run();
    return number;
  }

  std::int64_t NumberOf(const Picture& picture) {
    const auto [number, is_new] = pictures_.NumberOf(picture);
    if (!is_new) return number;
    picture_.Bind(1, number);
    picture_.BindBlob(2, *picture);
    picture_.Run();
    return number;
  }

  const Database& database_;
  Statement cell_{database_, "INSERT INTO cell VALUES (?, ?, ?, ?, ?, ?)"};
  Statement look_{database_, "INSERT INTO look VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"};
  Statement picture_{database_, "INSERT INTO picture VALUES (?, ?)"};
  Numbered<CellLook> looks_;
  Numbered<Picture> pictures_;
};

// Empty cells of a look of their own count; but those of the first row, grey in every sheet.
bool IsKept(const Cell& cell, int row) {
  return !cell.Empty() || (row > 1 && cell.look != CellLook{});
}

}  // namespace

void WriteProjectFile(const std::filesystem::path& path, const Grid& grid,
                      const TrailingTexts& trailing) {
  ReplacedFile file(path);
  {
    const Database database = Create(file.path());
    Writer writer(database);
    const int rows = grid.DataRowCnt();
    for (int column = 1; column <= grid.Columns(); ++column) {
      const int used = grid.UsedRows(column);
      for (int row = 1; row <= used; ++row)
        if (const Cell& cell = grid.At(column, row); IsKept(cell, row))
          writer.Write(column, row, cell);
    }
    writer.WriteText(1, rows + 1, trailing.first);
    writer.WriteText(1, rows + 2, trailing.second);
    sqlite::Execute(database, "COMMIT");
  }
  file.Commit();
}

}  // namespace quorval
