#include "formats/exported_cell.h"

#include "core/conversion.h"

namespace quorval {
namespace {

// How many decimals a number shows that is written out plainly; none of any other text.
std::optional<int> PlainDecimals(std::string_view text) {
  constexpr std::size_t kMostDigits = 15;  // that every double keeps
  if (text.starts_with('-')) text.remove_prefix(1);
  const std::size_t point = text.find('.');
  const std::string_view whole = text.substr(0, point);
  const std::string_view fraction = point == text.npos ? "" : text.substr(point + 1);
  const auto only_digits = [](std::string_view part) {
    return !part.empty() && part.find_first_not_of("0123456789") == part.npos;
  };
  if (!only_digits(whole) || (whole.size() > 1 && whole.front() == '0')) return std::nullopt;
  if (point != text.npos && !only_digits(fraction)) return std::nullopt;
  if (whole.size() + fraction.size() > kMostDigits) return std::nullopt;
  return static_cast<int>(fraction.size());
}

}  // namespace

ExportedCell Exported(const Cell& cell, int row) {
  ExportedCell exported{.number = cell.value, .bold = cell.look.bold, .italic = cell.look.italic};
  if (cell.value) {
    if (cell.look.type == CellType::kNumber) exported.decimals = cell.look.decimals;
    return exported;
  }
  const std::optional<int> decimals = row > 1 ? PlainDecimals(cell.text) : std::nullopt;
  if (decimals && cell.text != "-0") {
    exported.number = Raw(ToNumber(cell.text));
    if (*decimals > 0 && cell.text.back() == '0') exported.decimals = *decimals;
  } else {
    exported.text = cell.text;
  }
  return exported;
}

std::string ColumnName(int column) {
  constexpr int kLetters = 26;
  std::string name;
  for (; column > 0; column = (column - 1) / kLetters)
    name.insert(name.begin(), static_cast<char>('A' + (column - 1) % kLetters));
  return name;
}

std::string FormatCode(int decimals) {
  return decimals == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(decimals), '0');
}

}  // namespace quorval
