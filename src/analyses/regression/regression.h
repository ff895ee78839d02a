// What the method comparisons by regression share: x is the reference method, y the test method.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "analyses/method_comparison.h"
#include "core/analysis.h"

namespace quorval::regression {

// --- Options

inline constexpr std::string_view kColumnsGroup = "Select data columns:";

inline constexpr Field kIdColumn = InGroup(Text9, kColumnsGroup);
inline constexpr Field kFirstColumn = InGroup(quorval::kFirstColumn, kColumnsGroup);
inline constexpr Field kSecondColumn = InGroup(quorval::kSecondColumn, kColumnsGroup);
inline constexpr Field kThirdColumn = InGroup(quorval::kThirdColumn, kColumnsGroup);
inline constexpr Field kFourthColumn = InGroup(quorval::kFourthColumn, kColumnsGroup);

inline constexpr Field kXc1{
    .key = "xc1", .group = "Optional:", .caption = "Select critical value (Xc1):"};
inline constexpr Field kXc2{
    .key = "xc2", .group = "Optional:", .caption = "Select critical value (Xc2):"};
inline constexpr Field kOutlierLimit{
    .key = "outlier-limit",
    .caption = "Specify number of standard deviations as outlier rejection limit:",
    .initial = "4"};

// Tick boxes; each method has its own captions for them.
inline constexpr Field kShowResiduals{
    .key = "show-residuals", .kind = FieldKind::kCheck, .initial = "off"};
inline constexpr Field kShowBands{.key = "show-bands", .kind = FieldKind::kCheck, .initial = "off"};
inline constexpr Field kPlotBands{.key = "plot-bands", .kind = FieldKind::kCheck, .initial = "on"};

inline constexpr std::string_view kColumnRefused = "Selected column no. not allowed!";
inline constexpr Rule kFirstColumnsRule{
    [](const Form& form) { return form.Number(Text10) < 1 || form.Number(Text11) < 1; },
    kColumnRefused};
inline constexpr Rule kLastColumnsRule{
    [](const Form& form) {
      return IsDuplicate(form) && (form.Number(Text12) < 1 || form.Number(Text13) < 1);
    },
    kColumnRefused};

// "Quorval      " + the name of the analysis + the mode.
std::string WindowTitle(std::string_view analysis, const Form& form);

// --- Windows

inline constexpr std::array<std::string_view, 2> kPlotWindows{"frmXY1s", "frmRes1s"};
inline constexpr std::array<PlotPicture, 2> kPictures{{
    {"frmXY1s", " Chart2D1.bmp", 350},
    {"frmRes1s", " Chart2D1Res.bmp", 150},
}};
inline constexpr std::array<PlotJob, 1> kPlotJobs{{{.pictures = kPictures}}};

// --- Intake

struct Pairs {
  Sample x{}, y{};  // in the duplicate form the means of the replicates
  Texts ids{};
  std::array<int, 4> columns{};        // as PairColumns::numbers
  std::array<Sample, 4> replicates{};  // x1, x2, y1, y2; the duplicate form only
  int Count() const { return static_cast<int>(x.size()); }
};

Pairs ReadPairs(Run& run);

// A medical decision level on the x axis.
struct CriticalValue {
  Real x;
  bool shown = false;  // on the sheet: it was given, and lies within the range of x
};

// The field's 32-bit value; where it is empty or out of range a place at `fraction` of the range.
CriticalValue TakeCriticalValue(const Form& form, const Field& field, const Range& range,
                                Real fraction);

// Eleven abscissae from the smallest x to the largest, at tenths of the range.
using BandPositions = std::array<Real, 11>;
BandPositions PlaceBands(const Range& range);

struct Bands {
  BandPositions u;  // abscissae
  std::array<Real, 11> estimate{}, lower{}, upper{};
};

// --- Tests of an estimate

struct Test {
  Real estimate, se;
  Real t;
  Real lower, upper;  // 95 % confidence limits
  std::string_view P;
};

// Student's t of the estimate against its expected value.  A SE of 0 is a Fault.
Test TestAgainst(Real expected, Real estimate, Real se, Real df);

// --- Rows of the sheets

// Rows 2 to 10: the title, the number of points and the columns.
void WriteHead(Run& run, std::string_view title, const Pairs& data);

// From `row` on: the count, the limit and, with a row between, up to five of the marked points.
void WriteOutliers(Run& run, int row, const OutlierMarks& outliers, const Pairs& data);

// The header in `row`, a line for each position below it.
void WriteBands(Run& run, int row, std::string_view estimate_heading, const Bands& bands);

}  // namespace quorval::regression
