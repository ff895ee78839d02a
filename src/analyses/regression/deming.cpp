// Deming regression of y (test method) on x (reference method), both measured with error.
//
// Reads two columns and takes the ratio of the analytical SDs from the dialog, or reads four and
// estimates the ratio from the duplicates.  All standard errors come from a jackknife.  Writes rows
// 2 to 43 of the sheet and two optional tables, and the plots frmXY1s and frmRes1s.  The analysis
// can be repeated without the points that it marked.
#include "analyses/registry.h"
#include "analyses/regression/deming_report.h"

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

constexpr auto kPlots = PlotsCaptioned("XY-plot Deming regression analysis");

// --- The run

std::string_view Title(const Run& run) {
  const bool duplicate = IsDuplicate(run.form);
  if (run.repeated != nullptr)
    return duplicate ? "  Re-analysis Deming Regression Analysis (duplicate option) after outlier "
                       "rejection"
                     : "  Results of Deming Regression Analysis (re-analysis after outlier "
                       "rejection)";
  return duplicate ? "  Results of Deming Regression Analysis (duplicate option)"
                   : "  Results of Deming Regression Analysis (single option)";
}

template <class Measurements>
void Analyse(Run& run, const Pairs& data, const Measurements& measured) {
  constexpr std::string_view kNotComputed = "  Deming regression analysis could not be computed ";
  using Width = typename Measurements::Width;
  const Levels levels = PlaceLevels(run.form, RangeOfAbscissae(run, data, 4));
  const std::optional<DemingLine> line = FitDeming(measured);
  if (!line) run.Refuse(kNotComputed);
  const Real r = PearsonR(run.messages, data.x, data.y);
  const auto without_each = FitDemingWithoutEach(measured);
  if (!without_each) run.Refuse(kNotComputed);
  const JackknifeErrors errors = Jackknife(run.messages, *line, *without_each, levels);
  const Real df = data.Count() - 2;
  const TTest slope = TestAgainst(1, line->b, errors.se_b, df);

  run.sheet.Clear();
  WriteHead(run, Title(run), data);
  WriteSlope(run, 11, slope);
  run.sheet.Row(16, "  Correlation coefficient", r, CorrelationPClass(df, r));
  const Sample e = VerticalResiduals<Width>(data, *line);
  run.sheet.Row(17, "  SDyx (vertical)", ResidualSD(run, e));
  WriteRatio(run, *line, "  Estimated SDax/SDay");
  ReportDeming<Width>(run, {data, levels, *line, errors, e}, kPlots);
}

void RunDeming(Run& run) {
  Pairs data = ReadPairs(run);
  if (IsDuplicate(run.form)) {
    Analyse(run, data, TakeDuplicate(run, data));
  } else {
    const SingleMeasurements measured = TakeSingle(run.form, data);
    Analyse(run, data, measured);
  }
}

constexpr Procedure MCstatF3s[] = {Comparison({
    .window = "MCstatF3s",
    .title = "Quorval      Deming Regression Analysis",
    .menu = {.back = "&Selection of Deming  Reg. options"},
    .print_header = "/cDeming Regression/rPage #/p/n",
    .plot_windows = kPlots,
    .run = RunDeming,
})};

}  // namespace

constinit const Analysis kDeming{
    .id = "deming",
    .dialog = &MCstatF3so,
    .procedures = MCstatF3s,
    .manual = "deming.md",
};

}  // namespace quorval::regression
