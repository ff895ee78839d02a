// Deming regression of y (test method) on x (reference method), both measured with error.
//
// Reads two columns and takes the ratio of the analytical SDs from the dialog, or reads four and
// estimates the ratio from the duplicates.  All standard errors come from a jackknife.  Writes rows
// 2 to 43 of the sheet and two optional tables, and the plots frmXY1s and frmRes1s.  The analysis
// can be repeated without the points that it marked.
#include "analyses/registry.h"
#include "analyses/regression/deming_comparison.h"

namespace quorval::regression {
namespace {

// --- Options

constexpr Field kFields[] = {
    kMode,
    Captioned(kIdColumn, "(Optional)  ID.:"),
    kFirstColumn,
    kSecondColumn,
    kThirdColumn,
    kFourthColumn,
    kXc1,
    kXc2,
    Captioned(kSdRatio, "Enter x/y analytical standard deviation ratio (lSDax/SDay):"),
    kOutlierLimit,
    Captioned(kShowResiduals, "Display x, y, estim. y and residuals"),
    Captioned(kShowBands, "Display coordinates of  95%-confidence bands  (at 11 positions)"),
    Captioned(kPlotBands, "Show 95%-confidence region on plot"),
};

constexpr Rule kRules[] = {
    DemandsOf(kIdColumn),
    DemandsOf(kFirstColumn, kSecondColumn),
    DemandsOf(kThirdColumn, kFourthColumn),
    DemandsOf(kSdRatio, kOutlierLimit),
};

constexpr Dialog MCstatF3so{
    .window = "MCstatF3so",
    .title = "  Deming Regression Analysis",
    .heading = "Options for Deming regression analysis",
    .fields = kFields,
    .rules = kRules,
};
static_assert(WellFormed(MCstatF3so));

// --- Input

DemingInput ReadDeming(Run& run) { return TakeDemingOptions(run, ReadPairs(run)); }

// --- Computation

struct UnweightedResult : DemingResult {
  Real r;  // Pearson
};

UnweightedResult ComputeDeming(Messages& messages, const DemingInput& input) {
  constexpr std::string_view kNotComputed = "  Deming regression analysis could not be computed ";
  return std::visit(
      [&](const auto& measured) -> UnweightedResult {
        const std::optional<DemingLine> line = FitDeming(measured);
        if (!line) Refuse(messages, kNotComputed);
        const Real r = PearsonR(messages, input.data.x, input.data.y);
        const auto without_each = FitDemingWithoutEach(measured);
        if (!without_each) Refuse(messages, kNotComputed);
        const JackknifeErrors errors = Jackknife(messages, *line, *without_each, input.levels);
        const TTest slope = TestAgainst(1, line->b, errors.se_b, input.data.Count() - 2);
        return {{.line = *line, .errors = errors, .slope = slope}, r};
      },
      input.measured);
}

// --- Report

constexpr Quantity kCorrelation{"correlation", "  Correlation coefficient"};
constexpr Quantity kSDyx{"sd_yx", "  SDyx (vertical)", Unit::kMeasurand};
constexpr auto kQuantities =
    Joined(kHeadQuantities, kSlopeRows.All(), std::array{kCorrelation, kSDyx}, kDemingQuantities);

std::string_view Title(const DemingInput& input) {
  if (input.repeated)
    return input.duplicate
               ? "  Re-analysis Deming Regression Analysis (duplicate option) after outlier "
                 "rejection"
               : "  Results of Deming Regression Analysis (re-analysis after outlier "
                 "rejection)";
  return input.duplicate ? "  Results of Deming Regression Analysis (duplicate option)"
                         : "  Results of Deming Regression Analysis (single option)";
}

void Report(Messages& messages, ResultsSheet& sheet, const DemingInput& input,
            UnweightedResult& result) {
  WriteHead(sheet, Title(input), input);
  WriteTest(sheet, 11, kSlopeRows, result.slope);
  sheet.Row(16, kCorrelation(result.r), CorrelationPClass(input.data.Count() - 2, result.r));

  // The rows above remain where the residuals cannot be examined.
  result.e = AsWideAs(input.measured, [&]<class Width>() {
    return VerticalResiduals<Width>(input.data, result.line);
  });
  sheet.Row(17, kSDyx(ResidualSD(messages, result.e)));
  ReportDeming(messages, sheet, input, result, kEstimatedSdRatioRow.caption);
}

// --- Plots

constexpr auto kPlots = PlotsCaptioned("XY-plot Deming regression analysis");
constexpr PlotJob kPlotJobs[] = {{.pictures = kPlots}};

void Draw(Plots& plots, const DemingInput& input, const UnweightedResult& result) {
  DrawDeming(plots, kPlots, input, result);
}

// --- The analysis

constexpr Procedure MCstatF3s[] = {Comparison({
    .window = "MCstatF3s",
    .title = "Quorval      Deming Regression Analysis",
    .menu = {.back = "&Selection of Deming  Reg. options"},
    .print_header = "/cDeming Regression/rPage #/p/n",
    .plot_jobs = kPlotJobs,
    .plot_windows = kPlots,
    .run = Steps<ReadDeming, ComputeDeming, Report, Draw, KeepDeming>,
})};

}  // namespace

constinit const Analysis kDeming{
    .id = "deming",
    .dialog = &MCstatF3so,
    .procedures = MCstatF3s,
    .quantities = kQuantities,
    .tables = kTables,
    .manual = "deming.md",
};

}  // namespace quorval::regression
