#include "formats/file_format.h"

#include <array>
#include <fstream>

#include "core/file_name.h"
#include "formats/ods.h"
#include "formats/separated_values.h"
#include "formats/xls.h"
#include "formats/xlsx.h"

namespace quorval {
namespace {

// The container of the old format.
bool IsXls(const std::filesystem::path& path) {
  constexpr std::string_view kSignature = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
  std::array<char, kSignature.size()> bytes{};
  std::ifstream file(path, std::ios::binary);
  return file.read(bytes.data(), bytes.size()) &&
         std::string_view(bytes.data(), bytes.size()) == kSignature;
}

// Of separated values the name decides: any text could be some.
bool IsReadable(const std::filesystem::path& path, std::string_view extension) {
  return ExtensionOf(path) == extension && std::ifstream(path).good();
}
bool IsCsv(const std::filesystem::path& path) { return IsReadable(path, ".csv"); }
bool IsTsv(const std::filesystem::path& path) { return IsReadable(path, ".tsv"); }

std::vector<std::string> NameOfFile(const std::filesystem::path& path) { return {path.stem()}; }

// A workbook knows texts from formulas: it needs none of the options.
template <void write(const std::filesystem::path&, const Grid&)>
void Plainly(const std::filesystem::path& path, const Grid& grid, const ExportOptions&) {
  write(path, grid);
}

constexpr FileFormat kFormats[] = {
    {".xls", IsXls, XlsSheetNames, ReadXls, kWorkbook, Plainly<WriteXls>},
    {".xlsx", IsXlsx, XlsxSheetNames, ReadXlsx, kWorkbook, Plainly<WriteXlsx>},
    {".ods", IsOds, OdsSheetNames, ReadOds, kWorkbook},
    {".csv", IsCsv, NameOfFile, ReadCommaSeparated, kSeparatedValues, WriteCommaSeparated},
    {".tsv", IsTsv, NameOfFile, ReadTabSeparated, kSeparatedValues, WriteTabSeparated},
};

}  // namespace

std::span<const FileFormat> FileFormats() { return kFormats; }

}  // namespace quorval
