// What the method comparisons by regression share: x is the reference method, y the test method.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "analyses/column_options.h"
#include "analyses/method_comparison.h"
#include "core/analysis.h"
#include "stats/significance.h"

namespace quorval::regression {

// --- Options

inline constexpr std::string_view kColumnsGroup = "Select data columns:";

// A column above the last one passes, and reads as an empty one.
inline constexpr Demand kColumn{
    .reading = Reading::kLeadingNumber, .least = 1, .refusal = "Selected column no. not allowed!"};
constexpr Field ColumnField(Field field, const Demand& demand = kColumn) {
  return InGroup(WithDemand(field, demand), kColumnsGroup);
}
inline constexpr Field kIdColumn = ColumnField(Text9, kColumn.Exempting(Demand::Exempt::kBlank));
inline constexpr Field kFirstColumn = ColumnField(quorval::kFirstColumn);
inline constexpr Field kSecondColumn = ColumnField(quorval::kSecondColumn);
inline constexpr Field kThirdColumn = ColumnField(quorval::kThirdColumn);
inline constexpr Field kFourthColumn = ColumnField(quorval::kFourthColumn);

inline constexpr Field kXc1{
    .key = "xc1", .group = "Optional:", .caption = "Select critical value (Xc1):"};
inline constexpr Field kXc2{
    .key = "xc2", .group = "Optional:", .caption = "Select critical value (Xc2):"};
inline constexpr Demand kPositiveNumber{
    .reading = Reading::kLeadingNumber32, .above = 0, .refusal = kOptionRefused};
inline constexpr Field kOutlierLimit{
    .key = "outlier-limit",
    .caption = "Specify number of standard deviations as outlier rejection limit:",
    .initial = "4",
    .demand = kPositiveNumber};

// Tick boxes; each method has its own captions for them.
inline constexpr Field kShowResiduals{
    .key = "show-residuals", .kind = FieldKind::kCheck, .initial = "off"};
inline constexpr Field kShowBands{.key = "show-bands", .kind = FieldKind::kCheck, .initial = "off"};
inline constexpr Field kPlotBands{.key = "plot-bands", .kind = FieldKind::kCheck, .initial = "on"};

// How the title of a results window ends.
std::string_view ModeInTitle(const Form& form);

// --- Windows

inline constexpr std::string_view kResidualCaption = "Standardized residuals plot";

// A method's plot of y against x, and that of its residuals.
constexpr std::array<PlotWindow, 2> PlotsCaptioned(std::string_view xy_caption) {
  return {{{"frmXY1s", xy_caption}, {"frmRes1s", kResidualCaption}}};
}

inline constexpr std::array<PlotPicture, 2> kPictures{{
    {"frmXY1s", " Chart2D1.bmp", 350},
    {"frmRes1s", " Chart2D1Res.bmp", 150},
}};
inline constexpr std::array<PlotJob, 1> kPlotJobs{{{.pictures = kPictures}}};

// A method's own procedure with what all of them have: the mode in the title, the plots, and the
// words of a failure.
constexpr Procedure Comparison(Procedure own) {
  own.title_end = ModeInTitle;
  own.plot_jobs = kPlotJobs;
  own.failure = {.fault = "Error occurred", .second = "Error occurred"};
  return own;
}

// --- Intake

struct Pairs {
  Sample x{}, y{};  // in the duplicate form the means of the replicates
  Texts ids{};
  std::array<int, 4> columns{};      // as PairColumns::numbers
  std::array<Sample, 4> measured{};  // x and y, or x1, x2, y1, y2
  int Count() const { return static_cast<int>(x.size()); }
};

// The columns of the dialog; in a re-analysis the points that the first run retained.
Pairs ReadPairs(Run& run);

// The range of x; refuses fewer than `least` points and an x without dispersion.
Range RangeOfAbscissae(const Run& run, const Pairs& data, int least);

// A medical decision level on the x axis.
struct CriticalValue {
  Real x;
  bool shown = false;  // on the sheet: it was given, and lies within the range of x
};

// Eleven abscissae from the smallest x to the largest, at tenths of the range.
using BandPositions = std::array<Real, 11>;

// Where y is estimated.
struct Levels {
  CriticalValue Xc1, Xc2;
  BandPositions u;
};

// A critical value is the field's 32-bit value; where that is empty or out of range, a quarter and
// three quarters of the range stand in.
Levels PlaceLevels(const Form& form, const Range& range);

// An estimated y with its standard error.
struct Estimate {
  Real y, se;
};

// The estimates at Levels.
struct Estimates {
  Estimate Yc1, Yc2;
  std::array<Estimate, 11> bands{};
};

struct Bands {
  BandPositions u;  // abscissae
  std::array<Real, 11> estimate{}, lower{}, upper{};
};

// The 95 % confidence bands.
Bands ComputeBands(const Levels& levels, const Estimates& estimates, Real tcrit);

// --- Tests and residuals

// The SD of residuals from a fitted line, n - 2 degrees of freedom.
Real ResidualSD(Run& run, std::span<const Real> residuals);

// By the limit of the dialog, on a 32-bit copy of the residuals.
OutlierMarks MarkOutliers(Run& run, std::span<const Real> residuals);

// Sorts the points by their marks for a re-analysis.
void KeepForReanalysis(Run& run, const Pairs& data, const OutlierMarks& outliers);

// What the tables and plots show of the points.
struct Residuals {
  Sample estimate;  // of y
  Sample e;         // vertical
  Sample z;         // standardised
};

// --- Rows of the sheets

// Rows 2 to 10: the title, the number of points and the columns.
void WriteHead(Run& run, std::string_view title, const Pairs& data);
// Rows 6 to 8 of the single form.
void WriteSingleColumns(Run& run, const Pairs& data);

// Five rows each: the estimate, its SE and limits, and the test.
void WriteSlope(Run& run, int row, const TTest& slope);
void WriteIntercept(Run& run, int row, const TTest& intercept);

// Two rows for each critical value that is shown.
void WriteCriticalValues(Run& run, int row, const Levels& levels, const Estimates& estimates);

void WriteOutliers(Run& run, const OutlierRows& rows, const OutlierMarks& outliers,
                   const Pairs& data);

// The header in `row`, a line for each position below it.  Without a heading the table has no
// estimates.
void WriteBands(Run& run, int row, std::string_view estimate_heading, const Bands& bands);

// The header in `row`, a line for each point below it: x, y, estimate, e and z.
void WriteResiduals(Run& run, int row, const std::array<std::string_view, 5>& headings,
                    const Pairs& data, const Residuals& residuals);

}  // namespace quorval::regression
