#include "analyses/difference/estimated_limits.h"

#include "stats/significance.h"

namespace quorval::difference {

EstimatedLimits EstimateLimits(Messages& messages, std::span<const Real> pair_mean,
                               std::span<const Real> difference, Single outlier_limit) {
  const Real n = difference.size();
  const Real df = n - 1;
  EstimatedLimits limits;
  const Description description = DescribeSample(messages, difference);
  limits.mean = description.mean;
  limits.SD = description.sd;
  limits.SE = limits.SD / Sqrt(n);
  limits.t = limits.mean / limits.SE;
  limits.P = TPClass(df, limits.t);
  limits.t95 = CriticalT05(df);
  limits.lower = limits.mean - limits.t95 * limits.SD;
  limits.upper = limits.mean + limits.t95 * limits.SD;

  Sample size;
  for (Real d : difference) size.push_back(Abs(d));
  limits.r = PearsonR(messages, pair_mean, size);
  limits.P_of_r = CorrelationPClass(n - 2, limits.r);
  limits.outliers = MarkOutliersBySD(messages, outlier_limit, ToSingles(difference));
  return limits;
}

}  // namespace quorval::difference
