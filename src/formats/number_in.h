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
  constexpr auto is_blank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
  while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  Number number{};
  const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
  if (parsed.ec != std::errc{} || parsed.ptr != text.data() + text.size()) return std::nullopt;
  return number;
}

}  // namespace quorval
