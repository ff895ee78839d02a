#pragma once

#include <filesystem>

namespace quorval {

// Throws a FileError where there is no such file, and where it is a folder, a pipe or a device:
// opening these may wait for ever, and reading them may never end.
void RequireRegularFile(const std::filesystem::path& path);

}  // namespace quorval
