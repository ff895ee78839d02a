// Reading and writing sheets as files of other programs, by the extension of the file's name.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "core/notice.h"
#include "core/worksheet.h"
#include "formats/export_options.h"

namespace quorval {

// The first row of the file becomes row 0.  Where the file cannot be used the worksheet stays as it
// was, and what is returned says why, naming the file.
std::optional<std::string> ReadWorksheet(const std::filesystem::path& path, Worksheet& worksheet);

// The numbers with all their digits.  The old file stands as it was where it cannot be replaced;
// what is returned says why.
std::optional<std::string> WriteGrid(const std::filesystem::path& path, const Grid& grid,
                                     const ExportOptions& options = {});

// What the file of this name leaves out of the grid, or holds otherwise.
Notices LossesOf(const std::filesystem::path& path, const Grid& grid);

// The same, by a FileError that does not name the file.
void WriteGridFile(const std::filesystem::path& path, const Grid& grid,
                   const ExportOptions& options);

// Whether WriteGrid() knows the extension.
bool CanWrite(const std::filesystem::path& path);

}  // namespace quorval
