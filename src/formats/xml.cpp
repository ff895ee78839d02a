#include "formats/xml.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <system_error>

namespace quorval::xml {

namespace {

// "#65;" or "#x41;", as it stands behind an ampersand.
void CheckNumber(std::string_view reference) {
  constexpr std::uint32_t kLastCharacter = 0x10FFFF;
  constexpr std::size_t kMostDigits = 12;
  std::string_view digits = reference.substr(1, kMostDigits);
  const bool hexadecimal = digits.starts_with('x');
  if (hexadecimal) digits.remove_prefix(1);
  const char* const last = digits.data() + digits.size();
  std::uint32_t character = 0;
  const auto [end, error] = std::from_chars(digits.data(), last, character, hexadecimal ? 16 : 10);
  if (error != std::errc{} || end == last || *end != ';' || character > kLastCharacter)
    throw FileError("the workbook is damaged");
}

}  // namespace

void Attributes::Add(std::string_view name, std::string_view value, bool transient) {
  if (all_.size() == limits::kAttributesOfOne)
    throw FileError("the file holds an element of XML with more than " +
                    std::to_string(limits::kAttributesOfOne) + " attributes");
  all_.emplace_back(name, transient ? std::string_view(kept_.emplace_back(value)) : value);
}

void RefuseBadReferences(std::string_view text) {
  std::size_t checked = 0;  // up to here the next tag is near enough
  for (std::size_t at = text.find('&'); at != text.npos; at = text.find('&', at + 1)) {
    if (text.substr(at + 1).starts_with('#')) CheckNumber(text.substr(at + 1));
    if (at < checked) continue;
    // From the tag that this text follows, which it need not be long behind.
    const std::size_t begin = std::max(checked, text.rfind('<', at) + 1);
    checked = std::min(text.find('<', at), text.size());
    if (checked - begin > limits::kLongestText) RefuseLongText();
  }
}

}  // namespace quorval::xml
