// SQLite's handles as owners, its error codes as FileErrors.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "formats/file_error.h"

namespace quorval::sqlite {

struct Close {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Database = std::unique_ptr<sqlite3, Close>;

// In our words where the library's would not tell a user what to do.
inline std::string WordsOf(sqlite3* database, int code) {
  switch (sqlite3_extended_errcode(database)) {
    case SQLITE_BUSY:
      return "another program is writing the file";
    case SQLITE_READONLY_ROLLBACK:
      return "another program broke off while it wrote the file: open the file there first";
    default:
      break;
  }
  switch (code & 0xFF) {
    case SQLITE_NOTADB:
      return "not a project";
    case SQLITE_CORRUPT:
      return "damaged";
    case SQLITE_FULL:
      return "the disk is full";
    default:
      break;
  }
  // That of a failed opening, reading or writing, where the library has kept it.
  if (const int number = sqlite3_system_errno(database)) return quorval::WordsOf(number);
  if ((code & 0xFF) == SQLITE_IOERR) return "the disk is full or cannot be written";
  return sqlite3_errmsg(database);
}

inline void Check(sqlite3* database, int code) {
  if (code == SQLITE_OK || code == SQLITE_DONE || code == SQLITE_ROW) return;
  throw FileError(WordsOf(database, code));
}

inline Database Open(const std::string& name, int flags) {
  sqlite3* database = nullptr;
  const int code = sqlite3_open_v2(name.c_str(), &database, flags | SQLITE_OPEN_NOMUTEX, nullptr);
  Database owner(database);
  Check(database, code);
  return owner;
}

inline void Execute(const Database& database, const char* sql) {
  Check(database.get(), sqlite3_exec(database.get(), sql, nullptr, nullptr, nullptr));
}

// Parameters and columns count as SQLite counts them: parameters from 1, columns from 0.
class Statement {
 public:
  Statement(const Database& database, std::string_view sql) : database_(database.get()) {
    sqlite3_stmt* statement = nullptr;
    Check(database_, sqlite3_prepare_v2(database_, sql.data(), static_cast<int>(sql.size()),
                                        &statement, nullptr));
    statement_.reset(statement);
  }

  void Bind(int parameter, std::int64_t value) {
    Check(database_, sqlite3_bind_int64(statement_.get(), parameter, value));
  }
  void Bind(int parameter, double value) {
    Check(database_, sqlite3_bind_double(statement_.get(), parameter, value));
  }
  void Bind(int parameter, std::nullptr_t) {
    Check(database_, sqlite3_bind_null(statement_.get(), parameter));
  }
  // The text must live until the next Run().
  void Bind(int parameter, std::string_view text) {
    Check(database_, sqlite3_bind_text64(statement_.get(), parameter, text.data(), text.size(),
                                         SQLITE_STATIC, SQLITE_UTF8));
  }
  void BindBlob(int parameter, std::string_view bytes) {
    Check(database_, sqlite3_bind_blob64(statement_.get(), parameter, bytes.data(), bytes.size(),
                                         SQLITE_STATIC));
  }

  // Of a statement that hands out no rows.
  void Run() {
    Check(database_, sqlite3_step(statement_.get()));
    Reset();
  }
  // The next row; false behind the last.
  bool Step() {
    const int code = sqlite3_step(statement_.get());
    Check(database_, code);
    return code == SQLITE_ROW;
  }

  void Reset() { sqlite3_reset(statement_.get()); }

  // SQLITE_INTEGER, SQLITE_FLOAT, SQLITE_TEXT, SQLITE_BLOB or SQLITE_NULL.
  int Type(int column) { return sqlite3_column_type(statement_.get(), column); }
  bool IsNull(int column) { return Type(column) == SQLITE_NULL; }
  std::int64_t Integer(int column) { return sqlite3_column_int64(statement_.get(), column); }
  double Number(int column) { return sqlite3_column_double(statement_.get(), column); }
  std::string_view Text(int column) {
    const auto* text = sqlite3_column_text(statement_.get(), column);
    return text == nullptr ? std::string_view{}
                           : std::string_view(reinterpret_cast<const char*>(text), Size(column));
  }
  std::string_view Blob(int column) {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement_.get(), column));
    return bytes == nullptr ? std::string_view{} : std::string_view(bytes, Size(column));
  }

 private:
  std::size_t Size(int column) {
    return static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column));
  }

  sqlite3* database_;
  std::unique_ptr<sqlite3_stmt, Close> statement_;
};

}  // namespace quorval::sqlite
