#include "formats/read_worksheet.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "formats/file_error.h"
#include "formats/separated_values.h"

namespace quorval {
namespace {

struct Format {
  std::string_view extension;
  Worksheet (*read)(const std::filesystem::path&);  // throws FileError
};

constexpr Format kFormats[] = {
    {".csv", ReadCommaSeparated},
    {".tsv", ReadTabSeparated},
};

std::string LowerCase(std::string text) {
  std::ranges::transform(text, text.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  });
  return text;
}

const Format& FormatOf(const std::filesystem::path& path) {
  const auto found =
      std::ranges::find(kFormats, LowerCase(path.extension().string()), &Format::extension);
  if (found != std::end(kFormats)) return *found;
  std::string known;
  for (const Format& format : kFormats) known.append(" ").append(format.extension);
  throw FileError("the extension is none of" + known);
}

}  // namespace

std::optional<std::string> ReadWorksheet(const std::filesystem::path& path, Worksheet& worksheet) {
  try {
    worksheet = FormatOf(path).read(path);
    return std::nullopt;
  } catch (const FileError& error) {
    return path.string() + ": " + error.what();
  }
}

}  // namespace quorval
