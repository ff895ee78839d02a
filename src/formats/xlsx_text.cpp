#include "formats/xlsx_text.h"

#include <utf8.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <optional>

namespace quorval {
namespace {

constexpr std::size_t kLength = 7;  // of "_x0001_"

std::optional<std::uint16_t> NumberAt(std::string_view text) {
  if (text.size() < kLength || text[0] != '_' || text[1] != 'x' || text[6] != '_')
    return std::nullopt;
  std::uint16_t number = 0;
  const char* const end = text.data() + 6;
  const auto parsed = std::from_chars(text.data() + 2, end, number, 16);
  if (parsed.ec != std::errc{} || parsed.ptr != end) return std::nullopt;
  return number;
}

bool MustBeNumber(unsigned char c) { return c < 0x20 && c != '\t' && c != '\n'; }

// U+FFFE or U+FFFF in UTF-8.
std::optional<std::uint16_t> NonCharacterAt(std::string_view text) {
  if (text.starts_with("\xEF\xBF\xBE")) return std::uint16_t{0xFFFE};
  if (text.starts_with("\xEF\xBF\xBF")) return std::uint16_t{0xFFFF};
  return std::nullopt;
}

std::string AsNumber(unsigned character) {
  char number[8];
  std::snprintf(number, sizeof number, "_x%04X_", character & 0xFFFF);
  return number;
}

}  // namespace

std::string EncodedXlsxText(std::string_view text) {
  std::string encoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    if (MustBeNumber(c) || (c == '_' && NumberAt(text.substr(i)))) {
      encoded += AsNumber(c);
    } else if (const auto character = c == 0xEF ? NonCharacterAt(text.substr(i)) : std::nullopt) {
      encoded += AsNumber(*character);
      i += 2;
    } else {
      encoded += text[i];
    }
  }
  return encoded;
}

std::string DecodedXlsxText(std::string_view text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto number = NumberAt(text.substr(i));
    if (!number || (*number >= 0xD800 && *number < 0xE000)) {
      decoded += text[i];
      continue;
    }
    utf8::append(char32_t{*number}, std::back_inserter(decoded));
    i += kLength - 1;
  }
  return decoded;
}

}  // namespace quorval
