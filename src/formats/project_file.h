// The grid's own file, ".qvl": an SQLite database.  docs/file-format.md describes it.
#pragma once

#include <filesystem>
#include <string_view>

#include "core/grid.h"

namespace quorval {

// Two texts of column 1 that stand in the file below the last used row, and not in the sheet: a
// project's name and note.  They are there even when they are empty.
struct TrailingTexts {
  std::string_view first, second;
};

// Replaces the file in one step.  Throws a FileError; the old file then stands as it was.
void WriteProjectFile(const std::filesystem::path& path, const Grid& grid,
                      const TrailingTexts& trailing);

struct SavedGrid {
  Grid grid;
  int rows = 0;  // the last row that the file holds a text, a number or a picture of
};

// Whether the file is a database, as projects are, whatever its name and the rest of it.
bool IsProjectFile(const std::filesystem::path& path);

// Throws a FileError that begins "not a project", "another version", "damaged" or "cannot be read".
SavedGrid ReadProjectFile(const std::filesystem::path& path);

}  // namespace quorval
