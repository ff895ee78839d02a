#pragma once

#include <QByteArray>
#include <filesystem>

namespace quorval {

// Writes a file whole, whatever its name; false when it cannot be written, which leaves an older
// one as it was.
bool WriteBytes(const QByteArray& bytes, const std::filesystem::path& path);

}  // namespace quorval
