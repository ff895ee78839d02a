// Comparison of two diagnostic tests by the areas under their ROC curves.  Where both tests were
// made on the same individuals, the difference gets a standard error that allows for the pairing.
#include <optional>

#include "analyses/diagnostic/binormal.h"
#include "analyses/diagnostic/diagnostic.h"
#include "analyses/diagnostic/plots.h"
#include "analyses/diagnostic/roc_area.h"
#include "analyses/registry.h"
#include "core/failure.h"
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

// --- Intake

struct TwoTests {
  TwoGroups test1, test2;  // in the order of the worksheet, which pairs them
};

TwoGroups TakeGroups(Run& run, const Field& first_column, const Field& second_column) {
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

TwoTests TakeTests(Run& run) {
  TwoGroups test1 = TakeGroups(run, Text10, Text11);
  TwoGroups test2 = TakeGroups(run, Text12, Text13);
  for (const TwoGroups& test : {test1, test2})
    if (TooSmall(test.FirstSample) || TooSmall(test.SecondSample))
      run.Refuse(" N in group(s) < 10: No diagnostic test comparison ");
  return {std::move(test1), std::move(test2)};
}

// --- The difference

CutOffSweep SweepOf(const TwoGroups& groups) {
  return SweepCutOffs(SortAscending(groups.FirstSample), SortAscending(groups.SecondSample));
}

struct DifferenceSE {
  Real se;
  Range limits;
};

DifferenceSE EstimateSE(Run& run, const TwoTests& tests, Real D) {
  const TwoGroups& test1 = tests.test1;
  const TwoGroups& test2 = tests.test2;
  if (test1.N1() != test2.N1() || test1.N2() != test2.N2()) {
    NoteLengths(run.notices, {{test1.FirstCol, test1.FirstSample.size()},
                              {test2.FirstCol, test2.FirstSample.size()}});
    NoteLengths(run.notices, {{test1.SecondCol, test1.SecondSample.size()},
                              {test2.SecondCol, test2.SecondSample.size()}});
    run.messages.Tell(
        "Paired ROC-Curve comparison can not be performed because of unequal sample sizes");
    throw Failure{};
  }
  const Real se = Insist(run.messages, "Error in SEarea ROC-Curve computation routine", [&] {
    return SEOfAreaDifference(run.messages, {test1.FirstSample, test1.SecondSample},
                              {test2.FirstSample, test2.SecondSample});
  });
  const Real t = CriticalT05(test1.N1() + test1.N2() - 2);
  return {se, LimitsWithin({-1, 1}, D, t * se)};
}

// --- The sheet

// Three rows from `first_row` on and three from `second_row` on.
void WriteTest(ResultsSheet& sheet, const TwoGroups& test, int first_row, int second_row) {
  sheet.Row(first_row, "  First sample (Healthy group):   Col: ", test.FirstCol);
  sheet.Row(first_row + 1, "  Number of observations for healthy group: ", test.N1());
  sheet.Row(first_row + 2, "  Variable name for healthy group:", NameOr(" ", test.FirstName));
  sheet.Row(second_row, "  Second sample (Diseased group): Col: ", test.SecondCol);
  sheet.Row(second_row + 1, "  Variable name for diseased group:", NameOr(" ", test.SecondName));
  sheet.Row(second_row + 2, "  Number of observations for second group: ", test.N2());
}

struct Areas {
  Real area1, area2;

  Real D() const { return area2 - area1; }
};

void WriteSheet(Run& run, const TwoTests& tests, const Areas& areas,
                const std::optional<DifferenceSE>& difference) {
  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  sheet.Row(2, Bold{"  ROC-Curve results for two diagnostic tests"});
  sheet.Row(3, "  Project:", run.context.ProjectName);
  sheet.Row(4, "  Analyst: ", Blank{}, "  Date: ");
  sheet.Row(5, Bold{"  Diagnostic test 1 (blue curve): "});
  WriteTest(sheet, tests.test1, 6, 10);
  sheet.Row(14, "  Area under ROC-Curve for test 1:  ", areas.area1);
  sheet.Row(16, Bold{"  Diagnostic test 2 (Red curve): "});
  WriteTest(sheet, tests.test2, 17, 20);
  sheet.Row(23, "  Area under ROC-Curve for test 2:  ", areas.area2);
  sheet.Row(24, " Area Difference (Test2-Test1): ", areas.D());
  if (difference) {
    sheet.Row(25, "  SE of Area difference:  ", difference->se);
    sheet.Row(26, "  95%-Confidence limits: ", difference->limits.min, difference->limits.max);
  }
}

// --- The run

void RunComparison(Run& run) {
  const TwoTests tests = TakeTests(run);
  const CutOffSweep sweep1 = SweepOf(tests.test1);
  const CutOffSweep sweep2 = SweepOf(tests.test2);
  Insist(run.messages, "Error ROC-Curve comparison routine", [&] {
    const Areas areas{AreaUnder(sweep1), AreaUnder(sweep2)};
    std::optional<DifferenceSE> difference;
    if (run.form.On(kDifferenceSE)) difference = EstimateSE(run, tests, areas.D());
    WriteSheet(run, tests, areas, difference);
  });
  DrawRocCurves(run, sweep1, sweep2);
}

constexpr Procedure frmDiaCompResults[] = {ResultsWindow(
    "frmDiaCompResults", "Quorval      Comparison of Diagnostic tests", RunComparison)};

}  // namespace

constinit const Analysis kCompareTests{
    .id = "compare-tests",
    .dialog = &frmDiaCompOptions,
    .procedures = frmDiaCompResults,
    .manual = "compare-tests.md",
};

}  // namespace quorval::diagnostic
