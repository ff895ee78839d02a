#include "app/digits_of_agreement.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <stdexcept>
#include <string>

namespace quorval {
namespace {

constexpr int kDigitsOfZero = 15;

// A number as it is printed: "-0.32458E-05".
struct Printed {
  double value = 0;
  int digits = 0;         // significant ones
  double last_place = 1;  // what a one in the last printed place is worth
};

Printed ReadPrinted(std::string_view text) {
  Printed printed;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, printed.value);
  if (error != std::errc() || stop != end || !std::isfinite(printed.value))
    throw std::runtime_error("\"" + std::string(text) + "\" is no number");
  const auto exponent_at = std::min(text.find_first_of("eE"), text.size());
  const std::string_view mantissa = text.substr(0, exponent_at);
  const auto first = mantissa.find_first_of("123456789");
  for (std::size_t i = first; i < mantissa.size(); ++i) printed.digits += mantissa[i] != '.';
  const auto point = mantissa.find('.');
  const auto decimals = point == mantissa.npos ? 0 : static_cast<int>(mantissa.size() - point - 1);
  const int exponent =
      exponent_at == text.size() ? 0 : std::stoi(std::string(text.substr(exponent_at + 1)));
  printed.last_place = std::pow(10.0, exponent - decimals);
  return printed;
}

}  // namespace

double DigitsOfAgreement(std::string_view published, double computed) {
  const Printed printed = ReadPrinted(published);
  const double error = std::fabs(computed - printed.value);
  const int most = printed.value == 0 ? kDigitsOfZero : printed.digits;
  const bool rounds_to_it = printed.value != 0 && error <= printed.last_place / 2;
  if (error == 0 || rounds_to_it) return most;
  const double size = printed.value == 0 ? 1 : std::fabs(printed.value);
  const double tenths = std::floor(-10 * std::log10(error / size));
  return std::clamp(tenths / 10, 0.0, static_cast<double>(most));
}

}  // namespace quorval
