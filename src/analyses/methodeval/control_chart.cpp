// Control chart of one control material (Levey and Jennings, Am J Clin Pathol 1950;20:1059-66): the
// measurements against an assigned mean and SD, value by value.
//
// Negative values stand for missing measurements: they keep their place in the series, and enter
// no statistic and no plot.
#include <algorithm>
#include <optional>

#include "analyses/methodeval/method_evaluation.h"
#include "analyses/registry.h"
#include "core/steps.h"

namespace quorval::methodeval {
namespace {

// --- Options

constexpr Field kValueColumn{.key = "value-column",
                             .group = kColumnGroup,
                             .caption = "x values from col no.:",
                             .initial = "5",
                             .demand = kWorksheetColumn};
constexpr Field kMissingNote{
    .kind = FieldKind::kNote,
    .group = kColumnGroup,
    .caption = "Missing x values are indicated with negative number, e.g. -1."};
constexpr Field kMeanColumn{.key = "mean-column",
                            .group = kColumnGroup,
                            .caption = "Assigned mean of control from col no (row 1):",
                            .initial = "2",
                            .demand = kWorksheetColumn};
constexpr Field kSdColumn{.key = "sd-column",
                          .group = kColumnGroup,
                          .caption = "Assigned SD of control from col no. (row 1):",
                          .initial = "3",
                          .demand = kWorksheetColumn};
constexpr Field kDateColumn{.key = "date-column",
                            .group = kColumnGroup,
                            .caption = "Optional date from col no.:",
                            .initial = "4",
                            .demand = kWorksheetColumn};

constexpr Field kFields[] = {kValueColumn, kMissingNote, kMeanColumn, kSdColumn, kDateColumn};

// The dates are looked at by the run.
constexpr Rule kRules[] = {DemandsOf(kValueColumn, kMeanColumn, kSdColumn)};

constexpr Dialog frmControlChartOpt{
    .window = "frmControlChartOpt",
    .title = "Quorval     Control Chart Options   ",
    .heading = "Options for Control Chart (see Demo Control Example)",
    .fields = kFields,
    .rules = kRules,
};
static_assert(WellFormed(frmControlChartOpt));

// --- Input

struct ControlChartInput {
  int column;
  std::string analyte;
  Sample x;
  std::optional<Texts> dates;  // or other labels, one for each value
  Real M, S;                   // assigned mean and SD

