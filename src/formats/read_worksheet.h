// Reading a worksheet from a file, by the extension of its name.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "core/worksheet.h"

namespace quorval {

// The first row of the file becomes row 0.  Where the file cannot be used the worksheet stays as it
// was, and what is returned says why, naming the file.
std::optional<std::string> ReadWorksheet(const std::filesystem::path& path, Worksheet& worksheet);

}  // namespace quorval
