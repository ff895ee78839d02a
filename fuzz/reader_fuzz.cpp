// Feeds any bytes to one reader of files: READER is its name, EXTENSION that of the file.
#include <cstdint>

#include "formats/file_error.h"
#include "formats/ods.h"
#include "formats/project_file.h"
#include "formats/separated_values.h"
#include "formats/xls.h"
#include "formats/xlsx.h"
#include "fuzzed_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::filesystem::path path = quorval::fuzz::PathOf(EXTENSION);
  quorval::fuzz::WriteBytes(path, {reinterpret_cast<const char*>(data), size});
  try {
    static_cast<void>(quorval::READER(path));
  } catch (const quorval::FileError&) {
    // What a file that cannot be used must end in.
  }
  return 0;
}