  Range Limits(int sds) const { return {M - sds * S, M + sds * S}; }
  bool Rejects(Real value) const { return value < Limits(3).min || value > Limits(3).max; }
};

bool IsMissing(Real value) { return value < 0; }

std::optional<Texts> ReadDates(Run& run, std::size_t n) {
  if (run.form.Blank(kDateColumn)) return std::nullopt;
  if (!run.form.Meets(kDateColumn)) {
    run.form.Note(kDateColumn, "; the worksheet has the columns 1 to 500");
    throw Fault{Fault::Kind::kOutOfRange, true};
  }
  return ReadLabels(run, kDateColumn, n, "date");
}

void NoteMissing(Notices& notices, const ControlChartInput& input) {
  const auto missing = static_cast<std::size_t>(std::ranges::count_if(input.x, IsMissing));
  if (missing == 0) return;
  const auto first = std::ranges::find_if(input.x, IsMissing) - input.x.begin();
  const int row = static_cast<int>(first) + 1;
  Note(notices,
       {"left-out",
        "column " + std::to_string(input.column) + " holds " + Counted(missing, "negative value") +
            ", taken as missing and left out; the first stands in row " + std::to_string(row),
        input.column, row});
}

ControlChartInput ReadControlChart(Run& run) {
  Column column = ReadColumn(run, TakeColumn(run, kValueColumn, kAllColumns));
  if (column.values.empty()) run.Refuse(kAllColumns.refusal);
  ControlChartInput input{.column = column.number,
                          .analyte = std::move(column.header),
                          .x = column.Numbers(run.notices),
                          .dates = ReadDates(run, column.values.size()),
                          .M = FirstNumber(run, run.form.TextAsInt16(kMeanColumn)),
                          .S = FirstNumber(run, run.form.TextAsInt16(kSdColumn))};
  NoteMissing(run.notices, input);
  RefuseWithoutDispersion(run, input.x);
  return input;
}

// --- Computation

struct ControlChartResult {
  int nv;         // valid values
  Real mean, SD;  // observed
};

ControlChartResult ComputeControlChart(Messages& messages, const ControlChartInput& input) {
  Sample valid = input.x;
  std::erase_if(valid, IsMissing);
  if (valid.size() < 2) Refuse(messages, kFewerThanTwo);
  const Description observed = DescribeSample(messages, valid);
  return {.nv = static_cast<int>(valid.size()), .mean = observed.mean, .SD = observed.sd};
}

// --- Report

constexpr Quantity kColumn = Captioned(quantity::kColumn, "  Selected Col.for values:  ");
constexpr Quantity kCount = Captioned(quantity::kCount, "  No of obs:  ");
constexpr Quantity kAssignedMean{"assigned.mean", "  Assigned mean:  ", Unit::kMeasurand};
constexpr Quantity kAssignedSD{"assigned.sd", "  Assigned SD:  ", Unit::kMeasurand};
constexpr std::string_view kWarning = "  Warning limits:  ";
constexpr Quantity kWarningLower{"warning_limit.lower", kWarning, Unit::kMeasurand};
constexpr Quantity kWarningUpper{"warning_limit.upper", kWarning, Unit::kMeasurand};
constexpr std::string_view kRejection = "  Rejection limits:  ";
constexpr Quantity kRejectionLower{"rejection_limit.lower", kRejection, Unit::kMeasurand};
constexpr Quantity kRejectionUpper{"rejection_limit.upper", kRejection, Unit::kMeasurand};
constexpr Quantity kMean = Captioned(quantity::kMean, "  Observed Mean:  ");
constexpr Quantity kSD = Captioned(quantity::kSd, "  Observed SD:  ");
constexpr Quantity kCV = Captioned(quantity::kCv, "  Observed CV%: ");
constexpr Quantity kQuantities[] = {kColumn,
                                    kCount,
                                    kAssignedMean,
                                    kAssignedSD,
                                    kWarningLower,
                                    kWarningUpper,
                                    kRejectionLower,
                                    kRejectionUpper,
                                    kMean,
                                    kSD,
                                    kCV};
constexpr NamedTable kValues{"values", "The values in their order, rejected ones in bold"};
constexpr NamedTable kTables[] = {kValues};

void WriteValues(ResultsSheet& sheet, const ControlChartInput& input) {
  if (input.dates) sheet.Put(17, 2, " Opt. Dates:");
  sheet.Put(17, 3, "  Values: ");
  const ResultsSheet::Listing listing(sheet, kValues);
  for (std::size_t i = 0; i < input.x.size(); ++i) {
    const int row = 18 + static_cast<int>(i);
    if (input.dates) sheet.Put(row, 2, (*input.dates)[i]);
    if (!IsMissing(input.x[i]) && input.Rejects(input.x[i])) {
      sheet.Put(row, 3, BoldNumber{input.x[i]});
    } else {
      sheet.Put(row, 3, input.x[i]);
    }
  }
}

void ReportControlChart(ResultsSheet& sheet, const ControlChartInput& input,
                        const ControlChartResult& result) {
  sheet.Row(2, Bold{"  Control data"});
  sheet.Row(3, "  Project:", sheet.ProjectName());
  sheet.Row(4, kColumn(input.column));
  if (input.analyte.empty()) {
    sheet.Row(5, " ", "");
  } else {
    sheet.Row(5, "   Analyte: ", input.analyte);
  }
  sheet.Row(6, kCount(result.nv));
  sheet.Row(8, kAssignedMean(input.M));
  sheet.Row(9, kAssignedSD(input.S));
  const Range warning = input.Limits(2);
  sheet.Row(10, kWarningLower(warning.min), kWarningUpper(warning.max));
  const Range rejection = input.Limits(3);
  sheet.Row(11, kRejectionLower(rejection.min), kRejectionUpper(rejection.max));
  sheet.Row(13, "  Control data:  ");
  sheet.Row(14, kMean(result.mean));
  sheet.Row(15, kSD(result.SD));
  if (const auto CV = PercentOf(result.SD, Abs(result.mean))) {
    sheet.Row(16, kCV(*CV));
  } else {
    sheet.Row(16, "  CV% n. d. ");
  }
  WriteValues(sheet, input);
}

// --- Plots

constexpr PlotWindow kPlots[] = {{.window = "frmControlChartPlot",
                                  .caption = "Control Chart",
                                  .x_title = "Observation no.",
                                  .bitmap = " Chart2D1.bmp",
                                  .height = 350}};
constexpr PlotJob kPlotJobs[] = {{.pictures = kPlots}};

void DrawControlChart(Plots& plots, const ControlChartInput& input, const ControlChartResult&) {
  Plot& plot = AddPlot(plots, kPlots[0]);
  plot.label =
      "Solid blue line: Ass. mean; Green dotted lines: Ass. mean +/- 2 ass. SD; Red dotted lines: "
      "Ass. mean +/- 3 ass. SD. ";
  plot.y.title = input.analyte;
  Points valid = AgainstNumber(input.x);
  std::erase_if(valid, [](const Point& point) { return IsMissing(point.y); });
  plot.AddPoints(std::move(valid));
  AddSdLines(plot, input.M, input.S, {0, input.x.size()});
}

// --- The analysis

constexpr Procedure frmControlChart[] = {{
    .window = "frmControlChart",
    .title = "Control Chart",
    .menu = MenuWith("&Select Options for Precision Evaluation", "P&rint Plot"),
    .print_header = "/cPrecision Results/rPage #/p/n",
    .plot_jobs = kPlotJobs,
    .plot_windows = kPlots,
    .failure = ClosingWith("Error occurred in control chart analysis"),
    .run = Steps<ReadControlChart, ComputeControlChart, ReportControlChart, DrawControlChart>,
}};

}  // namespace

constinit const Analysis kControlChart{
    .id = "control-chart",
    .dialog = &frmControlChartOpt,
    .procedures = frmControlChart,
    .quantities = kQuantities,
    .tables = kTables,
    .manual = "control-chart.md",
};

}  // namespace quorval::methodeval
