#pragma once

#include <stdexcept>

namespace quorval {

// Why a file could not be used, in words that need the file's name before them.
struct FileError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace quorval
