// Weighted Deming regression of y (test method) on x (reference method), both measured with errors
// that grow with the concentration.
//
// Reads two columns and takes the ratio of the analytical SDs from the dialog, or reads four and
// estimates the ratio from the duplicates.  All standard errors come from a jackknife.  Writes rows
// 2 to 43 of the sheet and two optional tables, and the plots frmXY1s and frmRes1s.  The analysis
// can be repeated without the points that it marked.
#include "analyses/registry.h"
#include "analyses/regression/deming_comparison.h"
#include "analyses/regression/fit_weighted_deming.h"

namespace quorval::regression {
namespace {

// --- Options

constexpr Field kFields[] = {
    kMode,
    Captioned(kIdColumn, "(Optional) ID.:"),
    kFirstColumn,
    kSecondColumn,
    kThirdColumn,
    kFourthColumn,
    kXc1,
    kXc2,
    Captioned(kSdRatio, "Enter x/y analytical standard deviation ratio (SDax/SDay):"),
    Captioned(kWeightingExponent,
              "Weighting exponent  (range 0 - 2)  (default 2: proportional weighting)"),
    Captioned(kTruncationLimit, "Specify weighting : Lower truncation limit:"),
    kOutlierLimit,
    Captioned(kShowResiduals, "Display x, y, estim. y and residuals"),
    Captioned(kShowBands, "Display coordinates of  95%-confidence bands  (at 11 positions)"),
    Captioned(kPlotBands, "Show 95%-confidence bands"),
};

constexpr Rule kRules[] = {
    DemandsOf(kIdColumn),
    DemandsOf(kFirstColumn, kSecondColumn),
    DemandsOf(kThirdColumn, kFourthColumn),
    DemandsOf(kWeightingExponent, kTruncationLimit, kOutlierLimit, kSdRatio),
};

constexpr Dialog MCstatF4so{
    .window = "MCstatF4so",
    .title = "Options      Weighted Deming Regression Analysis",
    .heading = "Options for weighted Deming regression analysis",
    .fields = kFields,
    .rules = kRules,
};
static_assert(WellFormed(MCstatF4so));

// --- Input

struct WeightedDemingInput : DemingInput {
  Weighting weighting;
};

// Of the single measurements.
void RefuseNegativeOrZero(const Run& run, const Pairs& data) {
  const bool other_words = run.repeated != nullptr && IsDuplicate(run.form);
  for (const Sample& values : data.measured)
    quorval::RefuseNegativeOrZero(run, values,
                                  other_words
                                      ? " Negative numbers: No regression analysis "
                                      : " Negative or zero numbers: No regression analysis ");
}

WeightedDemingInput ReadWeightedDeming(Run& run) {
  Pairs data = ReadPairs(run);
  RefuseNegativeOrZero(run, data);
  return {TakeDemingOptions(run, std::move(data)), TakeWeighting(run.form)};
}

// --- Computation

struct WeightedDemingResult : DemingResult {
  Real rw;   // weighted correlation
  Sample w;  // weights
};

WeightedDemingResult ComputeWeightedDeming(Messages& messages, const WeightedDemingInput& input) {
  constexpr std::string_view kNotComputed =
      " No convergence in iterative Weighted Deming analysis ";
  return std::visit(
      [&](const auto& measured) -> WeightedDemingResult {
        const std::optional<WeightedDemingLine> line = FitWeightedDeming(measured, input.weighting);
        if (!line) Refuse(messages, kNotComputed);
        const auto without_each = FitWeightedDemingWithoutEach(measured, input.weighting);
        if (!without_each) Refuse(messages, kNotComputed);
        const JackknifeErrors errors = Jackknife(messages, *line, *without_each, input.levels);
        const TTest slope = TestAgainst(1, line->b, errors.se_b, input.data.Count() - 2);
        return {{.line = *line, .errors = errors, .slope = slope}, line->rw, line->w};
      },
      input.measured);
}

// --- Report

constexpr WeightingRows kWeightingRows{
    .exponent = Captioned(quantity::kExponent, "Weighting exponent = "),
    .limit = Captioned(quantity::kTruncationLimit, "Truncation of weighting at lower limit =   "),
    .square_root = "(square root relationship)",
    .proportional = "(proportional relationship)",
};
constexpr Quantity kCorrelation =
    Captioned(quantity::kWeightedCorrelation, "  W. correlation coefficient");
constexpr Quantity kSDyx = Captioned(quantity::kSDyxFactor, "SDy.x prop. factor (vertical)");
constexpr auto kQuantities = Joined(kHeadQuantities, kWeightingRows.All(), kSlopeRows.All(),
                                    std::array{kCorrelation, kSDyx}, kDemingQuantities);

// Rows 1 to 5.
void WriteTitle(ResultsSheet& sheet, const DemingInput& input) {
  if (!input.repeated) {
    sheet.Frame(input.duplicate ? "  Results of Weighted Deming Regression Analysis (dupl.)"
                                : "  Results of Weighted Deming Regression Analysis (Single)");
    return;
  }
  sheet.Frame(input.duplicate ? "  after outlier rejection"
                              : "  Re-analysis after outlier rejection");
  sheet.Row(1, Bold{"  Results of Weighted Deming Regression Analysis"});
}

// Rows 6 to 8.
void WriteColumns(ResultsSheet& sheet, const DemingInput& input) {
  if (!input.duplicate) return WriteXYColumns(sheet, input.data.Count(), input.data.columns);
  const auto& [n, x, y, x1, x2, y1, y2] = kHeadQuantities;
  const auto& [first, second, third, fourth] = input.data.columns;
  sheet.Row(6, "  Number of (x1,x2,y1,y2) data points", n(input.data.Count()));
  sheet.Row(7, "  x1 and x2: Col numbers", x1(first), x2(second));
  sheet.Row(8, "  y1 and y2: Col numbers", y1(third), y2(fourth));
}

void Report(Messages& messages, ResultsSheet& sheet, const WeightedDemingInput& input,
            WeightedDemingResult& result) {
  WriteTitle(sheet, input);
  WriteColumns(sheet, input);
  WriteExponent(sheet, 9, kWeightingRows, input.weighting);
  sheet.Row(10, kWeightingRows.limit(Real(input.weighting.T)));
  WriteTest(sheet, 11, kSlopeRows, result.slope);
  sheet.Row(16, kCorrelation(result.rw), CorrelationPClass(input.data.Count() - 2, result.rw));

  // The rows above remain where the residuals cannot be examined.
  Sample q;  // weighted residuals
  AsWideAs(input.measured, [&]<class Width>() {
    result.e = VerticalResiduals<Width>(input.data, result.line);
    for (std::size_t i = 0; i < result.e.size(); ++i)
      q.push_back(Width(Sqrt(result.w[i]) * result.e[i]));
  });
  sheet.Row(17, kSDyx(ResidualSD(messages, q)));
  ReportDeming(messages, sheet, input, result, "  Estimated   SDax/SDay");
}

// --- Plots

constexpr auto kPlots = PlotsCaptioned("XY-plot Weighted Deming regression analysis");
constexpr PlotJob kPlotJobs[] = {{.pictures = kPlots}};

void Draw(Plots& plots, const WeightedDemingInput& input, const WeightedDemingResult& result) {
  DrawDeming(plots, kPlots, input, result);
}

// --- The analysis

constexpr Procedure MCstatF4s[] = {Comparison({
    .window = "MCstatF4s",
    .title = "Quorval      Weighted Deming Regression Analysis",
    .menu = {.back = "&Selection of W. Deming  Reg. options"},
    .print_header = "/cWeighted Deming Regression/rPage #/p/n",
    .plot_jobs = kPlotJobs,
    .plot_windows = kPlots,
    .run = Steps<ReadWeightedDeming, ComputeWeightedDeming, Report, Draw, KeepDeming>,
})};

}  // namespace

constinit const Analysis kWeightedDeming{
    .id = "weighted-deming",
    .dialog = &MCstatF4so,
    .procedures = MCstatF4s,
    .quantities = kQuantities,
    .tables = kTables,
    .manual = "weighted-deming.md",
};

}  // namespace quorval::regression
