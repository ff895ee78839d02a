#include "core/results_sheet.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "core/conversion.h"

namespace quorval {

void ResultsSheet::Clear() {
  grid_.ClearAll();
  quantities_.clear();
  tables_.clear();
}

void ResultsSheet::Frame(std::string_view title, DateBeside date) {
  Row(2, Bold{title});
  Row(3, "  Project:", context_->ProjectName);
  Row(4, "  Analyst: ");
  Row(5, "  Analyte: ");
  Put(static_cast<int>(date), 3, "  Date: ");
}

std::optional<double> ResultsSheet::ValueOf(std::string_view quantity) const {
  const auto found = std::ranges::find(
      quantities_, quantity, [](const GivenQuantity& given) { return given.quantity.name; });
  return found == quantities_.end() ? std::nullopt : std::optional(found->value);
}

void ResultsSheet::Replace(int row, int column, Cell cell) {
  if (row > kRows || column > kColumns) Raise(Fault::Kind::kOutOfRange);
  grid_.Put(column, row, std::move(cell));
}

void ResultsSheet::Give(int row, int column, const Quantity& quantity, Real value) {
  quantities_.push_back({quantity, Raw(value), row, column});
}

void ResultsSheet::Give(int row, int column, const Quantity& quantity, std::string_view text) {
  if (IsNumber(text)) Give(row, column, quantity, ToNumber(text));
}

void ResultsSheet::List(int row, int column) {
  if (!table_) return;
  if (tables_.empty() || tables_.back().table.name != table_->name)
    tables_.push_back({*table_, row, row, column, column});
  GivenTable& given = tables_.back();
  given.first_row = std::min(given.first_row, row);
  given.last_row = std::max(given.last_row, row);
  given.first_column = std::min(given.first_column, column);
  given.last_column = std::max(given.last_column, column);
}

void ResultsSheet::Put(int row, int column, std::string_view text) {
  Cell cell;
  cell.text = text;
  cell.look.overflow = texts_overflow_;
  Replace(row, column, std::move(cell));
}

void ResultsSheet::Put(int row, int column, Bold heading) {
  Put(row, column, heading.text);
  grid_.Edit(column, row).look.bold = true;
}

void ResultsSheet::Put(int row, int column, Italic heading) {
  Put(row, column, heading.text);
  grid_.Edit(column, row).look.italic = true;
}

void ResultsSheet::Put(int row, int column, int count) {
  Replace(row, column, EditNumber(count));
  List(row, column);
}

void ResultsSheet::Put(int row, int column, Real number) {
  Cell cell;
  cell.look.type = CellType::kNumber;
  cell.look.decimals = ToDecimals(context_->NDec);
  cell.value = Raw(number);
  Replace(row, column, std::move(cell));
  List(row, column);
}

void ResultsSheet::Put(int row, int column, BoldNumber number) {
  Put(row, column, number.number);
  grid_.Edit(column, row).look.bold = true;
}

void ResultsSheet::PaintHead() {
  constexpr std::array<std::pair<int, int>, 5> kHeaderCells{
      {{1, 1}, {2, 1}, {2, 2}, {2, 3}, {2, 4}}};  // column, row
  for (auto [column, row] : kHeaderCells) grid_.Edit(column, row).look.overflow = true;
  for (int column = 1; column <= kColumns; ++column) grid_.Edit(column, 1).look.colour = kGrey;
}

}  // namespace quorval
