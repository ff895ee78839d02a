#include "analyses/methodeval/lack_of_fit.h"

#include "stats/f_distribution.h"

namespace quorval::methodeval::linearity {
namespace {

LackOfFit Fit(std::span<const DilutionLevel> levels) {
  const int k = static_cast<int>(levels.size());
  Real W, sum_x, sum_y;
  int N = 0;
  for (const DilutionLevel& level : levels) {
    const Real nw = level.n() * level.w;
    W += nw;
    sum_x += nw * level.x;
    sum_y += nw * level.mean;
    N += static_cast<int>(level.y.size());
  }
  const Real mean_x = sum_x / W;
  const Real mean_y = sum_y / W;
  Real Sxx, Sxy;
  for (const DilutionLevel& level : levels) {
    const Real nw = level.n() * level.w;
    Sxx += nw * Square(level.x - mean_x);
    Sxy += nw * (level.x - mean_x) * level.mean;
  }
  LackOfFit fit{};
  fit.b = Sxy / Sxx;
  fit.a0 = mean_y - fit.b * mean_x;

  Real SSw, SSl, SSp;  // within sets, of the means about the line, of the replicates about the line
  for (const DilutionLevel& level : levels) {
    const Real p = fit.At(level.x);
    for (Real y : level.y) {
      SSw += level.w * Square(y - level.mean);
      SSp += level.w * Square(p - y);
    }
    SSl += level.n() * level.w * Square(p - level.mean);
  }
  fit.df1 = N - k;
  fit.df2 = k - 2;
  fit.pooled_df = N - 2;
  fit.s1sq = SSw / fit.df1;
  fit.s2sq = SSl / fit.df2;
  fit.pooled_sq = SSp / fit.pooled_df;
  fit.F = fit.s2sq / fit.s1sq;
  fit.P = FUpperTail(fit.df2, fit.df1, fit.F);
  fit.SEb = Sqrt(fit.pooled_sq / Sxx);
  fit.SEa0 = Sqrt(fit.pooled_sq * (1 / W + Square(mean_x) / Sxx));
  return fit;
}

}  // namespace

LackOfFit FitLine(Messages& messages, std::span<const DilutionLevel> levels) {
  if (levels.size() < 3) Fail(messages, "Less than three x levels: OLR not performed!");
  return Insist(messages, "Error in linearity evaluation", [&] { return Fit(levels); });
}

}  // namespace quorval::methodeval::linearity
