#include "core/conversion.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace quorval {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t SkipDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && IsDigit(text[at])) ++at;
  return at;
}

std::string_view WithoutLeadingBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

// How many characters from the start of the text (which has no leading blank) are a number.
std::size_t NumberLength(std::string_view text) {
  const std::size_t digits = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
  std::size_t end = SkipDigits(text, digits);
  std::size_t count = end - digits;
  if (end < text.size() && text[end] == '.') {
    const std::size_t point = end;
    end = SkipDigits(text, point + 1);
    count += end - point - 1;
  }
  if (count == 0) return 0;
  if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
    std::size_t exponent = end + 1;
    if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) ++exponent;
    const std::size_t last = SkipDigits(text, exponent);
    if (last > exponent) end = last;
  }
  return end;
}

// A number whose digits are known to be in order.  from_chars says of both ends of the range only
// that it was left; the wider type tells which end.
Real Convert(std::string_view number) {
  if (number.front() == '+') number.remove_prefix(1);
  const char* const end = number.data() + number.size();
  double value = 0;
  if (std::from_chars(number.data(), end, value).ec == std::errc{}) return value;
  long double wide = 0;
  const bool held = std::from_chars(number.data(), end, wide).ec == std::errc{};
  const bool tiny = held ? std::fabs(wide) < 1
                         : number.find("e-") != number.npos || number.find("E-") != number.npos;
  if (!tiny) Raise(Fault::Kind::kOverflow);
  return 0;
}

// The number that the whole text is, blanks aside.
std::optional<std::string_view> WholeNumber(std::string_view text) {
  const std::string_view rest = WithoutLeadingBlanks(text);
  const std::size_t length = NumberLength(rest);
  if (length == 0 || !WithoutLeadingBlanks(rest.substr(length)).empty()) return std::nullopt;
  return rest.substr(0, length);
}

// The shortest digits that read back to the same number of this width; a zero has no sign.
template <class Float>
std::string ShortestDigits(Float value) {
  const Float size = std::fabs(value);
  const bool plain = size == 0 || (size >= Float(1e-5) && size < Float(1e15));
  std::array<char, 64> buffer;
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), size == 0 ? size : value,
                    plain ? std::chars_format::fixed : std::chars_format::scientific);
  return {buffer.data(), end.ptr};
}

}  // namespace

bool IsNumber(std::string_view text) { return WholeNumber(text).has_value(); }

Real ToNumber(std::string_view text) {
  const auto number = WholeNumber(text);
  if (!number) Raise(Fault::Kind::kNotANumber);
  return Convert(*number);
}

Real LeadingNumber(std::string_view text) {
  const std::string_view rest = WithoutLeadingBlanks(text);
  const std::size_t length = NumberLength(rest);
  return length == 0 ? Real(0) : Convert(rest.substr(0, length));
}

bool StartsWithNumber(std::string_view text) {
  return NumberLength(WithoutLeadingBlanks(text)) > 0;
}

int ToInt16(std::string_view text) {
  const Real whole = RoundHalfEven(ToNumber(text));
  using Limits = std::numeric_limits<std::int16_t>;
  if (whole < Limits::min() || whole > Limits::max()) Raise(Fault::Kind::kOverflow);
  return static_cast<int>(Raw(whole));
}

std::uint8_t ToDecimals(std::string_view text) {
  constexpr int kMostDecimals = 30;
  if (!IsNumber(text)) Raise(Fault::Kind::kDecimals);
  const Real decimals = RoundHalfEven(ToNumber(text));
  if (decimals < 0 || decimals > kMostDecimals) Raise(Fault::Kind::kDecimals);
  return static_cast<std::uint8_t>(Raw(decimals));
}

Sample ToNumbers(std::span<const std::string> texts) {
  Sample numbers;
  numbers.reserve(texts.size());
  for (const std::string& text : texts) numbers.push_back(ToNumber(text));
  return numbers;
}

std::string ShortestText(Real value) { return ShortestDigits(Raw(value)); }

std::string NarrowestText(Real value) {
  const auto narrow = static_cast<float>(Raw(value));
  return narrow == Raw(value) ? ShortestDigits(narrow) : ShortestText(value);
}

std::string FixedText(Real value, int decimals) {
  std::array<char, 400> buffer;  // 309 digits, the sign, the point, 30 decimals
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), Raw(value),
                                 std::chars_format::fixed, decimals);
  std::string text(buffer.data(), end.ptr);
  if (text.find_first_not_of("-0.") == std::string::npos && text.front() == '-') text.erase(0, 1);
  return text;
}

Real RoundHalfEven(Real value) { return std::nearbyint(Raw(value)); }

}  // namespace quorval
