// The smallest amounts that a method can tell from none, and can quantify.
//
// Procedure A, here: two multiples of the SD of a low or zero sample, the one to detect and the
// other to quantify.  Outliers are listed, and stay in the estimate.  Procedure B, with both types
// of error specified, stands in limit_of_detection.cpp.
#include "analyses/methodeval/detection_limit.h"

#include "analyses/registry.h"

namespace quorval::methodeval {
namespace detection {
namespace {

// --- Options

constexpr std::string_view kDlGroup = "Detection Limit (DL):";
constexpr std::string_view kLoqGroup = "Lower Limit of Quantitation (LOQ):";
constexpr std::string_view kSdColumnCaption = "Compute SD from Data Column No.:";

constexpr std::string_view kDlRefused = "No column no. was selected for DL analysis!";

constexpr Field kDl{.key = "dl",
                    .kind = FieldKind::kCheck,
                    .group = kDlGroup,
                    .caption = "DL",
                    .initial = "on",
                    .enabled = {kBySd}};
constexpr Conditions kDlAsked{kBySd, When{kDl.key, "on"}};
constexpr Field kDlColumn{.key = "dl-column",
                          .group = kDlGroup,
                          .caption = kSdColumnCaption,
                          .enabled = kDlAsked,
                          .demand = kWorksheetColumn.RefusedIfBlank(kDlRefused)};
constexpr Field kDlSds{.key = "dl-sds",
                       .group = kDlGroup,
                       .caption = "No. of SD´s of low/zero sample as DL:",
                       .initial = "3",
                       .enabled = kDlAsked};
constexpr Field kLoq{.key = "loq",
                     .kind = FieldKind::kCheck,
                     .group = kLoqGroup,
                     .caption = "LOQ",
                     .initial = "on",
                     .enabled = {kBySd}};
constexpr Conditions kLoqAsked{kBySd, When{kLoq.key, "on"}};
constexpr Field kLoqColumn{
    .key = "loq-column",
    .group = kLoqGroup,
    .caption = kSdColumnCaption,
    .enabled = kLoqAsked,
    .demand = kWorksheetColumn.RefusedIfBlank("No column no. was selected for LOQ analysis!")};
constexpr Field kLoqSds{.key = "loq-sds",
                        .group = kLoqGroup,
                        .caption = "No. of SD´s of low/zero sample as LOQ:",
                        .initial = "5",
                        .enabled = kLoqAsked};

constexpr Field Note(std::string_view group, std::string_view text) {
  return {.kind = FieldKind::kNote, .group = group, .caption = text, .enabled = {kByEp17}};
}

constexpr Field kFields[] = {
    kProcedure,
    kDl,
    kDlColumn,
    kDlSds,
    kLoq,
    kLoqColumn,
    kLoqSds,
    kBlankColumn,
    kAlpha,
    kStartColumn,
    kLastColumn,
    Note("Low sample values:",
         "Measurements from each sample in separate adjacent columns; Minimum one sample. Minimum "
         "two measurements of each sample."),
    Note("Low sample values:", "The pooled SD of the low sample measurements is computed."),
    kBeta,
    Note({},
         "This procedure estimates the (1-alpha percentile (default 95) of the blanks using a "
         "nonparametric principle. This is the Limit of Blank (LoB). The pooled SD estimate of "
         "measurements of several samples with a low amount of analyte is estimated. The Limit of "
         "Detection (LoD) is obtained:                           LoD = LoB + 1.65 SD (given beta = "
         "5%; a correction for degrees of freedom is performed by the program).  For further "
         "details, see Ref. 27 in Help or the Reference Manual."),
    kOutlierLimit,
};

bool AsksForNeither(const Form& form) {
  return form.Holds(kBySd) && !form.On(kDl) && !form.On(kLoq);
}

constexpr Rule kRules[] = {
    {.broken = AsksForNeither, .refusal = kDlRefused},
    Filled(kDlColumn),
    Filled(kLoqColumn),
    Filled(kBlankColumn),
    Filled(kStartColumn),
    Filled(kLastColumn),
    DemandsOf(kDlColumn, kLoqColumn, kBlankColumn, kStartColumn, kLastColumn),
    DemandsOf(kOutlierLimit),
};

constexpr Dialog frmMethDetLimOpt{
    .window = "frmMethDetLimOpt",
    .title = "Quorval     Detection Limit(DL)/LOQ Options   ",
    .heading = "Options for Detection Limit (DL)/LOQ Determination",
    .fields = kFields,
    .rules = kRules,
};
static_assert(WellFormed(frmMethDetLimOpt));

// --- Input

struct LowSampleInput {
  Column column;
  Sample x{};
  Single sds{};  // the limit is so many
  Single outlier_limit{};
};

LowSampleInput ReadLowSample(Run& run, const Field& column, const Field& sds) {
  LowSampleInput input{.column = ReadColumn(run, TakeColumn(run, column))};
  input.x = input.column.Numbers(run.notices);
  if (input.x.size() < 2) run.Refuse(kFewerThanTwo);
  RefuseWithoutDispersion(run, input.x);
  input.sds = run.form.TextAsNumber32(sds);
  input.outlier_limit = run.form.TextAsNumber32(kOutlierLimit);
  return input;
}

// --- Computation

struct LowSampleResult {
  Real mean, SD;
  OutlierMarks outliers;
};

LowSampleResult ComputeLowSample(Messages& messages, const LowSampleInput& input) {
  const Description d = DescribeSample(messages, input.x);
  return {.mean = d.mean,
          .SD = d.sd,
          .outliers = MarkOutliersBySD(messages, input.outlier_limit, input.x)};
}

// --- Report

struct LowSampleRows {
  Quantity column, n, mean, SD, sds, limit, outliers, outlier_limit;

