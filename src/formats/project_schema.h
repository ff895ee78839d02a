// The tables of a project file.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace quorval::project_schema {

inline constexpr std::int64_t kApplicationId = 0x51564C31;  // "QVL1"
inline constexpr std::int64_t kVersion = 1;

// The rows of the longest results sheet, and the two below it.
inline constexpr int kMostRows = 20002;

struct Table {
  std::string_view name, sql;
};

inline constexpr std::array<Table, 3> kTables{{
    {"look",
     "CREATE TABLE look (id INTEGER PRIMARY KEY, type INTEGER NOT NULL, decimals INTEGER NOT NULL, "
     "bold INTEGER NOT NULL, italic INTEGER NOT NULL, overflow INTEGER NOT NULL, "
     "colour INTEGER NOT NULL, span_columns INTEGER NOT NULL, span_rows INTEGER NOT NULL)"},
    {"picture", "CREATE TABLE picture (id INTEGER PRIMARY KEY, image BLOB NOT NULL)"},
    {"cell",
     "CREATE TABLE cell (\"column\" INTEGER NOT NULL, \"row\" INTEGER NOT NULL, text TEXT, "
     "value REAL, look INTEGER NOT NULL REFERENCES look, picture INTEGER REFERENCES picture)"},
}};

}  // namespace quorval::project_schema
