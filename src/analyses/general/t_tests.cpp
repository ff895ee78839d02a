// Student's t-test of two independent samples with a common variance, and of paired samples.
#include "analyses/general/two_samples.h"
#include "stats/primitives.h"
#include "stats/significance.h"

namespace quorval::general {
namespace {

std::string_view NameOf(const Group& group) {
  return group.name.empty() ? std::string_view("  ") : group.name;
}

// Two rows.
void WriteTest(ResultsSheet& sheet, int row, const TTest& test) {
  sheet.Row(row, "  t and P: ", test.t, test.P);
  sheet.Row(row + 1, "  95%-conf. limits for mean difference: ", test.lower, test.upper);
}

}  // namespace

void RunTTest(Run& run, const TwoGroups& groups) {
  const auto& [first, second] = groups;
  const Real N1 = first.N(), N2 = second.N();
  const auto [m1, s1, min1, max1] = DescribeSample(run.messages, first.values);
  const auto [m2, s2, min2, max2] = DescribeSample(run.messages, second.values);
  const Real v = ((N1 - 1) * Square(s1) + (N2 - 1) * Square(s2)) / (N1 + N2 - 2);
  const Real SE = Sqrt(v / N1 + v / N2);
  const TTest test = TestAgainst(0, m2 - m1, SE, N1 + N2 - 2);

  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  sheet.Frame("  General Statistics  t-test (Unpaired)", DateBeside::kAnalyst);
  sheet.Row(6, "  First sample (left side of plot): Col: ", first.column);
  sheet.Row(7, "  Variable name for first group:", NameOf(first));
  sheet.Row(8, "  Number of observations for first group: ", first.N());
  sheet.Row(9, "  Mean (see plot): ", m1);
  sheet.Row(10, "  SD: ", s1);
  sheet.Row(11, "  SEM: ", s1 / Sqrt(N1));
  sheet.Row(13, "  Second sample (right side of plot): Col: ", second.column);
  sheet.Row(14, "  Variable name for second group:", NameOf(second));
  sheet.Row(15, "  Number of observations for second group: ", second.N());
  sheet.Row(16, "  Mean (see plot): ", m2);
  sheet.Row(17, "  SD: ", s2);
  sheet.Row(18, "  SEM: ", s2 / Sqrt(N2));
  sheet.Row(19, "  Mean difference: ", test.estimate);
  sheet.Row(20, "  SE of mean difference: ", test.se);
  sheet.Row(21, "  Result of t-test: ");
  WriteTest(sheet, 22, test);
  DrawGroups(run, groups, m1, m2);
}

void RunPairedTTest(Run& run, const TwoGroups& groups) {
  const Sample d = TakeDifferences(run, groups);
  const Real N = d.size();
  const auto [D, sd, min, max] = DescribeSample(run.messages, d);
  const TTest test = TestAgainst(0, D, sd / Sqrt(N), N - 1);

  ResultsSheet& sheet = run.sheet;
  WritePairedHead(run, "  General Statistics: Paired t-test", groups);
  sheet.Row(12, "  Mean difference (see plot): ", D);
  sheet.Row(13, "  SD of differences: ", sd);
  sheet.Row(14, "  SEM of differences: ", test.se);
  sheet.Row(15, "  Result of paired t-test: ");
  WriteTest(sheet, 16, test);
  DrawDifferences(run, d, D);
}

}  // namespace quorval::general
