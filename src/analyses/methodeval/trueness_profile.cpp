// Bias over the measuring range: measured means against true values, from raw data, a column for
// each level with its true value on top, or from pairs of a true value and a mean.
#include <algorithm>

#include "analyses/methodeval/profile.h"
#include "analyses/registry.h"
#include "core/steps.h"

namespace quorval::methodeval {
namespace trueness {
namespace {

using namespace profile;

// --- Options

constexpr std::array<Choice, 2> kModes{
    {{"raw", "Trueness Profile from raw data"},
     {"pairs", "Trueness Profile from paired (Mean, True) values"}}};
constexpr std::string_view kRawGroup = "Trueness Profile from raw data:";
constexpr std::string_view kPairsGroup = "Trueness Profile from paired (True, Mean) values:";

constexpr Field kLayoutNote{
    .kind = FieldKind::kNote,
    .group = kRawGroup,
    .caption =
        "Notice:For a given column, the true value constitutes the first numeric variable "
        "value  (row 1). The measured values constitute the following consecutive series of "
        "row values (use Demo Linearity data as an example)   ",
    .enabled = {kRaw}};
constexpr Field kTrueColumn{.key = "true-column",
                            .group = kPairsGroup,
                            .caption = "True values from Data Column No.:",
                            .enabled = {kPairs},
                            .demand = kDataColumn};
constexpr Field kMeanColumn{.key = "mean-column",
                            .group = kPairsGroup,
                            .caption = "Measured means from Data Column No.:",
                            .enabled = {kPairs},
                            .demand = kDataColumn};
// A word passes, and ends the run.
constexpr Field kSemColumn{.key = "sem-column",
                           .group = kPairsGroup,
                           .heading = "Optional:",
                           .caption = "SEM values from Data Column No.:",
                           .enabled = {kPairs},
                           .demand = kDataColumn.Exempting(Demand::Exempt::kNoNumber)};

constexpr Field kFields[] = {
    WithChoices(kMode, kModes),
    InGroup(Captioned(kStartColumn,
                      "Read True Value and compute means and SEM of measured values from   Data "
                      "Column No.(start):"),
            kRawGroup),
    InGroup(kLastColumn, kRawGroup),
    InGroup(kOutlierLimit, kRawGroup),
    kLayoutNote,
    kTrueColumn,
    kMeanColumn,
    kSemColumn,
};

constexpr Rule kRules[] = {
    DemandsOf(kStartColumn, kLastColumn, kTrueColumn, kMeanColumn),
    DemandsOf(kSemColumn),
    DemandsOf(kOutlierLimit),
};

constexpr Dialog frmMethTruenessOpt{
    .window = "frmMethTruenessOpt",
    .title = "Quorval     Trueness Options   ",
    .heading = "Options for Trueness Determination",
    .fields = kFields,
    .rules = kRules,
};
static_assert(WellFormed(frmMethTruenessOpt));

// --- Input

constexpr Layout kLayout{
    .columns = kThirtyColumns,
    .heads = 1,
    .least = 2,
    .too_few = " Sample size for measured values at given level < 2: No analysis "};

RawData ReadRaw(Run& run) { return ReadRawData(run, kLayout); }

struct PairsInput {
  std::vector<int> columns;  // of the true values, the means and perhaps the SEMs
  std::vector<Sample> values{};
};

PairsInput ReadLevels(Run& run) {
  PairsInput input{{TakeColumn(run, kTrueColumn), TakeColumn(run, kMeanColumn)}};
  if (!run.form.Blank(kSemColumn)) input.columns.push_back(TakeColumn(run, kSemColumn));
  input.values = ReadPairs(run, input.columns);
  return input;
}

// --- Computation

struct Level {
  Real T;                   // the true value
  Real mean;                // of the measured values
  std::optional<Real> SEM;  // the standard error of the mean, where it is known
  int N = 0;                // of raw data

