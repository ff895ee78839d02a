// What the method comparisons by regression share: x is the reference method, y the test method.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "analyses/column_options.h"
#include "analyses/method_comparison.h"
#include "core/analysis.h"
#include "core/steps.h"
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

// A method's plot of y against x, and that of its residuals.
constexpr std::array<PlotWindow, 2> PlotsCaptioned(std::string_view xy_caption) {
  return {{{.window = "frmXY1s",
            .caption = xy_caption,
            .x_title = "x",
            .y_title = "y",
            .bitmap = " Chart2D1.bmp",
            .height = 350,
            .opens_empty = true},
           {.window = "frmRes1s",
            .caption = "Standardized residuals plot",
            .x_title = "x",
            .y_title = "Standardized residual",
            .bitmap = " Chart2D1Res.bmp",
            .height = 150,
            .opens_empty = true,
            .goes_to_sheet = true}}};
}

// A method's own procedure with what all of them have: the mode in the title, and the words of a
// failure.
constexpr Procedure Comparison(Procedure own) {
  own.title_end = ModeInTitle;
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

// What all methods take from their dialog and the worksheet.
struct ComparisonInput {
  bool duplicate;  // four columns
  Pairs data;
  Levels levels;
  bool show_residuals;
};
// Those that have standard errors take more.
struct ParametricInput : ComparisonInput {
  bool repeated = false;  // a re-analysis without the points that the first run marked
  Single outlier_limit{};
  bool show_bands = false, plot_bands = false;
};

// With the pairs as the method computes with them, at least so many.
ComparisonInput TakeOptions(const Run& run, Pairs data, int least);
ParametricInput TakeParametricOptions(const Run& run, Pairs data, int least);

// --- Residuals

// The SD of residuals from a fitted line, n - 2 degrees of freedom.
Real ResidualSD(Messages& messages, std::span<const Real> residuals);

// By the limit of the dialog, on a 32-bit copy of the residuals.
OutlierMarks MarkOutliers(Messages& messages, const ParametricInput& input,
                          std::span<const Real> residuals);

// The points sorted by their marks, for a re-analysis; none where nothing was marked.
std::optional<Rejection> KeepForReanalysis(const ParametricInput& input,
                                           const OutlierMarks& outliers);

// What the tables and plots show of the points.
struct Residuals {
  Sample estimate;  // of y
  Sample e;         // vertical
  Sample z;         // standardised
};

// --- Rows of the sheets

// Rows 2 to 10: the title, and kHeadQuantities.
void WriteHead(ResultsSheet& sheet, std::string_view title, const ComparisonInput& input);

// The five rows of an estimate and its test.
struct TestRows {
  Quantity estimate, se, lower, upper;
  std::string_view tested;
  Quantity t;

  constexpr std::array<Quantity, 5> All() const { return {estimate, se, lower, upper, t}; }
};
inline constexpr TestRows kSlopeRows{
    .estimate = {"slope", "  Slope b"},
    .se = {"slope.se", "  SE b"},
    .lower = {"slope.lower", "  95%-Conf. Int."},
    .upper = {"slope.upper", "  95%-Conf. Int."},
    .tested = "  Test for slope deviation from 1",
    .t = {"slope.t", "  t  and  P"},
};
inline constexpr TestRows kInterceptRows{
    .estimate = {"intercept", "  Intercept  a0", Unit::kMeasurand},
    .se = {"intercept.se", "  SE a0", Unit::kMeasurand},
    .lower = {"intercept.lower", "  95%-Conf. Int.", Unit::kMeasurand},
    .upper = {"intercept.upper", "  95%-Conf. Int.", Unit::kMeasurand},
    .tested = "  Test for intercept deviation from 0",
    .t = {"intercept.t", "  t  and  P"},
};
void WriteTest(ResultsSheet& sheet, int row, const TestRows& rows, const TTest& test);

namespace quantity {
using namespace quorval::quantity;
inline constexpr Quantity kXc1{"xc1", "  Critical value Xc1", Unit::kMeasurand, Width::k32};
inline constexpr Quantity kXc2{"xc2", "  Critical value Xc2", Unit::kMeasurand, Width::k32};
inline constexpr Quantity kDifference1{"xc1.difference", "  Difference Yc1 - Xc1 with SE",
                                       Unit::kMeasurand};
inline constexpr Quantity kDifference2{"xc2.difference", "  Difference Yc2 - Xc2 with SE",
                                       Unit::kMeasurand};
inline constexpr Quantity kDifference1Se{"xc1.difference.se", "  Difference Yc1 - Xc1 with SE",
                                         Unit::kMeasurand};
inline constexpr Quantity kDifference2Se{"xc2.difference.se", "  Difference Yc2 - Xc2 with SE",
                                         Unit::kMeasurand};
}  // namespace quantity

// Two rows for each critical value that is shown.
inline constexpr std::array kCriticalValueQuantities{
    quantity::kXc1, quantity::kDifference1, quantity::kDifference1Se,
    quantity::kXc2, quantity::kDifference2, quantity::kDifference2Se,
};
void WriteCriticalValues(ResultsSheet& sheet, int row, const Levels& levels,
                         const Estimates& estimates);

void WriteOutliers(ResultsSheet& sheet, const OutlierRows& rows, const ParametricInput& input,
                   const OutlierMarks& outliers);

inline constexpr std::string_view kLinearityTest = "  Test for dev. from linearity";

// The header in `row`, a line for each position below it.  Without a heading the table has no
// estimates.
inline constexpr NamedTable kBandsTable{"bands", "95 % confidence bands at 11 positions"};
void WriteBands(ResultsSheet& sheet, int row, std::string_view estimate_heading,
                const Bands& bands);

// The header in `row`, a line for each point below it: x, y, estimate, e and z.
inline constexpr NamedTable kResidualsTable{"residuals",
                                            "x, y, the estimate of y and the residuals"};
void WriteResiduals(ResultsSheet& sheet, int row, const std::array<std::string_view, 5>& headings,
                    const Pairs& data, const Residuals& residuals);

inline constexpr NamedTable kTables[] = {kOutlierList, kBandsTable, kResidualsTable};

}  // namespace quorval::regression
