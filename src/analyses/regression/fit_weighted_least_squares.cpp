#include "analyses/regression/fit_weighted_least_squares.h"

namespace quorval::regression {

std::optional<WeightedLineFit> FitWeightedLeastSquares(std::span<const Real> x,
                                                       std::span<const Real> y,
                                                       const Weighting& weighting) {
  WeightedLineFit fit;
  Real sum_x, sum_y;
  for (std::size_t i = 0; i < x.size(); ++i) {
    if (x[i] < 0 || weighting.Truncated(x[i]) == 0) return std::nullopt;
    const Real w = fit.w.emplace_back(weighting.At(x[i]));
    fit.Sw += w;
    sum_x += w * x[i];
    sum_y += w * y[i];
  }
  if (fit.Sw == 0) return std::nullopt;
  const Real mean_x = fit.mean_x = sum_x / fit.Sw;
  const Real mean_y = sum_y / fit.Sw;

  Real Syy, Sxy;
  for (std::size_t i = 0; i < x.size(); ++i) {
    fit.Sxx += fit.w[i] * Square(mean_x - x[i]);
    Syy += fit.w[i] * Square(mean_y - y[i]);
    Sxy += fit.w[i] * (mean_x - x[i]) * (mean_y - y[i]);
  }
  if (fit.Sxx * Syy <= 0) return std::nullopt;
  fit.rw = Sxy / Sqrt(fit.Sxx * Syy);
  fit.b = Sxy / fit.Sxx;
  fit.a0 = mean_y - mean_x * fit.b;

  Real squares;
  for (std::size_t i = 0; i < x.size(); ++i) squares += fit.w[i] * Square(y[i] - fit.At(x[i]));
  fit.SDyx = Sqrt(squares / (Real(x.size()) - 2));
  fit.se_b = fit.SDyx / Sqrt(fit.Sxx);
  fit.se_a0 = fit.SDyx * Sqrt(1 / fit.Sw + Square(mean_x) / fit.Sxx);
  return fit;
}

}  // namespace quorval::regression
