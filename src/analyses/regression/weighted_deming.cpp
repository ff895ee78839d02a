// Weighted Deming regression of y (test method) on x (reference method), both measured with errors
// that grow with the concentration.
//
// Reads two columns and takes the ratio of the analytical SDs from the dialog, or reads four and
// estimates the ratio from the duplicates.  All standard errors come from a jackknife.  Writes rows
// 2 to 43 of the sheet and two optional tables, and the plots frmXY1s and frmRes1s.  The analysis
// can be repeated without the points that it marked.
#include "analyses/registry.h"
#include "analyses/regression/deming_report.h"
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

// --- The head of the sheet

// Rows 1 to 5.
void WriteTitle(Run& run) {
  const bool duplicate = IsDuplicate(run.form);
  if (run.repeated == nullptr) {
    run.sheet.Frame(duplicate ? "  Results of Weighted Deming Regression Analysis (dupl.)"
                              : "  Results of Weighted Deming Regression Analysis (Single)");
    return;
  }
  run.sheet.Frame(duplicate ? "  after outlier rejection"
                            : "  Re-analysis after outlier rejection");
  run.sheet.Row(1, Bold{"  Results of Weighted Deming Regression Analysis"});
}

// Rows 6 to 8.
void WriteColumns(Run& run, const Pairs& data) {
  ResultsSheet& sheet = run.sheet;
  const auto& [first, second, third, fourth] = data.columns;
  if (IsDuplicate(run.form)) {
    sheet.Row(6, "  Number of (x1,x2,y1,y2) data points", data.Count());
    sheet.Row(7, "  x1 and x2: Col numbers", first, second);
    sheet.Row(8, "  y1 and y2: Col numbers", third, fourth);
  } else {
    WriteSingleColumns(run, data);
  }
}

// Rows 9 and 10.
void WriteWeighting(Run& run, const Weighting& weighting) {
  std::string_view relationship;
  if (weighting.P == 1) relationship = "(square root relationship)";
  if (weighting.P == 2) relationship = "(proportional relationship)";
  run.sheet.Row(9, "Weighting exponent = ", Real(weighting.P), relationship);
  run.sheet.Row(10, "Truncation of weighting at lower limit =   ", Real(weighting.T));
}

constexpr auto kPlots = PlotsCaptioned("XY-plot Weighted Deming regression analysis");

// --- The run

// Looks at the single measurements.
void RefuseNegativeOrZero(const Run& run, const Pairs& data) {
  const bool other_words = run.repeated != nullptr && IsDuplicate(run.form);
  for (const Sample& values : data.measured)
    regression::RefuseNegativeOrZero(run, values,
                                     other_words
                                         ? " Negative numbers: No regression analysis "
                                         : " Negative or zero numbers: No regression analysis ");
}

template <class Measurements>
void Analyse(Run& run, const Pairs& data, const Measurements& measured) {
  constexpr std::string_view kNotComputed =
      " No convergence in iterative Weighted Deming analysis ";
  using Width = typename Measurements::Width;
  const Levels levels = PlaceLevels(run.form, RangeOfAbscissae(run, data, 4));
  const Weighting weighting = TakeWeighting(run.form);
  const std::optional<WeightedDemingLine> line = FitWeightedDeming(measured, weighting);
  if (!line) run.Refuse(kNotComputed);
  const auto without_each = FitWeightedDemingWithoutEach(measured, weighting);
  if (!without_each) run.Refuse(kNotComputed);
  const JackknifeErrors errors = Jackknife(run.messages, *line, *without_each, levels);
  const Real df = data.Count() - 2;
  const TTest slope = TestAgainst(1, line->b, errors.se_b, df);

  run.sheet.Clear();
  WriteTitle(run);
  WriteColumns(run, data);
  WriteWeighting(run, weighting);
  WriteSlope(run, 11, slope);
  run.sheet.Row(16, "  W. correlation coefficient", line->rw, CorrelationPClass(df, line->rw));
  const Sample e = VerticalResiduals<Width>(data, *line);
  Sample q;  // weighted residuals
  for (std::size_t i = 0; i < e.size(); ++i) q.push_back(Width(Sqrt(line->w[i]) * e[i]));
  run.sheet.Row(17, "SDy.x prop. factor (vertical)", ResidualSD(run, q));
  WriteRatio(run, *line, "  Estimated   SDax/SDay");
  ReportDeming<Width>(run, {data, levels, *line, errors, e}, kPlots);
}

void RunWeightedDeming(Run& run) {
  Pairs data = ReadPairs(run);
  RefuseNegativeOrZero(run, data);
  if (IsDuplicate(run.form)) {
    Analyse(run, data, TakeDuplicate(run, data));
  } else {
    const SingleMeasurements measured = TakeSingle(run.form, data);
    Analyse(run, data, measured);
  }
}

constexpr Procedure MCstatF4s[] = {Comparison({
    .window = "MCstatF4s",
    .title = "Quorval      Weighted Deming Regression Analysis",
    .menu = {.back = "&Selection of W. Deming  Reg. options"},
    .print_header = "/cWeighted Deming Regression/rPage #/p/n",
    .plot_windows = kPlots,
    .run = RunWeightedDeming,
})};

}  // namespace

constinit const Analysis kWeightedDeming{
    .id = "weighted-deming",
    .dialog = &MCstatF4so,
    .procedures = MCstatF4s,
    .manual = "weighted-deming.md",
};

}  // namespace quorval::regression
