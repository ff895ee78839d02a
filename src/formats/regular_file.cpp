#include "formats/regular_file.h"

#include <cerrno>

#include "formats/file_error.h"

namespace quorval {

void RequireRegularFile(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  switch (status.type()) {
    case std::filesystem::file_type::regular:
      return;
    case std::filesystem::file_type::not_found:
      throw FileError(WordsOf(ENOENT));
    case std::filesystem::file_type::directory:
      throw FileError("it is a folder");
    case std::filesystem::file_type::none:
      throw FileError(error.message());
    default:
      throw FileError("it is no file but a pipe or a device");
  }
}

}  // namespace quorval
