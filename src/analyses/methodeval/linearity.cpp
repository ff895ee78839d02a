// Linearity within a method, from a dilution series measured with replicates.
//
// Here: the lack-of-fit F-test of a straight line, by ordinary or weighted least squares on the
// level means.  Outliers are reported, and the regression stands as computed.  The deviation from a
// polynomial stands in linearity_polynomial.cpp.
#include "analyses/methodeval/linearity.h"

#include <optional>

#include "analyses/methodeval/lack_of_fit.h"
#include "analyses/registry.h"
#include "analyses/weighting.h"
#include "core/steps.h"

namespace quorval::methodeval {
namespace linearity {
namespace {

// --- Options

constexpr Field kOutlierLimit{.key = "outlier-limit",
                              .caption = "Outlier limit: No. of SD units:",
                              .initial = "4",
                              .demand = kPositiveLimit};

constexpr std::string_view kWeightingGroup = "Weighting:";
constexpr Field kExponent{
    .key = "weighting-exponent",
    .group = kWeightingGroup,
    .caption = "Weighting exponent (0 - 2; 2 corr. to proportional weighting)",
    .initial = "2",
    .enabled = {kWlr}};
constexpr Field kTruncation{.key = "truncation-limit",
                            .group = kWeightingGroup,
                            .caption = "Truncation of weighting at lower limit:",
                            .initial = "0",
                            .enabled = {kWlr}};

constexpr Field Note(std::string_view text) { return {.kind = FieldKind::kNote, .caption = text}; }

constexpr Field kFields[] = {
    kStartColumn,
    kLastColumn,
    Note("x values should be in ascending order from start to last column"),
    Note("Notice:For a given column, the x value (dilution value) constitutes the first numeric "
         "variable value  (row 1). The y values constitute the following consecutive series of row "
         "values (see demo example). "),
    kOutlierLimit,
    kProcedure,
    kExponent,
    kTruncation,
    kDegree,
    kGoal,
    kPercentGoal,
    kAbsoluteGoal,
    Note("Linearity evaluation presupposes at least two y measurements at the x levels (dilution "
         "levels)."),
};

constexpr Rule kRules[] = {
    DemandsOf(kStartColumn, kLastColumn),
    DemandsOf(kOutlierLimit),
};

constexpr Dialog frmMethLinearityOpt{
    .window = "frmMethLinearityOpt",
    .title = "Quorval     Linearity Options   ",
    .heading =
        "Options for Linearity Evaluation (Within-Method) on the basis of an F-test (Lack "
        "of fit principle)",
    .fields = kFields,
    .rules = kRules,
};
static_assert(WellFormed(frmMethLinearityOpt));

// --- Input

struct LackOfFitInput {
  DilutionSeries series;
  std::optional<Weighting> weighting{};  // of the levels
  Single outlier_limit{};
};

LackOfFitInput ReadLackOfFit(Run& run) {
  LackOfFitInput input{.series = ReadDilutionSeries(run)};
  if (run.form.Holds(kWlr)) {
    Sample x;
    for (const DilutionLevel& level : input.series.levels) x.push_back(level.x);
    RefuseNegativeOrZero(run, x,
                         "Negative or zero x values in weighted linearity evaluation: no analysis");
    input.weighting = {run.form.TextAsNumber32(kExponent), run.form.TextAsNumber32(kTruncation)};
  }
  input.outlier_limit = run.form.TextAsNumber32(kOutlierLimit);
  return input;
}

// --- Computation

// Residuals, the values that they belong to, and those of them that are marked.
struct OutlierPass {
  Sample residuals{}, values{};
  OutlierMarks marks{};
};

struct LackOfFitResult {
  std::vector<DilutionLevel> levels;  // with their weights
  LackOfFit fit;
  OutlierPass within_sets{}, around_line{};
};

LackOfFitResult ComputeLackOfFit(Messages& messages, const LackOfFitInput& input) {
  std::vector<DilutionLevel> levels = input.series.levels;
  if (input.weighting)
    for (DilutionLevel& level : levels) level.w = input.weighting->At(level.x);
  const LackOfFit fit = FitLine(messages, levels);
  return {.levels = std::move(levels), .fit = fit};
}

// The screen on 32-bit copies.  Residuals without dispersion end the run.
void MarkOutliers(Messages& messages, Single limit, OutlierPass& pass) {
  Insist(messages, "Error in linearity evaluation", [&] {
    const Singles residuals = ToSingles(pass.residuals);
    const Range range = RangeOf(ToReals(residuals));
    if (range.min == range.max) Raise(Fault::Kind::kDivisionByZero);
    pass.marks = MarkOutliersBySD(messages, limit, residuals);
  });
}

OutlierPass MarkWithinSets(Messages& messages, Single limit, const LackOfFitResult& result) {
  OutlierPass pass;
  for (const DilutionLevel& level : result.levels)
    for (Real y : level.y) {
      pass.residuals.push_back(level.w * (y - level.mean));
      pass.values.push_back(y);
    }
  MarkOutliers(messages, limit, pass);
  return pass;
}

OutlierPass MarkAroundLine(Messages& messages, Single limit, const LackOfFitResult& result) {
  OutlierPass pass;
  for (const DilutionLevel& level : result.levels) {
    pass.residuals.push_back(result.fit.At(level.x) - level.mean);
    pass.values.push_back(level.mean);
  }
  MarkOutliers(messages, limit, pass);
  return pass;
}

// --- Report

constexpr Quantity kFirst = Captioned(quantity::kFirstColumn, "First Data Column: Col. no.:");
constexpr Quantity kLast = Captioned(quantity::kLastColumn, "Last Data Column: Col. no.:");
constexpr Quantity kLevels = Captioned(quantity::kLevels, "No of x levels:");
constexpr Quantity kSlope{"slope", "Slope b:"};
constexpr Quantity kSlopeSE{"slope.se", "SE:"};
constexpr Quantity kIntercept{"intercept", "Intercept a0:", Unit::kMeasurand};
constexpr Quantity kInterceptSE{"intercept.se", "SE:", Unit::kMeasurand};
constexpr Quantity kF{"lack_of_fit.f", "F-test for linearity:  F = "};
constexpr Quantity kP{"lack_of_fit.p", " P: "};
constexpr std::string_view kDf = "D. f.:";
constexpr Quantity kS1sq{"ms.within", "s1 squared:"};
constexpr Quantity kDf1{"df.within", kDf, Unit::kNone, Width::kWhole};
constexpr Quantity kS2sq{"ms.lack_of_fit", "s2 squared:"};
constexpr Quantity kDf2{"df.lack_of_fit", kDf, Unit::kNone, Width::kWhole};
constexpr Quantity kPooledSq{"ms.residual", "Pooled s squared:"};
constexpr Quantity kPooledDf{"df.residual", kDf, Unit::kNone, Width::kWhole};

// The words and names of one of the two passes.
struct OutlierPassRows {
  Quantity outliers, limit;
  NamedTable list;
  std::string_view none, value, more;

