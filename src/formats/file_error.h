#pragma once

#include <stdexcept>
#include <string>

namespace quorval {

// Why a file could not be used, in words that need the file's name before them.
struct FileError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// What a system call that failed on a file says by its errno: "the disk is full".
std::string WordsOf(int error_number);

}  // namespace quorval
