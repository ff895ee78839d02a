#include "formats/worksheet_file.h"

#include <new>
#include <string_view>
#include <utility>

#include "core/file_name.h"
#include "formats/file_error.h"
#include "formats/file_format.h"
#include "formats/regular_file.h"

namespace quorval {
namespace {

using CanUse = bool (*)(const FileFormat&);

const FileFormat& FormatOf(const std::filesystem::path& path, CanUse can_use) {
  const std::string extension = ExtensionOf(path);
  std::string known;
  for (const FileFormat& format : FileFormats()) {
    if (!can_use(format)) continue;
    if (format.extension == extension) return format;
    known.append(" ").append(format.extension);
  }
  throw FileError("the extension is none of" + known);
}

bool IsRead(const FileFormat&) { return true; }
bool IsWritten(const FileFormat& format) { return format.write != nullptr; }

template <class Work>
std::optional<std::string> WhyNot(const std::filesystem::path& path, Work&& work) {
  try {
    work();
    return std::nullopt;
  } catch (const FileError& error) {
    return path.string() + ": " + error.what();
  } catch (const std::bad_alloc&) {
    return path.string() + ": there is not enough memory";
  }
}

}  // namespace

std::optional<std::string> ReadWorksheet(const std::filesystem::path& path, Worksheet& worksheet) {
  return WhyNot(path, [&] {
    const FileFormat& format = FormatOf(path, IsRead);
    RequireRegularFile(path);
    worksheet = format.read(path);
  });
}

std::optional<std::string> WriteGrid(const std::filesystem::path& path, const Grid& grid,
                                     const ExportOptions& options) {
  return WhyNot(path, [&] { WriteGridFile(path, grid, options); });
}

void WriteGridFile(const std::filesystem::path& path, const Grid& grid,
                   const ExportOptions& options) {
  FormatOf(path, IsWritten).write(path, grid, options);
}

Notices LossesOf(const std::filesystem::path& path, const Grid& grid) {
  return LossesOf(grid, CanWrite(path) ? FormatOf(path, IsWritten).limits : kWorkbook);
}

bool CanWrite(const std::filesystem::path& path) {
  return !WhyNot(path, [&] { FormatOf(path, IsWritten); });
}

}  // namespace quorval
