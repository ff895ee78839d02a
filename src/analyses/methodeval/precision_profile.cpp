// Imprecision over the measuring range: SD and CV% against level, from raw data, a column of
// replicates for each level, or from pairs of a level and its SD.
#include <algorithm>

#include "analyses/methodeval/profile.h"
#include "analyses/registry.h"
#include "core/steps.h"
#include "stats/spline.h"

namespace quorval::methodeval {
namespace precision_profile {
namespace {

using namespace profile;

// --- Options

constexpr std::array<Choice, 2> kModes{{{"raw", "Precision Profile from raw data"},
                                        {"pairs", "Precision Profile from (x, SD values)"}}};
constexpr std::string_view kRawGroup = "Precision Profile from raw data:";
constexpr std::string_view kPairsGroup = "Precision Profile from paired (x, SD) values:";

constexpr Field kLevelColumn{.key = "level-column",
                             .group = kPairsGroup,
                             .caption = "Levels (x) from Data Column No.:",
                             .enabled = {kPairs},
                             .demand = kDataColumn};
constexpr Field kSdColumn{.key = "sd-column",
                          .group = kPairsGroup,
                          .caption = "SD values from Data Column No.:",
                          .enabled = {kPairs},
                          .demand = kDataColumn};
constexpr std::array<Choice, 2> kCurves{
    {{"spline", "Smoothed (spline) curve"}, {"lines", "Straight lines between curve points"}}};
constexpr Field kCurve{.key = "curve",
                       .kind = FieldKind::kChoice,
                       .group = "Curve Type:",
                       .initial = "spline",
                       .choices = kCurves};

constexpr Field kRawNote{.kind = FieldKind::kNote,
                         .group = kRawGroup,
                         .caption = "(Mean, SD and CV% are computed for each data column)",
                         .enabled = {kRaw}};

constexpr Field kFields[] = {
    WithChoices(kMode, kModes),
    InGroup(Captioned(kStartColumn, "Compute means and SD from       Data Column No.(start):"),
            kRawGroup),
    InGroup(kLastColumn, kRawGroup),
    kRawNote,
    InGroup(kOutlierLimit, kRawGroup),
    kLevelColumn,
    kSdColumn,
    kCurve,
};

constexpr Rule kRules[] = {
    DemandsOf(kStartColumn, kLastColumn, kLevelColumn, kSdColumn),
    DemandsOf(kOutlierLimit),
};

constexpr Dialog frmMethPrecProfOpt{
    .window = "frmMethPrecProfOpt",
    .title = "Quorval     Precision Profile Options   ",
    .heading = "Options for Precision Profile",
    .fields = kFields,
    .rules = kRules,
};
static_assert(WellFormed(frmMethPrecProfOpt));

// --- Input

constexpr Layout kLayout{.columns = kAllColumns, .heads = 0, .least = 1, .too_few = kNoValues};

struct RawInput {
  RawData data;
  bool smooth;  // the curves are splines
};

RawInput ReadRaw(Run& run) { return {ReadRawData(run, kLayout), run.form.Is(kCurve, "spline")}; }

struct PairsInput {
  std::array<int, 2> columns;
  Sample x, SD;
  bool smooth;
};

PairsInput ReadLevels(Run& run) {
  const std::array columns{TakeColumn(run, kLevelColumn), TakeColumn(run, kSdColumn)};
  std::vector<Sample> values = ReadPairs(run, columns);
  return {.columns = columns,
          .x = std::move(values[0]),
          .SD = std::move(values[1]),
          .smooth = run.form.Is(kCurve, "spline")};
}

// --- Computation

struct Level {
  Real x, SD;
  std::optional<Real> CV;  // percent; none at level 0
  int N = 0;               // of raw data
};

struct ProfileResult {
  std::vector<Level> levels{};
  bool has_undefined_CV = false;