  constexpr std::array<Quantity, 8> All() const {
    return {column, n, mean, SD, sds, limit, outliers, outlier_limit};
  }
};
constexpr LowSampleRows kDlRows{
    .column = {"dl.column", " Selected Col.:", Unit::kNone, Width::kWhole},
    .n = {"dl.n", "No of obs:", Unit::kNone, Width::kWhole},
    .mean = {"dl.mean", "Mean:", Unit::kMeasurand},
    .SD = {"dl.sd", "SD:", Unit::kMeasurand},
    .sds = {"dl.sds", "No. of SD´s as DL:", Unit::kNone, Width::k32},
    .limit = {"dl", "Detection Limit (DL):", Unit::kMeasurand},
    .outliers = {"dl.outliers", "outlier(s) present", Unit::kNone, Width::kWhole},
    .outlier_limit = {"dl.outlier_limit", "Outlier limit", Unit::kNone, Width::k32},
};
constexpr LowSampleRows kLoqRows{
    .column = {"loq.column", " Selected Col.:", Unit::kNone, Width::kWhole},
    .n = {"loq.n", "No of obs:", Unit::kNone, Width::kWhole},
    .mean = {"loq.mean", "Mean:", Unit::kMeasurand},
    .SD = {"loq.sd", "SD:", Unit::kMeasurand},
    .sds = {"loq.sds", "No. of SD´s as LoQ:", Unit::kNone, Width::k32},
    .limit = {"loq", "LOQ:", Unit::kMeasurand},
    .outliers = {"loq.outliers", "outlier(s) present", Unit::kNone, Width::kWhole},
    .outlier_limit = {"loq.outlier_limit", "Outlier limit", Unit::kNone, Width::k32},
};
constexpr auto kQuantities = Joined(kDlRows.All(), kLoqRows.All(), kByEp17Quantities);
constexpr NamedTable kTables[] = {kOutlierList};

// The count and the limit in `row`; up to three of the outliers from the third row below it.
void WriteOutliers(ResultsSheet& sheet, int row, const LowSampleRows& rows,
                   const LowSampleInput& input, const OutlierMarks& outliers) {
  constexpr int kMostListed = 3;
  const auto limit = rows.outlier_limit(Real(input.outlier_limit));
  if (outliers.count == 0) {
    sheet.Row(row, "No outliers present", Blank{}, rows.outlier_limit.caption, limit, "SD");
    return;
  }
  sheet.Put(row, 1, rows.outliers(outliers.count));
  sheet.Row(row, Blank{}, rows.outliers.caption, Blank{}, rows.outlier_limit.caption, limit, "SD");
  const ResultsSheet::Listing listing(sheet, kOutlierList);
  for (int next = row + 3; std::size_t i : FirstMarked(outliers, kMostListed))
    sheet.Row(next++, "No.:", static_cast<int>(i) + 1, "Outlier:", input.x[i]);
  if (outliers.count > kMostListed) sheet.Row(row + 6, "More than 3 outliers that are not shown ");
}

void ReportDl(ResultsSheet& sheet, const LowSampleInput& input, const LowSampleResult& result) {
  const LowSampleRows& rows = kDlRows;
  sheet.Row(2, Bold{" Determination of Detection Limit"});
  sheet.Row(3, " Project: ", sheet.ProjectName());
  sheet.Row(4, rows.column(input.column.number));
  sheet.Row(5, "Analyte:", input.column.header);
  sheet.Row(6, rows.n(static_cast<int>(input.x.size())));
  sheet.Row(8, rows.mean(result.mean), rows.SD.caption, rows.SD(result.SD));
  sheet.Row(9, rows.sds(Real(input.sds)));
  sheet.Row(10, rows.limit.caption, Blank{}, rows.limit(input.sds * result.SD));
  sheet.Row(11, "(Consider adding mean of blank)");
  WriteOutliers(sheet, 13, rows, input, result.outliers);
}

void ReportLoq(ResultsSheet& sheet, const LowSampleInput& input, const LowSampleResult& result) {
  const LowSampleRows& rows = kLoqRows;
  sheet.Row(3, " Project: ", sheet.ProjectName());
  sheet.Row(20, Bold{"Determination of Lower Limit of Quantitation (LOQ)"});
  sheet.Row(22, rows.column(input.column.number));
  sheet.Row(23, "Analyte:", input.column.header);
  sheet.Row(24, rows.n(static_cast<int>(input.x.size())));
  sheet.Row(25, rows.mean(result.mean), rows.SD.caption, rows.SD(result.SD));
  sheet.Row(26, rows.sds(Real(input.sds)));
  sheet.Row(27, rows.limit.caption, Blank{}, rows.limit(input.sds * result.SD));
  WriteOutliers(sheet, 29, rows, input, result.outliers);
}

// --- Plots

constexpr PlotWindow kPlots[] = {{.window = "frmPrecPlot1",
                                  .caption = "Detection limit",
                                  .x_title = "Observation no.",
                                  .bitmap = " Chart2D1.bmp",
                                  .height = 250},
                                 {.window = "frmPrecPlot2",
                                  .caption = "Lower limit of quantitation",
                                  .x_title = "Observation no.",
                                  .bitmap = " Chart2D1Res.bmp",
                                  .height = 250}};
constexpr PlotJob kPlotJobs[] = {{.pictures = kPlots}};

void DrawLowSample(Plot& plot, std::string_view label, const LowSampleInput& input) {
  plot.label = label;
  plot.y.title = input.column.header;
  plot.AddPoints(AgainstNumber(input.x));
}

// --- The analysis

// Each limit goes through the four steps by itself: the first stands where the second ends the run.
void RunBySd(Run& run) {
  run.sheet.Clear();
  if (run.form.On(kDl)) {
    const LowSampleInput input = ReadLowSample(run, kDlColumn, kDlSds);
    ReportDl(run.sheet, input, ComputeLowSample(run.messages, input));
    DrawLowSample(AddPlot(run.plots, kPlots[0]),
                  "Plot of values for estimation of the detection limit", input);
  }
  if (run.form.On(kLoq)) {
    const LowSampleInput input = ReadLowSample(run, kLoqColumn, kLoqSds);
    ReportLoq(run.sheet, input, ComputeLowSample(run.messages, input));
    DrawLowSample(AddPlot(run.plots, kPlots[1]), "Plot of values for estimation of the LoQ", input);
  }
}

constexpr FileMenu kMenu = MenuWith("Select &Options for Det. Limit/ LOQ");
constexpr std::string_view kPrintHeader = "/cDetection Limit/rPage #/p/n";
constexpr FailurePolicy kFailure = ClosingWith("Error occurred in DL/LOQ analysis");

constexpr Procedure kProcedures[] = {
    {.when = kBySd,
     .window = "frmMethDetLim",
     .title = "Determination of Detection Limit (DL) and/or LOQ",
     .menu = kMenu,
     .print_header = kPrintHeader,
     .plot_jobs = kPlotJobs,
     .plot_windows = kPlots,
     .failure = kFailure,
     .run = RunBySd},
    {.when = kByEp17,
     .window = "frmMethDetLim17",
     .title = "Determination of Limit of Detection (LoD) with type I and II errors specified",
     .menu = kMenu,
     .print_header = kPrintHeader,
     .plot_jobs = kByEp17Jobs,
     .plot_windows = kByEp17Plots,
     .failure = kFailure,
     .run = RunByEp17},
};

}  // namespace
}  // namespace detection

constinit const Analysis kDetectionLimit{
    .id = "detection-limit",
    .dialog = &detection::frmMethDetLimOpt,
    .procedures = detection::kProcedures,
    .quantities = detection::kQuantities,
    .tables = detection::kTables,
    .manual = "detection-limit.md",
};

}  // namespace quorval::methodeval
