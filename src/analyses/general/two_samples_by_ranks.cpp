// The Mann-Whitney test of two independent samples and the Wilcoxon test of paired samples.
#include "analyses/general/rank_tests.h"
#include "analyses/general/two_samples.h"
#include "stats/percentile.h"

namespace quorval::general {
namespace {

Real MedianOf(std::span<const Real> values) {
  return AtPosition(SortAscending({values.begin(), values.end()}), MedianPosition(values.size()));
}

}  // namespace

void RunMannWhitney(Run& run, const TwoGroups& groups) {
  const auto& [first, second] = groups;
  if (first.values.size() < kFewestRanked || second.values.size() < kFewestRanked)
    Fail(run, "Mann-Whitney test is not performed if sample size is below 5 in a group");
  const Real median1 = MedianOf(first.values), median2 = MedianOf(second.values);
  const RankSumTest test = TestRankSums(first.values, second.values);

  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  sheet.Frame("  General Statistics: Mann-Whitney rank test ", DateBeside::kAnalyst);
  sheet.Row(6, "  First sample (left side of plot): Col: ", first.column);
  sheet.Row(7, "  Variable name for first group:", first.name);
  sheet.Row(8, "  Number of observations for first group: ", first.N());
  sheet.Row(9, "  Median (see plot): ", median1);
  sheet.Row(10, "  Average of ranks: ", test.R1 / first.N());
  sheet.Row(12, "  Second sample (right side of plot): Col: ", second.column);
  sheet.Row(13, "  Variable name for second group:", second.name);
  sheet.Row(14, "  Number of observations for second group: ", second.N());
  sheet.Row(15, "  Median (see plot): ", median2);
  sheet.Row(16, "  Avearge of ranks: ", test.R2 / second.N());
  sheet.Row(17, "  Result of Mann-Whitney test: ", test.PClass);
  DrawGroups(run, groups, median1, median2);
}

void RunWilcoxon(Run& run, const TwoGroups& groups) {
  const Sample d = TakeDifferences(run, groups);
  const Real median = MedianOf(d);
  const std::string_view PClass = SignedRankClass(d);
  if (PClass.empty())
    run.messages.Tell("Less than 7 paired observations: No probability estimation");

  ResultsSheet& sheet = run.sheet;
  WritePairedHead(run, "  General Statistics: Wilcoxon paired rank test", groups);
  sheet.Row(12, "  Median Difference(see plot):", median);
  sheet.Row(15, "  Result of paired Wilcoxon rank test:");
  sheet.Row(16, "  P: ", PClass);
  DrawDifferences(run, d, median);
}

}  // namespace quorval::general
