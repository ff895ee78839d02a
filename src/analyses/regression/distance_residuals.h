// Distances of points from a line, measured along the direction that the ratio of the errors sets.
#pragma once

#include "analyses/regression/fit_deming.h"
#include "analyses/regression/regression.h"

namespace quorval::regression {

// The points' vertical residuals.
template <class Width>
Sample VerticalResiduals(const Pairs& data, const DemingLine& line) {
  Sample e;
  for (std::size_t i = 0; i < data.x.size(); ++i)
    e.push_back(Width(data.y[i] - (line.b * data.x[i] + line.a0)));
  return e;
}

struct DistanceResiduals {
  Sample r;  // signed as the vertical residuals
  Sample m;  // the point's mean position on the line
};

// From the vertical residuals `e`.
template <class Width>
DistanceResiduals DistancesFromLine(const Pairs& data, const DemingLine& line, const Sample& e) {
  const auto& [lambda, b, a0, mean_x, mean_y] = line;
  const Real g = 1 + lambda * Square(b);
  DistanceResiduals distances;
  for (std::size_t i = 0; i < data.x.size(); ++i) {
    const Real x = data.x[i];
    const Real y = data.y[i];
    const Real d = e[i];
    const Width x_hat(x + lambda * b * d / g);
    const Width y_hat(y - d / g);
    const Real distance = Sqrt(Square(x - x_hat) + lambda * Square(y - y_hat));
    distances.r.push_back(Width(d < 0 ? -distance : distance));
    distances.m.push_back((lambda * y_hat + x_hat) / (lambda + 1));
  }
  return distances;
}

// Standardised by their SD.
template <class Width>
Sample Standardise(Messages& messages, const Sample& residuals) {
  const Real sd = DescribeSample(messages, residuals).sd;
  Sample z;
  for (Real residual : residuals) z.push_back(Width(residual / sd));
  return z;
}

}  // namespace quorval::regression
