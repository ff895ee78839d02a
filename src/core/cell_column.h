// How the cells of one column are kept.  A full worksheet has five million: a `Cell` takes 80
// bytes, a packed one 16.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/cell.h"

namespace quorval {

// The looks that the cells of a sheet have, each once.
class LookTable {
 public:
  using Number = std::uint32_t;

  const CellLook& operator[](Number number) const { return looks_[number]; }
  // 0 is the look of a plain cell.
  Number NumberOf(const CellLook& look);

 private:
  std::vector<CellLook> looks_{CellLook{}};
  std::map<CellLook, Number> numbers_{{CellLook{}, 0}};
  Number last_ = 0;  // asked for
};

// Rows are counted from 0.  All but At() and Empty() make the column long enough for the row, and
// leave what they are not told of as it was.
class CellColumn {
 public:
  // The rows that were ever written to.
  std::size_t Size() const { return cells_.size(); }
  // An empty cell, or none there.
  bool Empty(std::size_t row) const;
  // A plain cell where there is none.
  Cell At(std::size_t row, const LookTable& looks) const;
  CellLook LookAt(std::size_t row, const LookTable& looks) const;

  void SetText(std::size_t row, std::string_view text);
  void SetNumber(std::size_t row, double number);
  void SetLook(std::size_t row, const CellLook& look, LookTable& looks);
  void Put(std::size_t row, Cell cell, LookTable& looks);
  // The cell to be changed by the caller, which from then on is kept unpacked.
  Cell& Edit(std::size_t row, const LookTable& looks);

  // Empties the rows from `first` to below `end`.
  void Clear(std::size_t first, std::size_t end);
  // Room for so many rows; what is not written to takes no memory of the machine's.
  void Reserve(std::size_t rows) { cells_.reserve(rows); }

 private:
  // What a packed cell holds: a text of so many bytes in its own, or one of these.
  static constexpr std::size_t kShortText = 12;
  enum Kind : std::uint8_t { kNothing = 0, kNumber = kShortText + 1, kLongText, kUnpacked };

  struct Packed {
    std::array<char, kShortText> bytes{};  // the number, the text, or where the long text stands
    std::uint32_t look : 24 = 0;
    std::uint32_t kind : 8 = kNothing;
  };
  static_assert(sizeof(Packed) == 16);
  static constexpr LookTable::Number kMostLooks = 1 << 24;

  struct Place {
    std::uint64_t begin;
    std::uint32_t length;
  };
  static Place PlaceIn(const Packed& cell);
  static double NumberIn(const Packed& cell);
  std::string_view TextIn(const Packed& cell) const;

  Packed& Slot(std::size_t row);
  void Drop(Packed& cell, std::size_t row);
  void StoreText(Packed& cell, std::string_view text);
  void DropUnusedTexts();

  std::vector<Packed> cells_;
  std::string texts_;       // the long ones
  std::size_t unused_ = 0;  // bytes of texts_ that no cell has any more
  std::map<std::size_t, Cell> unpacked_;
};

}  // namespace quorval
