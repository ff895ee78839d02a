#pragma once

#include <filesystem>

namespace quorval {

// The program's folder, with the manual beside the program.
std::filesystem::path ProgramFolder();

// Where the program writes: its own folder where it can be written, else the user's data folder.
std::filesystem::path AppFolder();

}  // namespace quorval
