// The F-test of two variances, two-sided: the larger variance over the smaller one.
#include <algorithm>

#include "analyses/general/two_samples.h"
#include "stats/f_distribution.h"
#include "stats/primitives.h"

namespace quorval::general {
namespace {

struct FTest {
  Real F, P;
};

// Variances with their degrees of freedom.  A Fault where these are too many for the exact P.
FTest TestVariances(Real larger, int df1, Real smaller, int df2) {
  const Real F = larger / smaller;
  return {F, std::min(2 * FUpperTail(df1, df2, F), Real(1))};
}

}  // namespace

void RunFTest(Run& run, const TwoGroups& groups) {
  const auto& [first, second] = groups;
  const Description d1 = DescribeSample(run.messages, first.values);
  const Description d2 = DescribeSample(run.messages, second.values);
  const Real v1 = Square(d1.sd), v2 = Square(d2.sd);
  const int df1 = first.N() - 1, df2 = second.N() - 1;
  if (v1 == 0 || v2 == 0) Fail(run, "Variance value of zero: no analysis");
  const FTest test = v1 >= v2 ? TestVariances(v1, df1, v2, df2) : TestVariances(v2, df2, v1, df1);

  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  sheet.Frame("  General Statistics  F-test", DateBeside::kAnalyst);
  sheet.Row(6, "  First sample (left side of plot): Col: ", first.column);
  sheet.Row(7, "  Variable name for first group (left side of display):", first.name);
  sheet.Row(8, "  Number of observations for first group: ", first.N());
  sheet.Row(9, "  Mean (see plot): ", d1.mean);
  sheet.Row(10, "  SD: ", d1.sd);
  sheet.Row(11, " Variance (squared SD): ", v1, "Degrees of freedom:", df1);
  sheet.Row(13, "Second sample(right side of plot): Col: ", second.column);
  sheet.Row(14, "  Variable name for sec. group (right side of display):", second.name);
  sheet.Row(15, "  No. of observations for sec. group: ", second.N());
  sheet.Row(16, "  Mean (see plot): ", d2.mean);
  sheet.Row(17, "  SD: ", d2.sd);
  sheet.Row(18, " Variance (squared SD): ", v2, "Degrees of freedom:", df2);
  sheet.Row(19, "F-ratio:", test.F, "P(two-sided):", test.P);
  DrawGroups(run, groups, d1.mean, d2.mean);
}

}  // namespace quorval::general
