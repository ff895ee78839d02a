#include "painting/byte_file.h"

#include <fstream>

namespace quorval {

bool WriteBytes(const QByteArray& bytes, const std::filesystem::path& path) {
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), bytes.size());
  file.close();
  return file.good();
}

}  // namespace quorval
