// Student's t-test of two independent samples with a common variance, and of paired samples.
#include "analyses/general/two_samples.h"
#include "stats/primitives.h"
#include "stats/significance.h"

namespace quorval::general {
namespace {

using namespace quantity;

std::string_view NameOf(const Group& group) {
  return group.name.empty() ? std::string_view("  ") : group.name;
}

// Two rows.
void WriteTest(ResultsSheet& sheet, int row, const TTest& test) {
  sheet.Row(row, kDifferenceT(test.t), test.P);
  sheet.Row(row + 1, kDifferenceLower(test.lower), kDifferenceUpper(test.upper));
}

// --- Independent samples

constexpr std::string_view kUnpairedFault = "Error in t-test routine";

struct UnpairedResult {
  Description first, second;
  TTest test;  // of the difference of the means
};

UnpairedResult ComputeUnpaired(Messages& messages, const TwoGroups& groups) {
  const auto& [first, second] = groups;
  const Real N1 = first.N(), N2 = second.N();
  const Description d1 = DescribeSample(messages, first.values);
  const Description d2 = DescribeSample(messages, second.values);
  const Real v = ((N1 - 1) * Square(d1.sd) + (N2 - 1) * Square(d2.sd)) / (N1 + N2 - 2);
  const Real SE = Sqrt(v / N1 + v / N2);
  return {d1, d2, TestAgainst(0, d2.mean - d1.mean, SE, N1 + N2 - 2)};
}

void ReportUnpaired(ResultsSheet& sheet, const TwoGroups& groups, const UnpairedResult& result) {
  const auto& [first, second] = groups;
  const auto& [d1, d2, test] = result;
  sheet.Frame("  General Statistics  t-test (Unpaired)", DateBeside::kAnalyst);
  sheet.Row(6, kFirst.column(first.column));
  sheet.Row(7, "  Variable name for first group:", NameOf(first));
  sheet.Row(8, kFirst.n(first.N()));
  sheet.Row(9, kFirst.mean(d1.mean));
  sheet.Row(10, kFirst.sd(d1.sd));
  sheet.Row(11, kFirst.mean_se(d1.sd / Sqrt(first.N())));
  sheet.Row(13, kSecond.column(second.column));
  sheet.Row(14, "  Variable name for second group:", NameOf(second));
  sheet.Row(15, kSecond.n(second.N()));
  sheet.Row(16, kSecond.mean(d2.mean));
  sheet.Row(17, kSecond.sd(d2.sd));
  sheet.Row(18, kSecond.mean_se(d2.sd / Sqrt(second.N())));
  sheet.Row(19, kDifference(test.estimate));
  sheet.Row(20, kDifferenceSe(test.se));
  sheet.Row(21, "  Result of t-test: ");
  WriteTest(sheet, 22, test);
}

void DrawUnpaired(Messages& messages, Plots& plots, const TwoGroups& groups,
                  const UnpairedResult& result) {
  DrawGroups(messages, plots, groups, result.first.mean, result.second.mean);
}

// --- Paired samples

constexpr std::string_view kPairedFault = "Error in paired t-test routine";

struct PairedResult {
  Sample d;  // differences
  Real sd;   // of them
  TTest test;
};

PairedResult ComputePaired(Messages& messages, Notices& notices, const TwoGroups& groups) {
  Sample d = TakeDifferences(messages, notices, groups);
  const Real N = d.size();
  const Description described = DescribeSample(messages, d);
  const TTest test = TestAgainst(0, described.mean, described.sd / Sqrt(N), N - 1);
  return {std::move(d), described.sd, test};
}

void ReportPaired(ResultsSheet& sheet, const TwoGroups& groups, const PairedResult& result) {
  WritePairedHead(sheet, "  General Statistics: Paired t-test", groups);
  sheet.Row(12, "  Mean difference (see plot): ", kDifference(result.test.estimate));
  sheet.Row(13, kDifferenceSd(result.sd));
  sheet.Row(14, "  SEM of differences: ", kDifferenceSe(result.test.se));
  sheet.Row(15, "  Result of paired t-test: ");
  WriteTest(sheet, 16, result.test);
}

void DrawPaired(Messages& messages, Plots& plots, const TwoGroups&, const PairedResult& result) {
  DrawDifferences(messages, plots, result.d, result.test.estimate);
}

}  // namespace

void CompareMeans(Run& run) {
  Steps<ReadTwoGroups, kInsisting<kUnpairedFault, ComputeUnpaired>,
        kInsisting<kUnpairedFault, ReportUnpaired>, DrawUnpaired>(run);
}

void ComparePairedMeans(Run& run) {
  Steps<ReadTwoGroups, kInsisting<kPairedFault, ComputePaired>,
        kInsisting<kPairedFault, ReportPaired>, DrawPaired>(run);
}

}  // namespace quorval::general
