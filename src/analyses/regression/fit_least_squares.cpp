#include "analyses/regression/fit_least_squares.h"

#include <algorithm>

namespace quorval::regression {

std::optional<LineFit> FitLeastSquares(std::span<const Real> x, std::span<const Real> y) {
  LineFit fit;
  const Real n = fit.Sw = x.size();
  const Real mean_x = fit.mean_x = Sum(x) / n;
  const Real mean_y = Sum(y) / n;

  Real Sxy;
  for (std::size_t i = 0; i < x.size(); ++i) {
    fit.Sxx += Square(mean_x - x[i]);
    Sxy += (mean_y - y[i]) * (mean_x - x[i]);
  }
  if (fit.Sxx == 0) return std::nullopt;

  fit.b = Sxy / fit.Sxx;
  fit.a0 = mean_y - mean_x * fit.b;

  Real squares;
  for (std::size_t i = 0; i < x.size(); ++i) squares += Square(fit.At(x[i]) - y[i]);
  fit.SDyx = Sqrt(squares / (n - 2));
  fit.se_b = fit.SDyx / Sqrt(fit.Sxx);
  fit.se_a0 = fit.SDyx * Sqrt(1 / n + Square(mean_x) / fit.Sxx);
  return fit;
}

Estimates EstimateAt(const LineFit& fit, const Levels& levels) {
  const auto at = [&](Real u) { return Estimate{fit.At(u), fit.SeAt(u)}; };
  Estimates estimates{.Yc1 = at(levels.Xc1.x), .Yc2 = at(levels.Xc2.x)};
  std::ranges::transform(levels.u, estimates.bands.begin(), at);
  return estimates;
}

LeastSquaresResiduals ResidualsOf(const LineFit& line, const Pairs& data, std::span<const Real> w) {
  LeastSquaresResiduals residuals;
  for (std::size_t i = 0; i < data.x.size(); ++i) {
    const Real y = residuals.estimate.emplace_back(line.At(data.x[i]));
    const Real e = residuals.e.emplace_back(data.y[i] - y);
    residuals.q.push_back(Sqrt(w[i]) * e);
  }
  return residuals;
}

}  // namespace quorval::regression