  // Of the true value; none where that is 0.
  std::optional<Real> PercentMean() const { return PercentOf(mean, T); }
  std::optional<Real> PercentSEM() const { return SEM ? PercentOf(*SEM, T) : std::nullopt; }
};
using Levels = std::vector<Level>;

Levels ComputeRaw(const RawData& data) {
  Levels levels;
  for (const Replicates& measured : data.levels)
    levels.push_back({.T = *measured.head,
                      .mean = measured.d.mean,
                      .SEM = measured.d.sd / Sqrt(measured.N),
                      .N = measured.N});
  return levels;
}

Levels ComputePairs(const PairsInput& input) {
  Levels levels;
  const std::vector<Sample>& values = input.values;
  for (std::size_t i = 0; i < values[0].size(); ++i) {
    Level& level = levels.emplace_back(Level{.T = values[0][i], .mean = values[1][i], .SEM = {}});
    if (values.size() == 3) level.SEM = values[2][i];
  }
  return levels;
}

// --- Report

constexpr Quantity kFirst = Captioned(quantity::kFirstColumn, "First Data Column: Col. no.:");
constexpr Quantity kLast = Captioned(quantity::kLastColumn, "Last Data Column: Col. no.:");
constexpr Quantity kLevels = Captioned(quantity::kLevels, "No of levels:");
constexpr Quantity kLimit = Captioned(quantity::kOutlierLimit, "Outlier limit");
constexpr Quantity kTrueFrom{"true.column", "True levels: Col. no.:", Unit::kNone, Width::kWhole};
constexpr Quantity kMeansFrom{"mean.column", "Means of measured values: Col. no.:", Unit::kNone,
                              Width::kWhole};
constexpr Quantity kSEMsFrom{"mean.se.column", "SEMs of measured values: Col. no.:", Unit::kNone,
                             Width::kWhole};
constexpr Quantity kQuantities[] = {kFirst,    kLast,      kLevels,  kLimit,
                                    kTrueFrom, kMeansFrom, kSEMsFrom};
constexpr NamedTable kProfile{"profile",
                              "Each level's true value, mean and SEM, and these in percent"};
constexpr NamedTable kTables[] = {kProfile, kOutlierColumns};

void WriteOutliers(ResultsSheet& sheet, int row, const RawData& data) {
  if (data.outlier_columns.empty()) {
    sheet.Row(row, "No outliers present", kLimit.caption, kLimit(Real(data.outlier_limit)), "SD");
    return;
  }
  sheet.Row(row, kLimit(Real(data.outlier_limit)), "SD");
  const ResultsSheet::Listing listing(sheet, kOutlierColumns);
  for (int column : data.outlier_columns)
    sheet.Row(++row, "Outlier(s) identified in Col. no.:", column);
}

void ReportRaw(ResultsSheet& sheet, const RawData& data, const Levels& levels) {
  sheet.LetTextsOverflow();
  sheet.Row(1, Bold{"Trueness Profile"});
  sheet.Row(2, " Project: ", sheet.ProjectName());
  sheet.Row(3, "The True value was read as the first numeric value in each col");
  sheet.Row(4, "The following values were read as measured values");
  sheet.Row(5, kFirst(data.columns.start));
  sheet.Row(6, kLast(data.columns.last));
  sheet.Row(7, kLevels(static_cast<int>(levels.size())));
  sheet.Row(10, "True values", "Mean", "N", "SEM", "%Mean", "%SEM");
  int row = 11;
  for (const Level& level : levels) {
    const ResultsSheet::Listing listing(sheet, kProfile);
    sheet.Row(row, level.T, level.mean, level.N, *level.SEM);
    PutPercentage(sheet, row, 5, level.PercentMean());
    PutPercentage(sheet, row++, 6, level.PercentSEM());
  }
  WriteOutliers(sheet, row + 1, data);
}

void ReportPairs(ResultsSheet& sheet, const PairsInput& input, const Levels& levels) {
  const std::vector<int>& columns = input.columns;
  sheet.LetTextsOverflow();
  sheet.Row(1, Bold{"Trueness Profile from paired (True, Mean (and SEM)) values"});
  sheet.Row(2, " Project: ", sheet.ProjectName());
  sheet.Row(5, kTrueFrom(columns[0]));
  sheet.Row(6, kMeansFrom(columns[1]));
  sheet.Row(7, kSEMsFrom.caption);
  if (columns.size() == 3) sheet.Put(7, 2, kSEMsFrom(columns[2]));
  sheet.Row(8, kLevels(static_cast<int>(levels.size())));
  sheet.Row(10, "True values", "Mean", "SEM", "%Mean", "%SEM");
  int row = 11;
  for (const Level& level : levels) {
    const ResultsSheet::Listing listing(sheet, kProfile);
    sheet.Row(row, level.T, level.mean);
    PutPercentage(sheet, row, 4, level.PercentMean());
    if (level.SEM) {
      sheet.Put(row, 3, *level.SEM);
      PutPercentage(sheet, row, 5, level.PercentSEM());
    }
    ++row;
  }
}

// --- Plots

constexpr PlotWindow kPlots[] = {{.window = "frmMethTruenessPlot2",
                                  .caption = "Trueness Profile: percent",
                                  .x_title = "Level no.",
                                  .y_title = "%",
                                  .bitmap = " Chart2D1.bmp",
                                  .height = 250},
                                 {.window = "frmMethTruenessPlot1a",
                                  .caption = "Trueness Profile",
                                  .x_title = "Level no.",
                                  .bitmap = " Chart2D1Res.bmp",
                                  .height = 250}};
constexpr PlotJob kPlotJobs[] = {{.pictures = kPlots}};

constexpr double kBarWidth = 0.35;  // two of them leave a gap between the levels

// What a chart shows of a level: two columns side by side, and dots above and below the second.
struct Bars {
  int number;  // of the level, from 1
  Real true_value, mean;
  std::optional<Real> SEM;
};

// From 0, on which the columns stand, to the highest of all with a margin above.
void FitAxis(Axis& axis, const Plot& plot) {
  Real lowest, highest;
  for (const Series& series : plot.series)
    for (const Point& point : series.points) {
      lowest = std::min(lowest, point.y);
      highest = std::max(highest, point.y);
    }
  if (lowest == highest) return;
  const Real margin = (highest - lowest) / 20;
  axis.min = lowest < 0 ? lowest - margin : lowest;
  axis.max = highest > 0 ? highest + margin : highest;
}

void DrawBars(Plot& plot, std::string_view header, const std::vector<Bars>& levels) {
  Points true_values, means, dots;
  for (const Bars& level : levels) {
    true_values.push_back({level.number, level.true_value});
    means.push_back({level.number, level.mean});
    if (!level.SEM) continue;
    dots.push_back({level.number, level.mean - *level.SEM});
    dots.push_back({level.number, level.mean + *level.SEM});
  }
  const auto columns = [](Points points, Colour colour, double offset) {
    return Series{.draw = Draw::kBars,
                  .points = std::move(points),
                  .colour = colour,
                  .bar_width = kBarWidth,
                  .offset = offset};
  };
  plot.header = header;
  plot.Add(columns(std::move(true_values), kRed, -kBarWidth / 2));
  plot.Add(columns(std::move(means), kBlue, kBarWidth / 2));
  if (!dots.empty()) {
    Series& SEMs = plot.AddPoints(std::move(dots));
    SEMs.colour = kBlue;
    SEMs.offset = kBarWidth / 2;
  }
  FitAxis(plot.y, plot);
}

template <class Input>
void DrawProfile(Plots& plots, const Input&, const Levels& levels) {
  std::vector<Bars> percent, absolute;
  for (int number = 1; const Level& level : levels) {
    if (const auto mean = level.PercentMean())
      percent.push_back({number, 100, *mean, level.PercentSEM()});
    absolute.push_back({number, level.T, level.mean, level.SEM});
    ++number;
  }
  DrawBars(AddPlot(plots, kPlots[0]),
           "True values (100%, red cols) and means (%, blue) with SEM (dot) of measured values",
           percent);
  DrawBars(AddPlot(plots, kPlots[1]),
           "True values (red cols) and means of measured values (blue cols) with SEM (dot)",
           absolute);
}

// --- The analysis

constexpr Procedure kFromRaw{
    .when = kRaw,
    .window = "frmMethTrueness",
    .title = "Trueness Profile",
    .menu = MenuWith("&Select Options for Trueness Profile"),
    .print_header = "/cTrueness Results/rPage #/p/n",
    .plot_jobs = kPlotJobs,
    .plot_windows = kPlots,
    .failure = ClosingWith("Error occurred in Trueness Profile analysis"),
    .run = Steps<ReadRaw, ComputeRaw, ReportRaw, DrawProfile<RawData>>,
};

// The same window with words of its own for a failure.
constexpr Procedure FromPairs() {
  Procedure procedure = ForChoice(
      kFromRaw, kPairs, Steps<ReadLevels, ComputePairs, ReportPairs, DrawProfile<PairsInput>>);
  procedure.failure.fault = "Error occurred in trueness Profile analysis";
  return procedure;
}

constexpr Procedure kProcedures[] = {kFromRaw, FromPairs()};

}  // namespace
}  // namespace trueness

constinit const Analysis kTruenessProfile{
    .id = "trueness-profile",
    .dialog = &trueness::frmMethTruenessOpt,
    .procedures = trueness::kProcedures,
    .quantities = trueness::kQuantities,
    .tables = trueness::kTables,
    .manual = "trueness-profile.md",
};

}  // namespace quorval::methodeval
