#include "core/file_name.h"

#include <algorithm>

namespace quorval {
namespace {

constexpr std::size_t kLongestExtension = 5;
// Leaves room for an extension and for what is added to the names of copies.
constexpr std::size_t kLongestName = 200;  // bytes

bool IsLetter(char c) { return c >= 'a' && c <= 'z'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string LowerCase(std::string text) {
  std::ranges::transform(text, text.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return text;
}

bool IsBorne(char c) {
  return static_cast<unsigned char>(c) >= ' ' && c != '\x7F' &&
         std::string_view("/\\:*?\"<>|").find(c) == std::string_view::npos;
}

// A character of UTF-8 is cut off whole.
void Shorten(std::string& name) {
  if (name.size() <= kLongestName) return;
  std::size_t end = kLongestName;
  while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0) == 0x80) --end;
  name.resize(end);
}

// Of the first pattern: ".csv" of "*.csv;*.tsv"; empty of "*".
std::string FirstExtension(const FileFilter& filter) {
  return ExtensionOf(std::filesystem::path(filter.patterns.substr(0, filter.patterns.find(';'))));
}

}  // namespace

std::string ExtensionOf(const std::filesystem::path& path) {
  const std::string extension = LowerCase(path.extension().string());
  const std::string_view letters = std::string_view(extension).substr(extension.empty() ? 0 : 1);
  const bool is_one =
      letters.size() <= kLongestExtension &&
      std::ranges::all_of(letters, [](char c) { return IsLetter(c) || IsDigit(c); }) &&
      std::ranges::any_of(letters, IsLetter);
  return is_one ? extension : std::string{};
}

std::string FileNameOf(std::string_view title) {
  std::string name(title);
  std::ranges::replace_if(
      name, [](char c) { return !IsBorne(c); }, '-');
  if (name.starts_with('.')) name.front() = '-';  // it would be hidden, or a folder
  Shorten(name);
  return name;
}

FileFilter FilterFrom(std::string_view text) {
  const auto bar = text.find('|');
  if (bar == std::string_view::npos) return {text, {}};
  return {text.substr(0, bar), text.substr(bar + 1)};
}

std::filesystem::path CompletedName(const std::filesystem::path& typed,
                                    std::span<const std::string> filters, std::size_t chosen,
                                    std::string_view default_extension) {
  if (typed.filename().empty()) return typed;
  const std::string extension = ExtensionOf(typed);
  const auto knows = [&](const std::string& filter) {
    return (";" + std::string(FilterFrom(filter).patterns) + ";").find("*" + extension + ";") !=
           std::string::npos;
  };
  const bool says_all =
      !extension.empty() && (!default_extension.empty() || std::ranges::any_of(filters, knows));
  if (says_all) return typed;
  std::string wanted(default_extension);
  if (wanted.empty() && chosen < filters.size())
    wanted = FirstExtension(FilterFrom(filters[chosen]));
  return typed.string() + wanted;
}

}  // namespace quorval
