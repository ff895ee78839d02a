// The F-test of two variances, two-sided: the larger variance over the smaller one.
#include <algorithm>

#include "analyses/general/two_samples.h"
#include "stats/f_distribution.h"
#include "stats/primitives.h"

namespace quorval::general {
namespace {

using namespace quantity;

constexpr std::string_view kFault = "Error in F-test routine";

// --- Computation

struct VarianceRatio {
  Real F, P;
};

// Variances with their degrees of freedom.  A Fault where these are too many for the exact P.
VarianceRatio TestVariances(Real larger, int df1, Real smaller, int df2) {
  const Real F = larger / smaller;
  return {F, std::min(2 * FUpperTail(df1, df2, F), Real(1))};
}

struct VariancesResult {
  Description first, second;
  Real v1, v2;  // variances
  int df1, df2;
  VarianceRatio test;
};

VariancesResult ComputeVariances(Messages& messages, const TwoGroups& groups) {
  const auto& [first, second] = groups;
  const Description d1 = DescribeSample(messages, first.values);
  const Description d2 = DescribeSample(messages, second.values);
  const Real v1 = Square(d1.sd), v2 = Square(d2.sd);
  const int df1 = first.N() - 1, df2 = second.N() - 1;
  if (v1 == 0 || v2 == 0) Fail(messages, "Variance value of zero: no analysis");
  const VarianceRatio test =
      v1 >= v2 ? TestVariances(v1, df1, v2, df2) : TestVariances(v2, df2, v1, df1);
  return {d1, d2, v1, v2, df1, df2, test};
}

// --- Report

void ReportVariances(ResultsSheet& sheet, const TwoGroups& groups, const VariancesResult& result) {
  const auto& [first, second] = groups;
  const auto& [d1, d2, v1, v2, df1, df2, test] = result;
  sheet.Frame("  General Statistics  F-test", DateBeside::kAnalyst);
  sheet.Row(6, kFirst.column(first.column));
  sheet.Row(7, "  Variable name for first group (left side of display):", first.name);
  sheet.Row(8, kFirst.n(first.N()));
  sheet.Row(9, kFirst.mean(d1.mean));
  sheet.Row(10, kFirst.sd(d1.sd));
  sheet.Row(11, kFirst.variance(v1), kFirst.df.caption, kFirst.df(df1));
  sheet.Row(13, "Second sample(right side of plot): Col: ", kSecond.column(second.column));
  sheet.Row(14, "  Variable name for sec. group (right side of display):", second.name);
  sheet.Row(15, "  No. of observations for sec. group: ", kSecond.n(second.N()));
  sheet.Row(16, kSecond.mean(d2.mean));
  sheet.Row(17, kSecond.sd(d2.sd));
  sheet.Row(18, kSecond.variance(v2), kSecond.df.caption, kSecond.df(df2));
  sheet.Row(19, kF(test.F), kFP.caption, kFP(test.P));
}

// --- Plots

void DrawVariances(Messages& messages, Plots& plots, const TwoGroups& groups,
                   const VariancesResult& result) {
  DrawGroups(messages, plots, groups, result.first.mean, result.second.mean);
}

}  // namespace

void CompareVariances(Run& run) {
  Steps<ReadTwoGroups, kInsisting<kFault, ComputeVariances>, kInsisting<kFault, ReportVariances>,
        DrawVariances>(run);
}

}  // namespace quorval::general
