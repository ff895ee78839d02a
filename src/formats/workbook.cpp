#include "formats/workbook.h"

#include "formats/file_error.h"
#include "formats/file_format.h"

namespace quorval {
namespace {

// Of a regular file: looking into a pipe would wait for ever.
const FileFormat* FormatHeldBy(const std::filesystem::path& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return nullptr;
  for (const FileFormat& format : FileFormats())
    if (format.holds(path)) return &format;
  return nullptr;
}

const FileFormat& KnownFormat(const std::filesystem::path& path) {
  const FileFormat* const format = FormatHeldBy(path);
  if (format == nullptr) throw FileError("the file is no workbook");
  return *format;
}

}  // namespace

bool IsWorkbook(const std::filesystem::path& path) { return FormatHeldBy(path) != nullptr; }

std::vector<std::string> SheetNames(const std::filesystem::path& path) {
  return KnownFormat(path).sheet_names(path);
}

Worksheet ReadFirstSheet(const std::filesystem::path& path) { return KnownFormat(path).read(path); }

}  // namespace quorval
