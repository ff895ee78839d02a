#include "formats/export_losses.h"

#include <utf8.h>

#include <algorithm>
#include <cmath>
#include <iterator>

#include "formats/exported_cell.h"

namespace quorval {
namespace {

constexpr std::size_t kLongestText = 32767;  // units of UTF-16

struct Loss {
  std::string_view kind, words;
  bool (*met_by)(const Cell& cell, int row, const ExportLimits& limits);
};

// The grey of the title row is the worksheet's own.
bool HasColour(const Cell& cell, int row, const ExportLimits&) {
  return cell.look.colour != kWhite && (row > 1 || cell.look.colour != kGrey);
}

bool HasPicture(const Cell& cell, int, const ExportLimits&) { return cell.picture != nullptr; }

bool IsNoText(const Cell& cell, int, const ExportLimits& limits) {
  if (std::ranges::all_of(cell.text, [](char c) { return c > 0; })) return false;  // ASCII
  if (!limits.holds_nul && cell.text.find('\0') != std::string::npos) return true;
  return !utf8::is_valid(cell.text.begin(), cell.text.end());
}

bool IsTooLong(const Cell& cell, int, const ExportLimits&) {
  if (cell.text.size() <= kLongestText) return false;
  std::size_t units = 0;
  for (char c : cell.text) {
    const auto byte = static_cast<unsigned char>(c);
    units += byte >= 0xF0 ? 2u : (byte & 0xC0) == 0x80 ? 0u : 1u;
  }
  return units > kLongestText;
}

// Workbooks know no numbers below the normal ones of 64 bits, and end just below the largest.
bool IsOutOfRange(const Cell& cell, int, const ExportLimits& limits) {
  constexpr double kLeast = 2.2250738585072014e-308, kMost = 9.99999999999999e307;
  if (!limits.bounds_numbers || !cell.value || *cell.value == 0) return false;
  const double size = std::abs(*cell.value);
  return size < kLeast || size > kMost;
}

constexpr Loss kLosses[] = {
    {"colours", "Colours are left out of the file", HasColour},
    {"pictures", "Pictures are left out of the file", HasPicture},
    {"characters", "What is no text became U+FFFD in the file", IsNoText},
    {"long-text", "Texts are longer than the 32767 characters that spreadsheet programs take",
     IsTooLong},
    {"number-range", "Numbers are beyond those of spreadsheet programs, 2.3e-308 to 9.99e307",
     IsOutOfRange},
};

}  // namespace

Notices LossesOf(const Grid& grid, const ExportLimits& limits) {
  struct {
    int cells = 0;
    std::string first{};
  } met[std::size(kLosses)];
  for (int column = 1; column <= grid.Columns(); ++column)
    for (int row = 1; row <= grid.UsedRows(column); ++row) {
      const Cell& cell = grid.At(column, row);
      for (std::size_t i = 0; i < std::size(kLosses); ++i)
        if (kLosses[i].met_by(cell, row, limits) && ++met[i].cells == 1)
          met[i].first = ColumnName(column) + std::to_string(row);
    }
  Notices notices;
  for (std::size_t i = 0; i < std::size(kLosses); ++i) {
    const auto& [cells, first] = met[i];
    if (cells == 0) continue;
    std::string text(kLosses[i].words);
    text += cells == 1 ? ": 1 cell, " : ": " + std::to_string(cells) + " cells, the first is ";
    text += first;
    notices.push_back({kLosses[i].kind, std::move(text), {}, {}});
  }
  return notices;
}

}  // namespace quorval
