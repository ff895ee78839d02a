// The numbers of a results sheet by their names.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace quorval {

enum class Unit { kNone, kMeasurand, kPercent };
enum class Width { kWhole, k32, k64 };  // a count, and the bits of a float

template <class Value>
struct NamedValue;

// A number that an analysis gives, declared once: the sheet's row, the JSON, the description of the
// analysis, the manual and the tests take it from here.
struct Quantity {
  std::string_view name;     // "slope.se": the same for the same thing in every analysis
  std::string_view caption;  // the words of its row
  Unit unit = Unit::kNone;
  Width width = Width::k64;

  // This quantity with its value, for a row of the sheet.
  template <class Value>
  constexpr NamedValue<Value> operator()(Value value) const {
    return {*this, value};
  }
};

template <class Value>
struct NamedValue {
  Quantity quantity;
  Value value;
};

constexpr Quantity Captioned(Quantity quantity, std::string_view caption) {
  quantity.caption = caption;
  return quantity;
}

// A listing, of as many rows as there are measurements or levels; its numbers have no names of
// their own.
struct NamedTable {
  std::string_view name;
  std::string_view caption;  // what it lists
};

// One behind the other: the quantities of an analysis from those of its blocks of rows.
template <std::size_t... kCounts>
constexpr auto Joined(const std::array<Quantity, kCounts>&... blocks) {
  std::array<Quantity, (kCounts + ...)> all;
  auto next = all.begin();
  (
      [&] {
        for (const Quantity& one : blocks) *next++ = one;
      }(),
      ...);
  return all;
}

}  // namespace quorval
