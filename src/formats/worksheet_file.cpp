#include "formats/worksheet_file.h"

#include <iterator>
#include <string_view>
#include <utility>

#include "core/file_name.h"
#include "formats/file_error.h"
#include "formats/ods.h"
#include "formats/separated_values.h"
#include "formats/xls.h"
#include "formats/xlsx.h"

namespace quorval {
namespace {

// Each throws a FileError.
struct Format {
  std::string_view extension;
  Worksheet (*read)(const std::filesystem::path&);
  void (*write)(const std::filesystem::path&, const Grid&) = nullptr;
};

constexpr Format kFormats[] = {
    {".xls", ReadXls, WriteXls},
    {".xlsx", ReadXlsx, WriteXlsx},
    {".ods", ReadOds},
    {".csv", ReadCommaSeparated, WriteCommaSeparated},
    {".tsv", ReadTabSeparated, WriteTabSeparated},
};

using CanUse = bool (*)(const Format&);

const Format& FormatOf(const std::filesystem::path& path, CanUse can_use) {
  const std::string extension = ExtensionOf(path);
  std::string known;
  for (const Format& format : kFormats) {
    if (!can_use(format)) continue;
    if (format.extension == extension) return format;
    known.append(" ").append(format.extension);
  }
  throw FileError("the extension is none of" + known);
}

bool IsRead(const Format& format) { return format.read != nullptr; }
bool IsWritten(const Format& format) { return format.write != nullptr; }

template <class Work>
std::optional<std::string> WhyNot(const std::filesystem::path& path, Work&& work) {
  try {
    work();
    return std::nullopt;
  } catch (const FileError& error) {
    return path.string() + ": " + error.what();
  }
}

}  // namespace

std::optional<std::string> ReadWorksheet(const std::filesystem::path& path, Worksheet& worksheet) {
  return WhyNot(path, [&] { worksheet = FormatOf(path, IsRead).read(path); });
}

std::optional<std::string> WriteGrid(const std::filesystem::path& path, const Grid& grid) {
  return WhyNot(path, [&] { WriteGridFile(path, grid); });
}

void WriteGridFile(const std::filesystem::path& path, const Grid& grid) {
  FormatOf(path, IsWritten).write(path, grid);
}

bool CanWrite(const std::filesystem::path& path) {
  return !WhyNot(path, [&] { FormatOf(path, IsWritten); });
}

}  // namespace quorval
