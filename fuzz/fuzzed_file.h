// The file that a fuzzer writes for its reader, in memory.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace quorval::fuzz {

inline std::filesystem::path PathOf(std::string_view extension) {
  return "/dev/shm/quorval-fuzz-" + std::to_string(getpid()) + std::string(extension);
}

inline void WriteBytes(const std::filesystem::path& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace quorval::fuzz
