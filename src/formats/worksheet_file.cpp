#include "formats/worksheet_file.h"

#include <iterator>
#include <new>
#include <string_view>
#include <utility>

#include "core/file_name.h"
#include "formats/export_losses.h"
#include "formats/file_error.h"
#include "formats/ods.h"
#include "formats/regular_file.h"
#include "formats/separated_values.h"
#include "formats/xls.h"
#include "formats/xlsx.h"

namespace quorval {
namespace {

// Each throws a FileError.
struct Format {
  std::string_view extension;
  Worksheet (*read)(const std::filesystem::path&);
  void (*write)(const std::filesystem::path&, const Grid&, const ExportOptions&) = nullptr;
};

// A workbook knows texts from formulas: it needs none of the options.
template <void write(const std::filesystem::path&, const Grid&)>
void Plainly(const std::filesystem::path& path, const Grid& grid, const ExportOptions&) {
  write(path, grid);
}

constexpr Format kFormats[] = {
    {".xls", ReadXls, Plainly<WriteXls>},
    {".xlsx", ReadXlsx, Plainly<WriteXlsx>},
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
  } catch (const std::bad_alloc&) {
    return path.string() + ": there is not enough memory";
  }
}

}  // namespace

std::optional<std::string> ReadWorksheet(const std::filesystem::path& path, Worksheet& worksheet) {
  return WhyNot(path, [&] {
    const Format& format = FormatOf(path, IsRead);
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
  const std::string extension = ExtensionOf(path);
  const bool separated = extension == ".csv" || extension == ".tsv";
  return LossesOf(grid, separated ? kSeparatedValues : kWorkbook);
}

bool CanWrite(const std::filesystem::path& path) {
  return !WhyNot(path, [&] { FormatOf(path, IsWritten); });
}

}  // namespace quorval
