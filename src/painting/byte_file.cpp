#include "painting/byte_file.h"

#include "formats/file_error.h"
#include "formats/replaced_file.h"

namespace quorval {

bool WriteBytes(const QByteArray& bytes, const std::filesystem::path& path) {
  try {
    ReplaceFile(path, {bytes.data(), static_cast<std::size_t>(bytes.size())});
    return true;
  } catch (const FileError&) {
    return false;
  }
}

}  // namespace quorval
