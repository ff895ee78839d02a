#include "stats/normality.h"

#include <array>

#include "core/conversion.h"
#include "core/failure.h"
#include "stats/gaussian.h"
#include "stats/primitives.h"

namespace quorval {
namespace {

// From lo to below hi P falls from p0 by dp.  The points from 0.576 on are those of Stephens, J Am
// Stat Assoc 1974;69:730-737, whose correction for N belongs to them; the two below are this
// procedure's own.
struct Band {
  double lo, hi, p0, dp;
};
constexpr std::array<Band, 5> kBands{{
    {0.35, 0.49, 0.5, 0.25},
    {0.49, 0.576, 0.25, 0.1},
    {0.576, 0.656, 0.15, 0.05},
    {0.656, 0.787, 0.1, 0.05},
    {0.787, 1.09, 0.05, 0.04},
}};

// At most two decimals and no trailing zeros, of a P from 0.01 to 0.5.  A half, as the number shows
// it in 15 digits, goes up.
std::string ShortP(Real P) {
  const std::string digits = FixedText(P, P < 0.1 ? 16 : 15);  // "0.dd" and more
  const int hundredths = (digits[2] - '0') * 10 + (digits[3] - '0') + (digits[4] >= '5' ? 1 : 0);
  return ShortestText(Real(hundredths) / 100);
}

}  // namespace

Real AndersonDarlingStatistic(Messages& messages, std::span<const Real> sorted) {
  const Description described = DescribeSample(messages, sorted);
  Sample P;
  for (Real x : sorted) P.push_back(CumGauss(messages, (x - described.mean) / described.sd));
  Real S;
  for (std::size_t i = 1; i <= P.size(); ++i)
    S += Real(2 * i - 1) * (Log(P[i - 1]) + Log(1 - P[P.size() - i]));
  const Real N = P.size();
  const Real A2 = -N - S / N;
  return A2 * (1 + 4 / N - 25 / Square(N));
}

std::string AndersonDarlingP(Real A) {
  if (A < kBands.front().lo) return " > 0.5";
  for (const auto& [lo, hi, p0, dp] : kBands)
    if (A < hi) return ShortP(p0 - (A - lo) / (Real(hi) - lo) * dp);
  return " < 0.01";
}

std::string AndersonDarling(Messages& messages, std::span<const Real> sorted, Real factor) {
  std::string P;
  Attempt(messages, "Error in Anderson-Darling test",
          [&] { P = AndersonDarlingP(AndersonDarlingStatistic(messages, sorted) * factor); });
  return P;
}

}  // namespace quorval
