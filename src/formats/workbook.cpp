#include "formats/workbook.h"

#include <array>
#include <fstream>

#include "core/file_name.h"
#include "formats/file_error.h"
#include "formats/ods.h"
#include "formats/separated_values.h"
#include "formats/xls.h"
#include "formats/xlsx.h"

namespace quorval {
namespace {

struct Kind {
  bool (*is)(const std::filesystem::path&);
  std::vector<std::string> (*names)(const std::filesystem::path&);
  Worksheet (*read)(const std::filesystem::path&);
};

// The container of the old format.
bool IsXls(const std::filesystem::path& path) {
  constexpr std::string_view kSignature = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
  std::array<char, kSignature.size()> bytes{};
  std::ifstream file(path, std::ios::binary);
  return file.read(bytes.data(), bytes.size()) &&
         std::string_view(bytes.data(), bytes.size()) == kSignature;
}

bool IsReadable(const std::filesystem::path& path, std::string_view extension) {
  return ExtensionOf(path) == extension && std::ifstream(path).good() &&
         std::filesystem::is_regular_file(path);
}
bool IsCsv(const std::filesystem::path& path) { return IsReadable(path, ".csv"); }
bool IsTsv(const std::filesystem::path& path) { return IsReadable(path, ".tsv"); }

std::vector<std::string> NameOfFile(const std::filesystem::path& path) { return {path.stem()}; }

constexpr Kind kKinds[] = {
    {IsXls, XlsSheetNames, ReadXls},       {IsXlsx, XlsxSheetNames, ReadXlsx},
    {IsOds, OdsSheetNames, ReadOds},       {IsCsv, NameOfFile, ReadCommaSeparated},
    {IsTsv, NameOfFile, ReadTabSeparated},
};

// Of a regular file: looking into a pipe would wait for ever.
const Kind* KindOf(const std::filesystem::path& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return nullptr;
  for (const Kind& kind : kKinds)
    if (kind.is(path)) return &kind;
  return nullptr;
}

const Kind& KnownKind(const std::filesystem::path& path) {
  const Kind* const kind = KindOf(path);
  if (kind == nullptr) throw FileError("the file is no workbook");
  return *kind;
}

}  // namespace

bool IsWorkbook(const std::filesystem::path& path) { return KindOf(path) != nullptr; }

std::vector<std::string> SheetNames(const std::filesystem::path& path) {
  return KnownKind(path).names(path);
}

Worksheet ReadFirstSheet(const std::filesystem::path& path) { return KnownKind(path).read(path); }

}  // namespace quorval
