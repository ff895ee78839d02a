// Feeds any bytes to one reader of files: READER is its name, EXTENSION that of the file.
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>

#include "formats/file_error.h"
#include "formats/ods.h"
#include "formats/project_file.h"
#include "formats/separated_values.h"
#include "formats/xls.h"
#include "formats/xlsx.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::filesystem::path path =
      "/dev/shm/quorval-fuzz-" + std::to_string(getpid()) + EXTENSION;
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  try {
    static_cast<void>(quorval::READER(path));
  } catch (const quorval::FileError&) {
    // What a file that cannot be used must end in.
  }
  return 0;
}
