// A cell of the worksheet or of a results sheet: what it holds, and how it looks.
#pragma once

#include <compare>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "core/real.h"

namespace quorval {

enum class CellType : std::uint8_t { kEdit = 1, kPicture = 9, kNumber = 13 };

using Colour = std::uint32_t;  // 0xRRGGBB
inline constexpr Colour kWhite = 0xFFFFFF;
inline constexpr Colour kGrey = 0xC0C0C0;

// A picture file's bytes (PNG or BMP), shared by the cells and files that show it.
using Picture = std::shared_ptr<const std::string>;

// How a cell looks, whatever it holds.
struct CellLook {
  CellType type = CellType::kEdit;
  std::uint8_t decimals = 0;  // of a number cell, 0 to 30
  bool bold = false;
  bool italic = false;
  bool overflow = false;  // a long text is shown beyond its cell, over empty neighbours
  Colour colour = kWhite;
  std::uint16_t span_columns = 1;  // the cells that this one is joined to, itself included
  std::uint16_t span_rows = 1;

  // The check takes the 0 that the compiler compares with for a pointer.
  auto operator<=>(const CellLook&) const = default;  // NOLINT(modernize-use-nullptr)
};

struct Cell {
  std::string text;             // as typed; empty in a cell that holds a number of the program's
  std::optional<double> value;  // a number that the program wrote; finite
  CellLook look;
  Picture picture;

  bool Empty() const { return text.empty() && !value && !picture; }
  // What is shown: the text, or the value: rounded to a number cell's decimals, in an edit cell by
  // its shortest digits.
  std::string Text() const;
  // The content without display formatting: the text, or the value with all its digits.
  std::string Value() const;

  bool operator==(const Cell&) const = default;
};

// An edit cell that holds a number which the program wrote.
Cell EditNumber(Real value);

}  // namespace quorval
