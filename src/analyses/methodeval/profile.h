// What the profiles over the measuring range share.  Their data are raw, a column of replicates for
// each level, or pairs: ready values of the levels, row by row in columns that belong together.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "analyses/methodeval/method_evaluation.h"

namespace quorval::methodeval::profile {

// --- Options

inline constexpr When kRaw{"mode", "raw"}, kPairs{"mode", "pairs"};

// Each profile has its own words for these.
inline constexpr Field kMode{
    .key = kRaw.key, .kind = FieldKind::kChoice, .initial = kRaw.word, .choices = {}};
inline constexpr Field kStartColumn{
    .key = "start-column", .enabled = {kRaw}, .demand = kDataColumn};
inline constexpr Field kLastColumn{.key = "last-column",
                                   .caption = "Data Column No. (last):",
                                   .enabled = {kRaw},
                                   .demand = kDataColumn};
inline constexpr Field kOutlierLimit{.key = "outlier-limit",
                                     .caption = "No. of SD units as outlier rejection limit:",
                                     .initial = "4",
                                     .enabled = {kRaw},
                                     .demand = kPositiveLimit};

constexpr Field WithChoices(Field field, std::span<const Choice> choices) {
  field.choices = choices;
  return field;
}

// --- Raw data

// How a column of replicates is laid out, and what of it is refused.
struct Layout {
  ColumnLimit columns;
  std::size_t heads;  // cells above the replicates: 0, or 1 that holds the level's true value
  std::size_t least;  // replicates
  std::string_view too_few;
};

struct Replicates {
  std::optional<Real> head{};
  Description d{};
  int N = 0;
};

struct RawData {
  Real outlier_limit;
  ColumnSpan columns{};
  std::vector<Replicates> levels{};    // in the order of the columns
  std::vector<int> outlier_columns{};  // those that hold a marked value
};

// A level is measured before the next column is read: its boxes come before what the next is
// refused for.  A level of a single value stands with an SD of 0 after the words of what it lacks.
RawData ReadRawData(Run& run, const Layout& layout);

// --- Pairs

// As long as the first column.  Refused where one is empty; a Fault where one is shorter.
std::vector<Sample> ReadPairs(Run& run, std::span<const int> columns);

// --- The sheet

// The percentage, or "n.d.".
void PutPercentage(ResultsSheet& sheet, int row, int column, const std::optional<Real>& percentage);

}  // namespace quorval::methodeval::profile
