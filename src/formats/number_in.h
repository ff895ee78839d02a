// A number as the XML of a workbook writes it.
#pragma once

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

namespace quorval {

// The whole text's number, blanks around it left out; none of "1,5", "12 mg", "" or one that the
// type cannot hold.
template <class Number>
std::optional<Number> NumberIn(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == text.npos) return std::nullopt;
  text = text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  Number number{};
  const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
  if (parsed.ec != std::errc{} || parsed.ptr != text.data() + text.size()) return std::nullopt;
  return number;
}

}  // namespace quorval
