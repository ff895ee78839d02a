// Copies of work that was not saved when the program was left, kept for its next start.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "app/project.h"

namespace quorval {

// The copies in a folder, the latest first.
std::vector<std::filesystem::path> RecoveryCopies(const std::filesystem::path& folder);

// What a copy is called where it is offered: by the time at which it was made.
std::string CaptionOf(const std::filesystem::path& copy);

// Writes one more, beside those that are there.  Throws a FileError.
void WriteRecoveryCopy(const std::filesystem::path& folder, const Project& project);

}  // namespace quorval
