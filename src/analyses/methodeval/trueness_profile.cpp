// Bias over the measuring range: measured means against true values.
#include "analyses/methodeval/trueness_profile.h"

#include "analyses/methodeval/profile.h"
#include "analyses/registry.h"

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

// --- Raw data: a column for each level, headed by its true value

constexpr Layout kLayout{
    .columns = kThirtyColumns,
    .heads = 1,
    .least = 2,
    .too_few = " Sample size for measured values at given level < 2: No analysis "};

Level LevelOf(const Replicates& measured) {
  return {.T = *measured.head,
          .mean = measured.d.mean,
          .SEM = measured.d.sd / Sqrt(measured.N),
          .N = measured.N};
}

void WriteOutliers(ResultsSheet& sheet, int row, const RawData& data) {
  const Real limit = data.outlier_limit;
  if (data.outlier_columns.empty()) {
    sheet.Row(row, "No outliers present", "Outlier limit", limit, "SD");
    return;
  }
  sheet.Row(row, "Outlier limit", limit, "SD");
  for (int column : data.outlier_columns)
    sheet.Row(++row, "Outlier(s) identified in Col. no.:", column);
}

void WriteRaw(Run& run, const RawData& data, const std::vector<Level>& levels) {
  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  sheet.LetTextsOverflow();
  sheet.Row(1, Bold{"Trueness Profile"});
  sheet.Row(2, " Project: ", run.context.ProjectName);
  sheet.Row(3, "The True value was read as the first numeric value in each col");
  sheet.Row(4, "The following values were read as measured values");
  sheet.Row(5, "First Data Column: Col. no.:", data.columns.start);
  sheet.Row(6, "Last Data Column: Col. no.:", data.columns.last);
  sheet.Row(7, "No of levels:", static_cast<int>(levels.size()));
  sheet.Row(10, "True values", "Mean", "N", "SEM", "%Mean", "%SEM");
  int row = 11;
  for (const Level& level : levels) {
    sheet.Row(row, level.T, level.mean, level.N, *level.SEM);
    PutPercentage(sheet, row, 5, level.PercentMean());
    PutPercentage(sheet, row++, 6, level.PercentSEM());
  }
  WriteOutliers(sheet, row + 1, data);
}

void RunRaw(Run& run) {
  const RawData data = ReadRawData(run, kLayout);
  std::vector<Level> levels;
  for (const Replicates& measured : data.levels) levels.push_back(LevelOf(measured));
  WriteRaw(run, data, levels);
  DrawProfile(run, levels);
}

// --- Pairs: a column of true values, one of means, and perhaps one of their SEMs

std::vector<int> TakePairColumns(const Run& run) {
  std::vector<int> columns{TakeColumn(run, kTrueColumn), TakeColumn(run, kMeanColumn)};
  if (!run.form.Blank(kSemColumn)) columns.push_back(TakeColumn(run, kSemColumn));
  return columns;
}

std::vector<Level> ReadLevels(Run& run, const std::vector<int>& columns) {
  const std::vector<Sample> values = ReadPairs(run, columns);
  std::vector<Level> levels;
  for (std::size_t i = 0; i < values[0].size(); ++i) {
    Level& level = levels.emplace_back(Level{.T = values[0][i], .mean = values[1][i], .SEM = {}});
    if (values.size() == 3) level.SEM = values[2][i];
  }
  return levels;
}

void WritePairs(Run& run, const std::vector<int>& columns, const std::vector<Level>& levels) {
  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  sheet.LetTextsOverflow();
  sheet.Row(1, Bold{"Trueness Profile from paired (True, Mean (and SEM)) values"});
  sheet.Row(2, " Project: ", run.context.ProjectName);
  sheet.Row(5, "True levels: Col. no.:", columns[0]);
  sheet.Row(6, "Means of measured values: Col. no.:", columns[1]);
  sheet.Row(7, "SEMs of measured values: Col. no.:");
  if (columns.size() == 3) sheet.Put(7, 2, columns[2]);
  sheet.Row(8, "No of levels:", static_cast<int>(levels.size()));
  sheet.Row(10, "True values", "Mean", "SEM", "%Mean", "%SEM");
  int row = 11;
  for (const Level& level : levels) {
    sheet.Row(row, level.T, level.mean);
    PutPercentage(sheet, row, 4, level.PercentMean());
    if (level.SEM) {
      sheet.Put(row, 3, *level.SEM);
      PutPercentage(sheet, row, 5, level.PercentSEM());
    }
    ++row;
  }
}

void RunPairs(Run& run) {
  const std::vector<int> columns = TakePairColumns(run);
  const std::vector<Level> levels = ReadLevels(run, columns);
  WritePairs(run, columns, levels);
  DrawProfile(run, levels);
}

// --- Windows

constexpr PlotWindow kPictures[] = {
    {.window = "frmMethTruenessPlot2", .caption = {}, .bitmap = " Chart2D1.bmp", .height = 250},
    {.window = "frmMethTruenessPlot1a", .caption = {}, .bitmap = " Chart2D1Res.bmp", .height = 250},
};
constexpr PlotJob kPlotJobs[] = {{.pictures = kPictures}};

constexpr Procedure ProcedureOf(When mode, std::string_view fault, void (*run)(Run&)) {
  return {
      .when = mode,
      .window = "frmMethTrueness",
      .title = "Trueness Profile",
      .menu = MenuWith("&Select Options for Trueness Profile"),
      .print_header = "/cTrueness Results/rPage #/p/n",
      .plot_jobs = kPlotJobs,
      .failure = {.fault = fault, .aftermath = Aftermath::kWindowCloses},
      .run = run,
  };
}

constexpr Procedure kProcedures[] = {
    ProcedureOf(kRaw, "Error occurred in Trueness Profile analysis", RunRaw),
    ProcedureOf(kPairs, "Error occurred in trueness Profile analysis", RunPairs),
};

}  // namespace
}  // namespace trueness

constinit const Analysis kTruenessProfile{
    .id = "trueness-profile",
    .dialog = &trueness::frmMethTruenessOpt,
    .procedures = trueness::kProcedures,
    .manual = "trueness-profile.md",
};

}  // namespace quorval::methodeval
