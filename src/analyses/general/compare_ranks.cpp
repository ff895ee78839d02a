// The Mann-Whitney test of two independent samples and the Wilcoxon test of paired samples.
#include "analyses/general/rank_tests.h"
#include "analyses/general/two_samples.h"
#include "stats/percentile.h"

namespace quorval::general {
namespace {

using namespace quantity;

Real MedianOf(std::span<const Real> values) {
  return AtPosition(SortAscending({values.begin(), values.end()}), MedianPosition(values.size()));
}

// --- Independent samples

constexpr std::string_view kMannWhitneyFault = "Error in Mann-Whitney routine";

struct MannWhitneyResult {
  Real median1, median2;
  RankSumTest test;
};

MannWhitneyResult ComputeMannWhitney(Messages& messages, const TwoGroups& groups) {
  const auto& [first, second] = groups;
  if (first.values.size() < kFewestRanked || second.values.size() < kFewestRanked)
    Fail(messages, "Mann-Whitney test is not performed if sample size is below 5 in a group");
  return {MedianOf(first.values), MedianOf(second.values),
          TestRankSums(first.values, second.values)};
}

void ReportMannWhitney(ResultsSheet& sheet, const TwoGroups& groups,
                       const MannWhitneyResult& result) {
  const auto& [first, second] = groups;
  const auto& [median1, median2, test] = result;
  sheet.Frame("  General Statistics: Mann-Whitney rank test ", DateBeside::kAnalyst);
  sheet.Row(6, kFirst.column(first.column));
  sheet.Row(7, "  Variable name for first group:", first.name);
  sheet.Row(8, kFirst.n(first.N()));
  sheet.Row(9, kFirst.median(median1));
  sheet.Row(10, kFirst.mean_rank(test.R1 / first.N()));
  sheet.Row(12, kSecond.column(second.column));
  sheet.Row(13, "  Variable name for second group:", second.name);
  sheet.Row(14, kSecond.n(second.N()));
  sheet.Row(15, kSecond.median(median2));
  sheet.Row(16, kSecond.mean_rank(test.R2 / second.N()));
  sheet.Row(17, "  Result of Mann-Whitney test: ", test.PClass);
}

void DrawMannWhitney(Messages& messages, Plots& plots, const TwoGroups& groups,
                     const MannWhitneyResult& result) {
  DrawGroups(messages, plots, groups, result.median1, result.median2);
}

// --- Paired samples

constexpr std::string_view kWilcoxonFault = "Error in Wilcoxon routine";

struct WilcoxonResult {
  Sample d;  // differences
  Real median;
  std::string_view PClass;
};

WilcoxonResult ComputeWilcoxon(Messages& messages, Notices& notices, const TwoGroups& groups) {
  Sample d = TakeDifferences(messages, notices, groups);
  const Real median = MedianOf(d);
  const std::string_view PClass = SignedRankClass(d);
  if (PClass.empty()) messages.Tell("Less than 7 paired observations: No probability estimation");
  return {std::move(d), median, PClass};
}

void ReportWilcoxon(ResultsSheet& sheet, const TwoGroups& groups, const WilcoxonResult& result) {
  WritePairedHead(sheet, "  General Statistics: Wilcoxon paired rank test", groups);
  sheet.Row(12, kMedianDifference(result.median));
  sheet.Row(15, "  Result of paired Wilcoxon rank test:");
  sheet.Row(16, "  P: ", result.PClass);
}

void DrawWilcoxon(Messages& messages, Plots& plots, const TwoGroups&,
                  const WilcoxonResult& result) {
  DrawDifferences(messages, plots, result.d, result.median);
}

}  // namespace

void CompareRanks(Run& run) {
  Steps<ReadTwoGroups, kInsisting<kMannWhitneyFault, ComputeMannWhitney>,
        kInsisting<kMannWhitneyFault, ReportMannWhitney>, DrawMannWhitney>(run);
}

void ComparePairedRanks(Run& run) {
  Steps<ReadTwoGroups, kInsisting<kWilcoxonFault, ComputeWilcoxon>,
        kInsisting<kWilcoxonFault, ReportWilcoxon>, DrawWilcoxon>(run);
}

}  // namespace quorval::general
