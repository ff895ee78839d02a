// Comparison of two diagnostic tests by the areas under their ROC curves.  Where both tests were
// made on the same individuals, the difference gets a standard error that allows for the pairing.
#include <optional>

#include "analyses/colours.h"
#include "analyses/diagnostic/binormal.h"
#include "analyses/diagnostic/diagnostic.h"
#include "analyses/diagnostic/roc_area.h"
#include "analyses/registry.h"
#include "stats/percentile.h"
#include "stats/significance.h"

namespace quorval::diagnostic {
namespace {

// --- Options

constexpr std::string_view kColumnGroup = "Select data columns:";
constexpr std::string_view kFirstCaption = "First Sample (non-diseased): Col. No.:";
constexpr std::string_view kSecondCaption = "Second Sample (diseased): Col. No.:";

constexpr Field ColumnField(Field field, std::string_view caption, std::string_view heading = {}) {
  field.group = kColumnGroup;
  field.caption = caption;
  field.heading = heading;
  return field;
}

constexpr Field kDifferenceSE{.key = "difference-se",
                              .kind = FieldKind::kCheck,
                              .caption = "SE of Difference between ROC Curve areas (paired design)",
                              .initial = "off"};

constexpr Field kFields[] = {
    ColumnField(Text10, kFirstCaption, "Diagnostic test 1:"),
    ColumnField(Text11, kSecondCaption),
    ColumnField(Text12, kFirstCaption, "Diagnostic test 2:"),
    ColumnField(Text13, kSecondCaption),
    Note(kColumnGroup,
         "For both diagnostic tests: The first sample is supposed to constitute the non-diseased "
         "group, and the second sample is the diseased group (high values)."),
    Note(kColumnGroup, kSizeNote),
    Note(kColumnGroup, "ROC-curves of test 1 and 2 are displayed"),
    kDifferenceSE,
};

constexpr Dialog frmDiaCompOptions{
    .window = "frmDiaCompOptions",
    .title = "Quorval Comparison of Diagnostic tests ",
    .fields = kFields,
};
static_assert(WellFormed(frmDiaCompOptions));

// --- Input

struct ComparisonInput {
  DiagnosticGroups test1, test2;  // in the order of the worksheet, which pairs them
  bool with_se;
};

DiagnosticGroups TakeTest(Run& run, const Field& first_column, const Field& second_column) {
  const Column first = ReadColumn(run, first_column);
  Sample first_sample = first.Numbers32(run.notices);
  const Column second = ReadColumn(run, second_column);
  return {.FirstCol = first.number,
          .SecondCol = second.number,
          .FirstName = first.header,
          .SecondName = second.header,
          .FirstSample = std::move(first_sample),
          .SecondSample = second.Numbers32(run.notices)};
}

ComparisonInput ReadTests(Run& run) {
  ComparisonInput input{.test1 = TakeTest(run, Text10, Text11),
                        .test2 = TakeTest(run, Text12, Text13),
                        .with_se = run.form.On(kDifferenceSE)};
  for (const DiagnosticGroups& test : {input.test1, input.test2})
    if (TooSmall(test.FirstSample) || TooSmall(test.SecondSample))
      run.Refuse(" N in group(s) < 10: No diagnostic test comparison ");
  return input;
}

// --- Computation

struct DifferenceError {
  Real se;
  Range limits;
};

struct ComparisonResult {
  CutOffSweep sweep1, sweep2;
  Real area1{}, area2{};
  Real D{};  // area2 - area1
  std::optional<DifferenceError> error{};
};

constexpr std::string_view kRoutine = "Error ROC-Curve comparison routine";

CutOffSweep SweepOf(const DiagnosticGroups& groups) {
  return SweepCutOffs(SortAscending(groups.FirstSample), SortAscending(groups.SecondSample));
}

DifferenceError EstimateError(Messages& messages, Notices& notices, const ComparisonInput& input,
                              Real D) {
  const DiagnosticGroups &test1 = input.test1, &test2 = input.test2;
  if (test1.N1() != test2.N1() || test1.N2() != test2.N2()) {
    NoteLengths(notices, {{test1.FirstCol, test1.FirstSample.size()},
                          {test2.FirstCol, test2.FirstSample.size()}});
    NoteLengths(notices, {{test1.SecondCol, test1.SecondSample.size()},
                          {test2.SecondCol, test2.SecondSample.size()}});
    messages.Tell(
        "Paired ROC-Curve comparison can not be performed because of unequal sample sizes");
    throw Failure{};
  }
  const Real se = Insist(messages, "Error in SEarea ROC-Curve computation routine", [&] {
    return SEOfAreaDifference(messages, {test1.FirstSample, test1.SecondSample},
                              {test2.FirstSample, test2.SecondSample});
  });
  const Real t = CriticalT05(test1.N1() + test1.N2() - 2);
  return {se, LimitsWithin({-1, 1}, D, t * se)};
}

ComparisonResult CompareTests(Messages& messages, Notices& notices, const ComparisonInput& input) {
  ComparisonResult result{.sweep1 = SweepOf(input.test1), .sweep2 = SweepOf(input.test2)};
  Insist(messages, kRoutine, [&] {
    result.area1 = AreaUnder(result.sweep1);
    result.area2 = AreaUnder(result.sweep2);
    result.D = result.area2 - result.area1;
    if (input.with_se) result.error = EstimateError(messages, notices, input, result.D);
  });
  return result;
}

// --- Report

struct TestRows {
  Quantity first_column, first_count, second_column, second_count, area;
};
constexpr std::string_view kFirstColumnCaption = "  First sample (Healthy group):   Col: ";
constexpr std::string_view kFirstCountCaption = "  Number of observations for healthy group: ";
constexpr std::string_view kSecondColumnCaption = "  Second sample (Diseased group): Col: ";
constexpr TestRows kTest1{
    {"test1.first.column", kFirstColumnCaption, Unit::kNone, Width::kWhole},
    {"test1.first.n", kFirstCountCaption, Unit::kNone, Width::kWhole},
    {"test1.second.column", kSecondColumnCaption, Unit::kNone, Width::kWhole},
    {"test1.second.n", kSecondCount.caption, Unit::kNone, Width::kWhole},
    {"test1.area", "  Area under ROC-Curve for test 1:  "},
};
constexpr TestRows kTest2{
    {"test2.first.column", kFirstColumnCaption, Unit::kNone, Width::kWhole},
    {"test2.first.n", kFirstCountCaption, Unit::kNone, Width::kWhole},
    {"test2.second.column", kSecondColumnCaption, Unit::kNone, Width::kWhole},
    {"test2.second.n", kSecondCount.caption, Unit::kNone, Width::kWhole},
    {"test2.area", "  Area under ROC-Curve for test 2:  "},
};
constexpr Quantity kDifference{"area_difference", " Area Difference (Test2-Test1): "};
constexpr Quantity kDifferenceSe{"area_difference.se", "  SE of Area difference:  "};
constexpr Quantity kDifferenceLower{"area_difference.lower", "  95%-Confidence limits: "};
constexpr Quantity kDifferenceUpper{"area_difference.upper", "  95%-Confidence limits: "};
constexpr Quantity kQuantities[] = {
    kTest1.first_column, kTest1.first_count, kTest1.second_column, kTest1.second_count, kTest1.area,
    kTest2.first_column, kTest2.first_count, kTest2.second_column, kTest2.second_count, kTest2.area,
    kDifference,         kDifferenceSe,      kDifferenceLower,     kDifferenceUpper,
};

// Three rows from `first_row` on and three from `second_row` on.
void WriteTest(ResultsSheet& sheet, const TestRows& rows, const DiagnosticGroups& test,
               int first_row, int second_row) {
  sheet.Row(first_row, rows.first_column(test.FirstCol));
  sheet.Row(first_row + 1, rows.first_count(test.N1()));
  sheet.Row(first_row + 2, "  Variable name for healthy group:", NameOr(" ", test.FirstName));
  sheet.Row(second_row, rows.second_column(test.SecondCol));
  sheet.Row(second_row + 1, "  Variable name for diseased group:", NameOr(" ", test.SecondName));
  sheet.Row(second_row + 2, rows.second_count(test.N2()));
}

void ReportComparison(Messages& messages, ResultsSheet& sheet, const ComparisonInput& input,
                      const ComparisonResult& result) {
  Insist(messages, kRoutine, [&] {
    sheet.Row(2, Bold{"  ROC-Curve results for two diagnostic tests"});
    sheet.Row(3, "  Project:", sheet.ProjectName());
    sheet.Row(4, "  Analyst: ", Blank{}, "  Date: ");
    sheet.Row(5, Bold{"  Diagnostic test 1 (blue curve): "});
    WriteTest(sheet, kTest1, input.test1, 6, 10);
    sheet.Row(14, kTest1.area(result.area1));
    sheet.Row(16, Bold{"  Diagnostic test 2 (Red curve): "});
    WriteTest(sheet, kTest2, input.test2, 17, 20);
    sheet.Row(23, kTest2.area(result.area2));
    sheet.Row(24, kDifference(result.D));
    if (!result.error) return;
    const auto& [se, limits] = *result.error;
    sheet.Row(25, kDifferenceSe(se));
    sheet.Row(26, kDifferenceLower(limits.min), kDifferenceUpper(limits.max));
  });
}

// --- Plots

constexpr PlotWindow kPlots[] = {RocPlot("Comparison of ROC-curves")};
constexpr PlotJob kPlotJobs[] = {{.pictures = kPlots}};

void DrawCurves(Messages& messages, Plots& plots, const ComparisonInput&,
                const ComparisonResult& result) {
  Insist(messages, "Error in plot of Roc-curve comparison routine", [&] {
    Plot& plot = AddRocPlot(plots, kPlots[0]);
    plot.label = "Blue: test 1, red: test 2";
    plot.AddLine(RocCurveOf(result.sweep1)).colour = kBlue;
    plot.AddLine(RocCurveOf(result.sweep2)).colour = kRed;
  });
}

// --- The analysis

constexpr Procedure frmDiaCompResults[] = {{
    .window = "frmDiaCompResults",
    .title = "Quorval      Comparison of Diagnostic tests",
    .menu = kFileMenu,
    .print_header = kPrintHeader,
    .plot_jobs = kPlotJobs,
    .plot_windows = kPlots,
    .failure = kFailure,
    .run = Steps<ReadTests, CompareTests, ReportComparison, DrawCurves>,
}};

}  // namespace

constinit const Analysis kCompareTests{
    .id = "compare-tests",
    .dialog = &frmDiaCompOptions,
    .procedures = frmDiaCompResults,
    .quantities = kQuantities,
    .manual = "compare-tests.md",
};

}  // namespace quorval::diagnostic
