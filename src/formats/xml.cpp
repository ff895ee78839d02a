#include "formats/xml.h"

#include <utf8.h>

#include <charconv>
#include <cstdint>
#include <iterator>
#include <system_error>

namespace quorval::xml {

void RefuseBadReferences(std::string_view text) {
  constexpr std::uint32_t kLastCharacter = 0x10FFFF;
  constexpr std::size_t kMostDigits = 12;
  for (std::size_t at = text.find("&#"); at != text.npos; at = text.find("&#", at + 2)) {
    std::string_view digits = text.substr(at + 2, kMostDigits);
    const bool hexadecimal = digits.starts_with('x');
    if (hexadecimal) digits.remove_prefix(1);
    const char* const last = digits.data() + digits.size();
    std::uint32_t character = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), last, character, hexadecimal ? 16 : 10);
    if (error != std::errc{} || end == last || *end != ';' || character > kLastCharacter)
      throw FileError("the workbook is damaged");
  }
}

void AppendEscaped(std::string& xml, std::string_view text) {
  std::string valid;
  if (!utf8::is_valid(text.begin(), text.end())) {
    utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(valid));
    text = valid;
  }
  for (char c : text) {
    switch (c) {
      case '<':
        xml += "&lt;";
        break;
      case '>':
        xml += "&gt;";
        break;
      case '&':
        xml += "&amp;";
        break;
      case '"':
        xml += "&quot;";
        break;
      default:
        xml += c;
    }
  }
}

}  // namespace quorval::xml
