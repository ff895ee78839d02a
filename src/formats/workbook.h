// Importing a workbook of another program, step by step, by its content and not by its name.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/worksheet.h"

namespace quorval {

// Whether the file can be opened and is a workbook: Excel's old or new format or OpenDocument; or,
// where its name says so, separated values.
bool IsWorkbook(const std::filesystem::path& path);

// Both throw a FileError.
std::vector<std::string> SheetNames(const std::filesystem::path& path);
Worksheet ReadFirstSheet(const std::filesystem::path& path);

}  // namespace quorval
