// Control chart of one control material (Levey and Jennings, Am J Clin Pathol 1950;20:1059-66): the
// measurements against an assigned mean and SD, value by value.
//
// Negative values stand for missing measurements: they keep their place in the series, and enter
// no statistic and no plot.
#include <algorithm>
#include <optional>

#include "analyses/methodeval/method_evaluation.h"
#include "analyses/registry.h"

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

// --- Intake

struct ControlData {
  int column;
  std::string analyte;
  Sample x;
  std::optional<Texts> dates;  // or other labels, one for each value
  Real M, S;                   // assigned mean and SD

  Real Limit(int sds) const { return M + sds * S; }
  bool Rejects(Real value) const { return value < Limit(-3) || value > Limit(3); }
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

ControlData ReadControlData(Run& run) {
  Column column = ReadColumn(run, TakeColumn(run, kValueColumn, kAllColumns));
  if (column.values.empty()) run.Refuse(kAllColumns.refusal);
  return {.column = column.number,
          .analyte = std::move(column.header),
          .x = column.Numbers(run.notices),
          .dates = ReadDates(run, column.values.size()),
          .M = FirstNumber(run, run.form.Column(kMeanColumn)),
          .S = FirstNumber(run, run.form.Column(kSdColumn))};
}

// --- The sheet

void WriteSheet(Run& run, const ControlData& data, int nv, const Description& observed) {
  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  sheet.Row(2, Bold{"  Control data"});
  sheet.Row(3, "  Project:", run.context.ProjectName);
  sheet.Row(4, "  Selected Col.for values:  ", data.column);
  if (data.analyte.empty()) {
    sheet.Row(5, " ", "");
  } else {
    sheet.Row(5, "   Analyte: ", data.analyte);
  }
  sheet.Row(6, "  No of obs:  ", nv);
  sheet.Row(8, "  Assigned mean:  ", data.M);
  sheet.Row(9, "  Assigned SD:  ", data.S);
  sheet.Row(10, "  Warning limits:  ", data.Limit(-2), data.Limit(2));
  sheet.Row(11, "  Rejection limits:  ", data.Limit(-3), data.Limit(3));
  sheet.Row(13, "  Control data:  ");
  sheet.Row(14, "  Observed Mean:  ", observed.mean);
  sheet.Row(15, "  Observed SD:  ", observed.sd);
  if (observed.mean == 0) {
    sheet.Row(16, "  CV% n. d. ");
  } else {
    sheet.Row(16, "  Observed CV%: ", 100 * observed.sd / Abs(observed.mean));
  }
  if (data.dates) sheet.Put(17, 2, " Opt. Dates:");
  sheet.Put(17, 3, "  Values: ");
  for (std::size_t i = 0; i < data.x.size(); ++i) {
    const int row = 18 + static_cast<int>(i);
    if (data.dates) sheet.Put(row, 2, (*data.dates)[i]);
    if (!IsMissing(data.x[i]) && data.Rejects(data.x[i])) {
      sheet.Put(row, 3, BoldNumber{data.x[i]});
    } else {
      sheet.Put(row, 3, data.x[i]);
    }
  }
}

// --- The plot

void DrawChart(Run& run, const ControlData& data) {
  Plot& plot = run.AddPlot("frmControlChartPlot", "Control Chart");
  plot.label =
      "Solid blue line: Ass. mean; Green dotted lines: Ass. mean +/- 2 ass. SD; Red dotted lines: "
      "Ass. mean +/- 3 ass. SD. ";
  plot.x.title = "Observation no.";
  plot.y.title = data.analyte;
  Points valid = AgainstNumber(data.x);
  std::erase_if(valid, [](const Point& point) { return IsMissing(point.y); });
  plot.AddPoints(std::move(valid));
  AddSdLines(plot, data.M, data.S, {0, data.x.size()});
}

// --- The run

void NoteMissing(Run& run, const ControlData& data) {
  const auto missing = static_cast<std::size_t>(std::ranges::count_if(data.x, IsMissing));
  if (missing == 0) return;
  const auto first = std::ranges::find_if(data.x, IsMissing) - data.x.begin();
  const int row = static_cast<int>(first) + 1;
  Note(run.notices,
       {"left-out",
        "column " + std::to_string(data.column) + " holds " + Counted(missing, "negative value") +
            ", taken as missing and left out; the first stands in row " + std::to_string(row),
        data.column, row});
}

void RunControlChart(Run& run) {
  const ControlData data = ReadControlData(run);
  NoteMissing(run, data);
  const Range range = RangeOf(data.x);
  if (range.max == range.min) run.Refuse(" No dispersion in variables: No analysis ");
  Sample valid = data.x;
  std::erase_if(valid, IsMissing);
  if (valid.size() < 2) run.Refuse(" Sample size < 2: No analysis ");
  WriteSheet(run, data, static_cast<int>(valid.size()), DescribeSample(run.messages, valid));
  DrawChart(run, data);
}

constexpr PlotWindow kPictures[] = {
    {.window = "frmControlChartPlot", .caption = {}, .bitmap = " Chart2D1.bmp", .height = 350}};
constexpr PlotJob kPlotJobs[] = {{.pictures = kPictures}};

constexpr Procedure frmControlChart[] = {{
    .window = "frmControlChart",
    .title = "Control Chart",
    .menu = MenuWith("&Select Options for Precision Evaluation", "P&rint Plot"),
    .print_header = "/cPrecision Results/rPage #/p/n",
    .plot_jobs = kPlotJobs,
    .failure = {.fault = "Error occurred in control chart analysis",
                .aftermath = Aftermath::kWindowCloses},
    .run = RunControlChart,
}};

}  // namespace

constinit const Analysis kControlChart{
    .id = "control-chart",
    .dialog = &frmControlChartOpt,
    .procedures = frmControlChart,
    .manual = "control-chart.md",
};

}  // namespace quorval::methodeval
