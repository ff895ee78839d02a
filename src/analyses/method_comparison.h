// What the comparisons of two methods share.  x is the reference method and y the test method; each
// sample is measured once by both (single) or twice by both (duplicate).
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "analyses/quantities.h"
#include "core/intake.h"
#include "stats/primitives.h"

namespace quorval {

// --- Options

inline constexpr std::array<Choice, 2> kModes{
    {{"single", "Single (x, y)"}, {"duplicate", "Duplicate (x, y)"}}};
inline constexpr Field kMode{.key = "mode",
                             .kind = FieldKind::kChoice,
                             .group = "Select:",
                             .initial = "single",
                             .choices = kModes};
inline constexpr When kSingle{"mode", "single"};
inline constexpr When kDuplicate{"mode", "duplicate"};

constexpr Field RenamedInDuplicate(Field field, std::string_view single,
                                   std::string_view duplicate) {
  field.caption = single;
  field.renamed = kDuplicate;
  field.other_caption = duplicate;
  return field;
}

constexpr Field OnlyInDuplicate(Field field, std::string_view caption) {
  field.caption = caption;
  field.shown = {kDuplicate};
  return field;
}

inline constexpr Field kFirstColumn = RenamedInDuplicate(Text10, "x:", "x1:");
inline constexpr Field kSecondColumn = RenamedInDuplicate(Text11, "y:", "x2:");
inline constexpr Field kThirdColumn = OnlyInDuplicate(Text12, "y1:");
inline constexpr Field kFourthColumn = OnlyInDuplicate(Text13, "y2:");

inline bool IsDuplicate(const Form& form) { return form.Holds(kDuplicate); }

// --- Pairs

// (a + b) / 2 of equally long columns, place by place.
Sample MeansOf(std::span<const Real> a, std::span<const Real> b);

// --- Outliers, which are reported and drawn apart

// The points whose mark equals `marked`.
Points Select(std::span<const Real> x, std::span<const Real> y, const OutlierMarks& outliers,
              bool marked);

// At most so many outliers are listed on a sheet; all are counted.
inline constexpr int kMostOutliersListed = 5;

struct OutlierRows {
  int count;  // the limit stands in the next row
  int first;  // of the list, two rows for each
  int more;   // says that not all are listed
};
inline constexpr std::array kOutlierQuantities{quantity::kOutliers, quantity::kOutlierLimit};
inline constexpr NamedTable kOutlierList{"outlier_list", "The outliers: number, x and y"};

// The count, the limit, and up to five of the marked points.
void WriteOutliers(ResultsSheet& sheet, const OutlierRows& rows, const OutlierMarks& outliers,
                   Single limit, std::span<const Real> x, std::span<const Real> y);

}  // namespace quorval
