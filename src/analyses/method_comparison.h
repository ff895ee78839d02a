// What the comparisons of two methods share.  x is the reference method and y the test method; each
// sample is measured once by both (single) or twice by both (duplicate).
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "analyses/outlier_list.h"
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
inline constexpr When kSingleMode{"mode", "single"};
inline constexpr When kDuplicateMode{"mode", "duplicate"};

constexpr Field RenamedInDuplicate(Field field, std::string_view single,
                                   std::string_view duplicate) {
  field.caption = single;
  field.renamed = kDuplicateMode;
  field.other_caption = duplicate;
  return field;
}

constexpr Field OnlyInDuplicate(Field field, std::string_view caption) {
  field.caption = caption;
  field.shown = {kDuplicateMode};
  return field;
}

inline constexpr Field kFirstColumn = RenamedInDuplicate(Text10, "x:", "x1:");
inline constexpr Field kSecondColumn = RenamedInDuplicate(Text11, "y:", "x2:");
inline constexpr Field kThirdColumn = OnlyInDuplicate(Text12, "y1:");
inline constexpr Field kFourthColumn = OnlyInDuplicate(Text13, "y2:");

inline bool IsDuplicate(const Form& form) { return form.Holds(kDuplicateMode); }

// --- Pairs

// (a + b) / 2 of equally long columns, place by place.
Sample MeansOf(std::span<const Real> a, std::span<const Real> b);

// The number of points and the columns.
inline constexpr std::array kHeadQuantities{
    Captioned(quantity::kCount, "  Number of (x, y) data points"),
    Quantity{.name = "x.column", .caption = "  x: Col no.", .width = Width::kWhole},
    Quantity{.name = "y.column", .caption = "  y: Col no.", .width = Width::kWhole},
    Quantity{.name = "x1.column", .caption = "  x1: Col no.", .width = Width::kWhole},
    Quantity{.name = "x2.column", .caption = "  x2: Col no.", .width = Width::kWhole},
    Quantity{.name = "y1.column", .caption = "  y1: Col no.", .width = Width::kWhole},
    Quantity{.name = "y2.column", .caption = "  y2: Col no.", .width = Width::kWhole},
};

// Rows 6 to 8 in single mode.
void WriteXYColumns(ResultsSheet& sheet, int count, const std::array<int, 4>& columns);

// --- Outliers, which are reported and drawn apart

// The points whose mark equals `marked`.
Points Select(std::span<const Real> x, std::span<const Real> y, const OutlierMarks& outliers,
              bool marked);

inline constexpr std::array kOutlierQuantities{quantity::kOutliers, quantity::kOutlierLimit};
inline constexpr NamedTable kOutlierList{"outlier_list", "The outliers: number, x and y"};

struct OutlierRows {
  int count;  // the limit stands in the next row
  int first;  // of the list, two rows for each
  int more;   // says that not all are listed
  Quantity outliers = quantity::kOutliers, outlier_limit = quantity::kOutlierLimit;
  NamedTable list = kOutlierList;
};

// The count, the limit, and up to five of the marked points.
void WriteOutliers(ResultsSheet& sheet, const OutlierRows& rows, const OutlierMarks& outliers,
                   Single limit, std::span<const Real> x, std::span<const Real> y);

}  // namespace quorval
