#pragma once

#include <filesystem>

namespace quorval {

// The folder of the program that runs.
std::filesystem::path ProgramFolder();

// What the program brings along: the manual and the verification data.  A build and an installation
// both have it as ../share/quorval, seen from the program's folder.
std::filesystem::path SharedFolder();

}  // namespace quorval