  constexpr std::array<Quantity, 2> All() const { return {outliers, limit}; }
};
constexpr OutlierPassRows kWithinSets{
    .outliers = {"within_sets.outliers", "Outlier(s) identified within sets", Unit::kNone,
                 Width::kWhole},
    .limit = {"within_sets.outlier_limit", "Outlier limit:", Unit::kNone, Width::k32},
    .list = {"within_sets.outlier_list", "The outliers within sets"},
    .none = "No outliers identified within sets",
    .value = "Outlier Y value:",
    .more = "More than 5 outliers identified within sets that are not shown",
};
constexpr OutlierPassRows kAroundLine{
    .outliers = {"around_line.outliers", "Outlier(s) identified around line", Unit::kNone,
                 Width::kWhole},
    .limit = {"around_line.outlier_limit", "Outlier limit:", Unit::kNone, Width::k32},
    .list = {"around_line.outlier_list", "The level means that are outliers around the line"},
    .none = "No outliers identified around line",
    .value = "Outlier Y (mean)value:",
    .more = "More than 5 outliers identified around line that are not shown",
};
constexpr WeightingRows kWeightingRows{
    .exponent = Captioned(quantity::kExponent, "Weighting exponent = "),
    .limit = Captioned(quantity::kTruncationLimit, "Truncation of weighting at lower limit = "),
    .square_root = "(square root relationship)",
    .proportional = "(proportional relationship)",
};

constexpr auto kQuantities =
    Joined(std::array{kFirst, kLast, kLevels, kSlope, kSlopeSE, kIntercept, kInterceptSE, kF, kP,
                      kS1sq, kDf1, kS2sq, kDf2, kPooledSq, kPooledDf},
           kWithinSets.All(), kAroundLine.All(), kWeightingRows.All(), kPolynomialQuantities);
constexpr NamedTable kTables[] = {kWithinSets.list, kAroundLine.list, kReplicates, kRepeatability,
                                  kDeviations};

void WriteFit(ResultsSheet& sheet, const LackOfFitInput& input, const LackOfFit& fit) {
  constexpr Blank _;
  const DilutionSeries& series = input.series;
  sheet.Row(1,
            Bold{input.weighting ? " Linearity Evaluation (WLR)" : " Linearity Evaluation (OLR)"});
  sheet.Row(3, " Project: ", sheet.ProjectName());
  sheet.Row(5, " x is the first value in each column, then y values follow");
  sheet.Row(6, kFirst.caption, _, kFirst(series.columns.start));
  sheet.Row(7, kLast.caption, _, kLast(series.columns.last));
  sheet.Row(8, kLevels.caption, _, kLevels(series.k()));
  sheet.Row(10, kSlope(fit.b), kSlopeSE.caption, kSlopeSE(fit.SEb));
  sheet.Row(11, kIntercept(fit.a0), kInterceptSE.caption, kInterceptSE(fit.SEa0));
  sheet.Row(12, kF.caption, _, kF(fit.F), kP.caption, kP(fit.P));
  sheet.Row(13, kS1sq.caption, _, kS1sq(fit.s1sq), kDf, kDf1(fit.df1));
  sheet.Row(14, kS2sq.caption, _, kS2sq(fit.s2sq), kDf, kDf2(fit.df2));
  sheet.Row(15, kPooledSq.caption, _, kPooledSq(fit.pooled_sq), kDf, kPooledDf(fit.pooled_df));
  sheet.Row(16, "(Pooled s squared, SEb and SEa0 are only meaningful");
  sheet.Row(17, "in case of n. s. F-test)");
}

// The count and the limit in `row`, up to five values below it, and seven rows on that these are
// not all.
void WriteOutliers(ResultsSheet& sheet, int row, const OutlierPassRows& rows, Single outlier_limit,
                   const OutlierPass& pass) {
  constexpr int kMostListed = 5;
  constexpr Blank _;
  const auto limit = rows.limit(Real(outlier_limit));
  if (pass.marks.count == 0) {
    sheet.Row(row, rows.none, _, _, rows.limit.caption, limit, "SD");
    return;
  }
  sheet.Put(row, 1, rows.outliers(pass.marks.count));
  sheet.Row(row, _, rows.outliers.caption, _, _, rows.limit.caption, limit, "SD");
  const ResultsSheet::Listing listing(sheet, rows.list);
  for (int next = row + 1; std::size_t i : FirstMarked(pass.marks, kMostListed))
    sheet.Row(next++, rows.value, _, pass.values[i]);
  if (pass.marks.count > kMostListed) sheet.Row(row + 7, rows.more);
}

void WriteWeighting(ResultsSheet& sheet, const Weighting& weighting) {
  const WeightingRows& rows = kWeightingRows;
  sheet.Row(37, rows.exponent.caption, Blank{}, rows.exponent(Real(weighting.P)));
  const std::string_view relationship = rows.RelationshipOf(weighting);
  if (!relationship.empty()) sheet.Put(37, 4, relationship);
  if (weighting.T > 0) sheet.Row(38, rows.limit.caption, Blank{}, rows.limit(Real(weighting.T)));
}

void ReportLackOfFit(Messages& messages, ResultsSheet& sheet, const LackOfFitInput& input,
                     LackOfFitResult& result) {
  sheet.LetTextsOverflow();
  WriteFit(sheet, input, result.fit);

  // The rows above remain where the residuals cannot be examined.
  result.within_sets = MarkWithinSets(messages, input.outlier_limit, result);
  result.around_line = MarkAroundLine(messages, input.outlier_limit, result);
  WriteOutliers(sheet, 19, kWithinSets, input.outlier_limit, result.within_sets);
  WriteOutliers(sheet, 28, kAroundLine, input.outlier_limit, result.around_line);
  if (input.weighting) WriteWeighting(sheet, *input.weighting);
}

// --- Plots

constexpr PlotWindow kLackOfFitPlots[] = {
    {.window = "frmMethLinPlot1",
     .caption = "Linearity: measurements and line",
     .x_title = "x",
     .y_title = "y",
     .bitmap = " Chart2D1Plot1.bmp",
     .height = 200},
    {.window = "frmMethLinPlot2",
     .caption = "Linearity: residuals of single values",
     .x_title = "x",
     .y_title = "y - level mean",
     .bitmap = " Chart2D1Plot2.bmp",
     .height = 150},
    {.window = "frmMethLinPlot3",
     .caption = "Linearity: residuals of level means",
     .x_title = "x",
     .y_title = "Line - level mean",
     .bitmap = " Chart2D1Plot3.bmp",
     .height = 150},
};
constexpr PlotJob kLackOfFitJobs[] = {{.pictures = kLackOfFitPlots}};

void DrawLackOfFit(Plots& plots, const LackOfFitInput&, const LackOfFitResult& result) {
  const LackOfFit& fit = result.fit;
  Points replicates, within_sets, around_line;
  for (const DilutionLevel& level : result.levels) {
    for (Real y : level.y) {
      replicates.push_back({level.x, y});
      within_sets.push_back({level.x, y - level.mean});
    }
    around_line.push_back({level.x, fit.At(level.x) - level.mean});
  }
  const Real first = result.levels.front().x, last = result.levels.back().x;
  Plot& measured = AddPlot(plots, kLackOfFitPlots[0]);
  measured.AddPoints(std::move(replicates));
  measured.AddLine({{first, fit.At(first)}, {last, fit.At(last)}});
  AddPlot(plots, kLackOfFitPlots[1]).AddPoints(std::move(within_sets));
  AddPlot(plots, kLackOfFitPlots[2]).AddPoints(std::move(around_line));
}

// --- The analysis

constexpr std::string_view kTitle = "Linearity Evaluation";
constexpr std::string_view kPrintHeader = "/cLinearity Results/rPage #/p/n";
constexpr FailurePolicy kFailure = ClosingWith("Error occurred in Linearity analysis");

constexpr Procedure kByOlr{
    .when = kOlr,
    .window = "frmMethLinearity",
    .title = kTitle,
    .menu = MenuWith("&Select Options for Linearity Eval."),
    .print_header = kPrintHeader,
    .plot_jobs = kLackOfFitJobs,
    .plot_windows = kLackOfFitPlots,
    .offers_tutorial = true,
    .failure = kFailure,
    .run = Steps<ReadLackOfFit, ComputeLackOfFit, ReportLackOfFit, DrawLackOfFit>,
};
constexpr Procedure kProcedures[] = {
    kByOlr,
    ForChoice(kByOlr, kWlr, kByOlr.run),
    {.when = kPolynomial,
     .window = "frmLinPolynReg",
     .title = kTitle,
     .menu = MenuWith("Select linearity &Options"),
     .print_header = kPrintHeader,
     .plot_jobs = kPolynomialJobs,
     .plot_windows = kPolynomialPlots,
     .offers_tutorial = true,
     .failure = kFailure,
     .run = RunPolynomial},
};

}  // namespace
}  // namespace linearity

constinit const Analysis kLinearity{
    .id = "linearity",
    .dialog = &linearity::frmMethLinearityOpt,
    .procedures = linearity::kProcedures,
    .quantities = linearity::kQuantities,
    .tables = linearity::kTables,
    .manual = "linearity.md",
};

}  // namespace quorval::methodeval
