// Imprecision over the measuring range: SD and CV% against level.
#include "analyses/methodeval/precision_profile.h"

#include "analyses/methodeval/profile.h"
#include "analyses/registry.h"

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

// --- Raw data: a column of replicates for each level

constexpr Layout kLayout{.columns = kAllColumns, .heads = 0, .least = 1, .too_few = kNoValues};

void WriteRaw(Run& run, const RawData& data, const std::vector<Level>& levels) {
  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  sheet.Row(2, Bold{"  Precision Profile from raw data"});
  sheet.Row(3, "  Project:", run.context.ProjectName);
  sheet.Row(4, "  First Data Column:   Col. no.:  ", data.columns.start);
  sheet.Row(5, "  Last Data Column:   Col. no.:  ", data.columns.last);
  sheet.Row(6, "    No of levels:  ", static_cast<int>(levels.size()));
  sheet.Row(7, "     Level Mean ", "     SD ", "     CV%  ", "     N  ");
  int row = 8;
  for (const Level& level : levels) {
    sheet.Row(row, level.x, level.SD, Blank{}, level.N);
    PutPercentage(sheet, row++, 3, level.CV);
  }
  sheet.Row(++row, "Outlier limit (SDs)", data.outlier_limit);
  for (int column : data.outlier_columns) sheet.Row(++row, "Outlier(s) in Col. no.:", column);
  if (data.outlier_columns.empty()) sheet.Row(++row, "No outliers identified");
  if (HasUndefinedCV(levels))
    sheet.Row(++row, "No CV% Precision Plot because of occurrence of n. d. values");
}

// --- Pairs: a column of levels and one of their SDs

void WritePairs(Run& run, const std::array<int, 2>& columns, const std::vector<Level>& levels) {
  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  sheet.Row(2, Bold{"  Precision Profile from paired (x, SD) values"});
  sheet.Row(3, "  Project:", run.context.ProjectName);
  sheet.Row(4, "  x levels:   Col. no.:  ", columns[0]);
  sheet.Row(5, "  SD values:   Col. no.:  ", columns[1]);
  sheet.Row(6, "  No of levels   ", static_cast<int>(levels.size()));
  sheet.Row(7, "  Level   ", "  SD  ", "  CV%  ");
  int row = 8;
  for (const Level& level : levels) {
    sheet.Row(row, level.x, level.SD);
    PutPercentage(sheet, row++, 3, level.CV);
  }
  if (HasUndefinedCV(levels))
    sheet.Row(++row, "No CV% Precision Plot because of occurrence of n.d. CV%");
}

// --- The runs

void RunRaw(Run& run) {
  const RawData data = ReadRawData(run, kLayout);
  std::vector<Level> levels;
  for (const Replicates& level : data.levels)
    levels.push_back(LevelOf(level.d.mean, level.d.sd, level.N));
  WriteRaw(run, data, levels);
  DrawProfile(run, levels, run.form.Is(kCurve, "spline"));
}

void RunPairs(Run& run) {
  const std::array<int, 2> columns{TakeColumn(run, kLevelColumn), TakeColumn(run, kSdColumn)};
  const std::vector<Sample> values = ReadPairs(run, columns);
  std::vector<Level> levels;
  for (std::size_t i = 0; i < values[0].size(); ++i)
    levels.push_back(LevelOf(values[0][i], values[1][i]));
  WritePairs(run, columns, levels);
  DrawProfile(run, levels, run.form.Is(kCurve, "spline"));
}

// --- Windows

constexpr PlotWindow kPictures[] = {
    {.window = "frmPrecPlot1", .caption = {}, .bitmap = " Chart2D1.bmp", .height = 250},
    {.window = "frmPrecPlot2", .caption = {}, .bitmap = " Chart2D1Res.bmp", .height = 250},
};
constexpr PlotJob kPlotJobs[] = {{.pictures = kPictures}};

constexpr Procedure ProcedureOf(When mode, void (*run)(Run&)) {
  return {
      .when = mode,
      .window = "frmMethPrecProf",
      .title = "Precision Profile",
      .menu = MenuWith("&Select Options for Precision Profile"),
      .print_header = "/cPrecision Profile/rPage #/p/n",
      .plot_jobs = kPlotJobs,
      .failure = {.fault = "Error occurred in Precision Profile analysis",
                  .aftermath = Aftermath::kWindowCloses},
      .run = run,
  };
}

constexpr Procedure kProcedures[] = {
    ProcedureOf(kRaw, RunRaw),
    ProcedureOf(kPairs, RunPairs),
};

}  // namespace
}  // namespace precision_profile

constinit const Analysis kPrecisionProfile{
    .id = "precision-profile",
    .dialog = &precision_profile::frmMethPrecProfOpt,
    .procedures = precision_profile::kProcedures,
    .manual = "precision-profile.md",
};

}  // namespace quorval::methodeval
