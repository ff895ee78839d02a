#pragma once

#include <filesystem>

namespace quorval {

// Where the program writes: its own folder where it can be written, else the user's data folder.
std::filesystem::path AppFolder();

}  // namespace quorval
