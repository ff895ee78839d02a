#include "core/cell_column.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <utility>

namespace quorval {

LookTable::Number LookTable::NumberOf(const CellLook& look) {
  if (looks_[last_] == look) return last_;
  const auto [entry, is_new] = numbers_.try_emplace(look, static_cast<Number>(looks_.size()));
  if (is_new) looks_.push_back(look);
  return last_ = entry->second;
}

CellColumn::Place CellColumn::PlaceIn(const Packed& cell) {
  Place place{};
  std::memcpy(&place.begin, cell.bytes.data(), sizeof place.begin);
  std::memcpy(&place.length, cell.bytes.data() + sizeof place.begin, sizeof place.length);
  return place;
}

double CellColumn::NumberIn(const Packed& cell) {
  double number = 0;
  std::memcpy(&number, cell.bytes.data(), sizeof number);
  return number;
}

std::string_view CellColumn::TextIn(const Packed& cell) const {
  if (cell.kind <= kShortText) return {cell.bytes.data(), cell.kind};
  if (cell.kind != kLongText) return {};
  const Place place = PlaceIn(cell);
  return std::string_view(texts_).substr(place.begin, place.length);
}

bool CellColumn::Empty(std::size_t row) const {
  if (row >= cells_.size() || cells_[row].kind == kNothing) return true;
  return cells_[row].kind == kUnpacked && unpacked_.at(row).Empty();
}

Cell CellColumn::At(std::size_t row, const LookTable& looks) const {
  Cell cell;
  if (row >= cells_.size()) return cell;
  const Packed& packed = cells_[row];
  if (packed.kind == kUnpacked) return unpacked_.at(row);
  if (packed.kind == kNumber) {
    cell.value = NumberIn(packed);
  } else {
    cell.text = TextIn(packed);
  }
  if (packed.look != 0) cell.look = looks[packed.look];
  return cell;
}

CellLook CellColumn::LookAt(std::size_t row, const LookTable& looks) const {
  if (row >= cells_.size()) return {};
  const Packed& packed = cells_[row];
  return packed.kind == kUnpacked ? unpacked_.at(row).look : looks[packed.look];
}

CellColumn::Packed& CellColumn::Slot(std::size_t row) {
  if (row == cells_.size()) return cells_.emplace_back();  // the usual way of a column to grow
  if (row > cells_.size()) cells_.resize(row + 1);
  return cells_[row];
}

void CellColumn::SetNumber(std::size_t row, double number) {
  Packed& packed = Slot(row);
  if (packed.kind == kUnpacked) {
    Cell& cell = unpacked_.at(row);
    cell.text.clear();
    cell.value = number;
    return;
  }
  Drop(packed, row);
  std::memcpy(packed.bytes.data(), &number, sizeof number);
  packed.kind = kNumber;
}

void CellColumn::SetText(std::size_t row, std::string_view text) {
  Packed& packed = Slot(row);
  if (packed.kind == kUnpacked) {
    Cell& cell = unpacked_.at(row);
    cell.text = text;
    cell.value.reset();
    return;
  }
  Drop(packed, row);
  StoreText(packed, text);
}

void CellColumn::StoreText(Packed& cell, std::string_view text) {
  if (text.size() <= kShortText) {
    std::copy(text.begin(), text.end(), cell.bytes.begin());
    cell.kind = static_cast<std::uint8_t>(text.size());
    return;
  }
  if (text.size() > std::numeric_limits<std::uint32_t>::max()) throw std::length_error("text");
  if (unused_ > texts_.size() / 2 + text.size()) DropUnusedTexts();
  const Place place{texts_.size(), static_cast<std::uint32_t>(text.size())};
  texts_ += text;
  std::memcpy(cell.bytes.data(), &place.begin, sizeof place.begin);
  std::memcpy(cell.bytes.data() + sizeof place.begin, &place.length, sizeof place.length);
  cell.kind = kLongText;
}

void CellColumn::SetLook(std::size_t row, const CellLook& look, LookTable& looks) {
  if (Packed& packed = Slot(row); packed.kind != kUnpacked) {
    if (const LookTable::Number number = looks.NumberOf(look); number < kMostLooks) {
      packed.look = number & (kMostLooks - 1);
      return;
    }
  }
  Edit(row, looks).look = look;
}

void CellColumn::Put(std::size_t row, Cell cell, LookTable& looks) {
  Packed& packed = Slot(row);
  Drop(packed, row);
  const bool packs = !cell.picture && (cell.text.empty() || !cell.value);
  if (!packs) {
    unpacked_[row] = std::move(cell);
    packed.kind = kUnpacked;
    return;
  }
  if (cell.value) {
    SetNumber(row, *cell.value);
  } else {
    StoreText(packed, cell.text);
  }
  SetLook(row, cell.look, looks);
}

Cell& CellColumn::Edit(std::size_t row, const LookTable& looks) {
  Packed& packed = Slot(row);
  if (packed.kind != kUnpacked) {
    unpacked_[row] = At(row, looks);
    Drop(packed, row);
    packed.kind = kUnpacked;
  }
  return unpacked_.at(row);
}

void CellColumn::Clear(std::size_t first, std::size_t end) {
  end = std::min(end, cells_.size());
  for (std::size_t row = first; row < end; ++row) {
    Drop(cells_[row], row);
    cells_[row] = Packed{};
  }
  if (end == cells_.size() && first < end) cells_.resize(first);
  if (cells_.empty()) texts_.clear();
}

// What the cell holds, not its look.
void CellColumn::Drop(Packed& cell, std::size_t row) {
  if (cell.kind == kLongText) unused_ += PlaceIn(cell).length;
  if (cell.kind == kUnpacked) unpacked_.erase(row);
  cell.kind = kNothing;
}

void CellColumn::DropUnusedTexts() {
  const std::string old = std::exchange(texts_, {});
  unused_ = 0;
  for (Packed& cell : cells_) {
    if (cell.kind != kLongText) continue;
    const Place place = PlaceIn(cell);
    StoreText(cell, std::string_view(old).substr(place.begin, place.length));
  }
}

}  // namespace quorval