  void Add(Real x, Real SD, int N = 0) {
    const std::optional<Real> CV = PercentOf(SD, Abs(x));
    if (!CV) has_undefined_CV = true;
    levels.push_back({x, SD, CV, N});
  }
};

ProfileResult ComputeRaw(const RawInput& input) {
  ProfileResult result;
  for (const Replicates& level : input.data.levels) result.Add(level.d.mean, level.d.sd, level.N);
  return result;
}

ProfileResult ComputePairs(const PairsInput& input) {
  ProfileResult result;
  for (std::size_t i = 0; i < input.x.size(); ++i) result.Add(input.x[i], input.SD[i]);
  return result;
}

// --- Report

constexpr Quantity kFirst = Captioned(quantity::kFirstColumn, "  First Data Column:   Col. no.:  ");
constexpr Quantity kLast = Captioned(quantity::kLastColumn, "  Last Data Column:   Col. no.:  ");
constexpr Quantity kLevels = Captioned(quantity::kLevels, "    No of levels:  ");
constexpr Quantity kLevelsOfPairs = Captioned(quantity::kLevels, "  No of levels   ");
constexpr Quantity kLimit = Captioned(quantity::kOutlierLimit, "Outlier limit (SDs)");
constexpr Quantity kLevelsFrom{"level.column", "  x levels:   Col. no.:  ", Unit::kNone,
                               Width::kWhole};
constexpr Quantity kSDsFrom{"sd.column", "  SD values:   Col. no.:  ", Unit::kNone, Width::kWhole};
constexpr Quantity kQuantities[] = {kFirst, kLast, kLevels, kLimit, kLevelsFrom, kSDsFrom};
constexpr NamedTable kProfile{"profile",
                              "Each level, its SD and CV%, and of raw data their number"};
constexpr NamedTable kTables[] = {kProfile, kOutlierColumns};

void ReportRaw(ResultsSheet& sheet, const RawInput& input, const ProfileResult& result) {
  const RawData& data = input.data;
  sheet.Row(2, Bold{"  Precision Profile from raw data"});
  sheet.Row(3, "  Project:", sheet.ProjectName());
  sheet.Row(4, kFirst(data.columns.start));
  sheet.Row(5, kLast(data.columns.last));
  sheet.Row(6, kLevels(static_cast<int>(result.levels.size())));
  sheet.Row(7, "     Level Mean ", "     SD ", "     CV%  ", "     N  ");
  int row = 8;
  for (const Level& level : result.levels) {
    const ResultsSheet::Listing listing(sheet, kProfile);
    sheet.Row(row, level.x, level.SD, Blank{}, level.N);
    PutPercentage(sheet, row++, 3, level.CV);
  }
  sheet.Row(++row, kLimit(Real(data.outlier_limit)));
  for (int column : data.outlier_columns) {
    const ResultsSheet::Listing listing(sheet, kOutlierColumns);
    sheet.Row(++row, "Outlier(s) in Col. no.:", column);
  }
  if (data.outlier_columns.empty()) sheet.Row(++row, "No outliers identified");
  if (result.has_undefined_CV)
    sheet.Row(++row, "No CV% Precision Plot because of occurrence of n. d. values");
}

void ReportPairs(ResultsSheet& sheet, const PairsInput& input, const ProfileResult& result) {
  sheet.Row(2, Bold{"  Precision Profile from paired (x, SD) values"});
  sheet.Row(3, "  Project:", sheet.ProjectName());
  sheet.Row(4, kLevelsFrom(input.columns[0]));
  sheet.Row(5, kSDsFrom(input.columns[1]));
  sheet.Row(6, kLevelsOfPairs(static_cast<int>(result.levels.size())));
  sheet.Row(7, "  Level   ", "  SD  ", "  CV%  ");
  int row = 8;
  for (const Level& level : result.levels) {
    const ResultsSheet::Listing listing(sheet, kProfile);
    sheet.Row(row, level.x, level.SD);
    PutPercentage(sheet, row++, 3, level.CV);
  }
  if (result.has_undefined_CV)
    sheet.Row(++row, "No CV% Precision Plot because of occurrence of n.d. CV%");
}

// --- Plots

constexpr PlotWindow kPlots[] = {{.window = "frmPrecPlot1",
                                  .caption = "Precision Profile: SD",
                                  .x_title = "Level",
                                  .y_title = "SD",
                                  .bitmap = " Chart2D1.bmp",
                                  .height = 250},
                                 {.window = "frmPrecPlot2",
                                  .caption = "Precision Profile: CV",
                                  .x_title = "Level",
                                  .y_title = "CV%",
                                  .bitmap = " Chart2D1Res.bmp",
                                  .height = 250}};
constexpr PlotJob kPlotJobs[] = {{.pictures = kPlots}};

// The natural spline through the points, from the first to the last of them.  A Fault of equal
// levels, or of one.
Points SmoothCurve(const Points& sorted) {
  Sample x, y;
  for (const Point& point : sorted) {
    x.push_back(point.x);
    y.push_back(point.y);
  }
  const Spline spline = SplineSetup(x, y);
  return Curve(x.front(), x.back(), [&](Real X) { return SplineEvaluate(spline, X); });
}

void DrawCurve(Plot& plot, std::string_view label, Points points, bool smooth) {
  plot.label = label;
  std::ranges::stable_sort(points, {}, &Point::x);
  Points curve = smooth ? SmoothCurve(points) : points;
  plot.AddPoints(std::move(points));
  plot.AddLine(std::move(curve));
}

// Both plots, or that of the SDs alone where a CV is not defined.
template <class Input>
void DrawProfile(Plots& plots, const Input& input, const ProfileResult& result) {
  Points sds, cvs;
  for (const Level& level : result.levels) {
    sds.push_back({level.x, level.SD});
    if (level.CV) cvs.push_back({level.x, *level.CV});
  }
  DrawCurve(AddPlot(plots, kPlots[0]), "Precision Profile: SD against level", std::move(sds),
            input.smooth);
  if (result.has_undefined_CV) return;
  DrawCurve(AddPlot(plots, kPlots[1]), "Precision Profile: CV against level", std::move(cvs),
            input.smooth);
}

// --- The analysis

constexpr Procedure kFromRaw{
    .when = kRaw,
    .window = "frmMethPrecProf",
    .title = "Precision Profile",
    .menu = MenuWith("&Select Options for Precision Profile"),
    .print_header = "/cPrecision Profile/rPage #/p/n",
    .plot_jobs = kPlotJobs,
    .plot_windows = kPlots,
    .failure = ClosingWith("Error occurred in Precision Profile analysis"),
    .run = Steps<ReadRaw, ComputeRaw, ReportRaw, DrawProfile<RawInput>>,
};
constexpr Procedure kProcedures[] = {
    kFromRaw,
    ForChoice(kFromRaw, kPairs,
              Steps<ReadLevels, ComputePairs, ReportPairs, DrawProfile<PairsInput>>),
};

}  // namespace
}  // namespace precision_profile

constinit const Analysis kPrecisionProfile{
    .id = "precision-profile",
    .dialog = &precision_profile::frmMethPrecProfOpt,
    .procedures = precision_profile::kProcedures,
    .quantities = precision_profile::kQuantities,
    .tables = precision_profile::kTables,
    .manual = "precision-profile.md",
};

}  // namespace quorval::methodeval
