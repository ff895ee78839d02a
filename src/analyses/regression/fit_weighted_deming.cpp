#include "analyses/regression/fit_weighted_deming.h"

#include <algorithm>
#include <cmath>

#include "analyses/regression/weighted_deming_step.h"

namespace quorval::regression {
namespace {

// A row's estimated place on the line, and what it weighs there.
struct WeighedPlace {
  double x_hat, y_hat, w;
};

double PowerOf(double u, Single P) {
  if (P == 0) return 1;
  if (P == 1) return u;
  if (P == 2) return u * u;
  return std::pow(u, Raw(P));
}

// Bare doubles, as in the fits without a row each: what leaves the finite numbers is found where
// the sums become Reals.
WeighedPlace Weigh(const WeightedDemingRows& rows, std::size_t i, const Weighting& weighting,
                   const DemingLine& line) {
  const double lambda = Raw(line.lambda), b = Raw(line.b);
  const double x = rows.place_x[i], y = rows.place_y[i];
  const double d = y - (Raw(line.mean_y) + b * (x - Raw(line.mean_x)));
  const double g = 1 + lambda * (b * b);
  const double x_hat = x + lambda * b * d / g;
  const double y_hat = y - d / g;

  const double place = x_hat + lambda * y_hat;  // between both methods, times 1 + lambda
  const double T = Raw(weighting.T);
  const bool truncated = T != 0 && place <= T + lambda * T;
  const double w = 1 / PowerOf(truncated ? T : place / (1 + lambda), weighting.P);
  return {x_hat, y_hat, rows.narrow ? static_cast<double>(static_cast<float>(w)) : w};
}

// The weights at the line; none where a place is not positive.
std::optional<std::vector<double>> WeighRows(const WeightedDemingRows& rows,
                                             const Weighting& weighting, const DemingLine& line) {
  std::vector<double> weights;
  bool positive = true;
  for (std::size_t i = 0; i < rows.Count(); ++i) {
    const auto [x_hat, y_hat, w] = Weigh(rows, i, weighting, line);
    positive = positive && !(x_hat <= 0 || y_hat <= 0);
    weights.push_back(w);
  }
  if (!positive) return std::nullopt;
  return weights;
}

StepSums SumUp(const WeightedDemingRows& rows, const std::vector<double>& w) {
  double Sw = 0, mean_x = 0, mean_y = 0;
  for (std::size_t i = 0; i < rows.Count(); ++i) {
    Sw += w[i];
    mean_x += w[i] * rows.place_x[i];
    mean_y += w[i] * rows.place_y[i];
  }
  mean_x /= Sw;
  mean_y /= Sw;

  float Sxx = 0;  // rounded at each addition
  double Syy = 0, Sxy = 0, A = 0, B = 0;
  const std::size_t points = rows.x.size() / rows.Count();  // of a row
  for (std::size_t k = 0; k < rows.x.size(); ++k) {
    const double weight = w[k / points];
    const double dx = mean_x - rows.x[k];
    const double dy = mean_y - rows.y[k];
    Sxx = static_cast<float>(Sxx + weight * (dx * dx));
    Syy += weight * (dy * dy);
    Sxy += weight * dx * dy;
  }
  for (std::size_t i = 0; i < rows.A.size(); ++i) {
    A += w[i] * rows.A[i];
    B += w[i] * rows.B[i];
  }
  if (Sw == 0) return {};
  return {Sw, mean_x, mean_y, {Single(static_cast<double>(Sxx)), Syy, Sxy}, A, B};
}

// Weighs the rows at the line and takes the line that fits them so.
bool WeightedDemingStep(const WeightedDemingRows& rows, const Weighting& weighting,
                        WeightedDemingLine& line) {
  const std::optional<std::vector<double>> w = WeighRows(rows, weighting, line);
  if (!w) return false;
  line.w.assign(w->begin(), w->end());
  return SolveStep(rows, SumUp(rows, *w), line, line.rw);
}

// From the unweighted line to the line that its own weights lead to.
template <class Measurements>
std::optional<WeightedDemingLine> Fit(const Measurements& measured, const Weighting& weighting) {
  const std::optional<DemingLine> start = FitDeming(measured);
  if (!start) return std::nullopt;
  const WeightedDemingRows rows = RowsOf(measured);
  WeightedDemingLine line{*start, {}, {}};
  if (!WeightedDemingStep(rows, weighting, line)) return std::nullopt;
  for (int step = 1; step <= kMostSteps; ++step) {
    const Real before = line.b;
    if (!WeightedDemingStep(rows, weighting, line)) return std::nullopt;
    if (Abs(line.b - before) >= kTolerance) continue;
    static_cast<DemingLine&>(line) = WithIntercept(rows, line);
    return line;
  }
  return std::nullopt;
}

}  // namespace

WeightedDemingRows RowsOf(const SingleMeasurements& measured) {
  WeightedDemingRows rows{.narrow = true};
  for (Single x : measured.x) rows.x.push_back(Raw(x));
  for (Single y : measured.y) rows.y.push_back(Raw(y));
  rows.place_x = rows.x;
  rows.place_y = rows.y;
  return rows;
}

WeightedDemingRows RowsOf(const DuplicateMeasurements& measured) {
  const auto& [x1, x2, y1, y2, given] = measured;
  WeightedDemingRows rows;
  for (std::size_t i = 0; i < x1.size(); ++i) {
    for (Real x : {x1[i], x2[i]}) rows.x.push_back(Raw(x));
    for (Real y : {y1[i], y2[i]}) rows.y.push_back(Raw(y));
    rows.place_x.push_back(Raw((x1[i] + x2[i]) / 2));
    rows.place_y.push_back(Raw((y1[i] + y2[i]) / 2));
    if (given) continue;
    rows.A.push_back(Raw(Square(x1[i] - x2[i])));
    rows.B.push_back(Raw(Square(y1[i] - y2[i])));
  }
  return rows;
}

bool SolveStep(const WeightedDemingRows& rows, const StepSums& sums, DemingLine& line, Real& rw) {
  const auto& [Sw, mean_x, mean_y, scatter, A, B] = sums;
  if (Sw == 0) return false;
  line.mean_x = mean_x;
  line.mean_y = mean_y;
  if (rows.EstimatesLambda()) {
    if (B == 0) return false;
    line.lambda = A / B;
  }
  const std::optional<Real> b = DemingSlope(scatter, line.lambda);
  if (!b || scatter.Sxx * scatter.Syy <= 0) return false;
  line.b = rows.narrow ? Real(Single(*b)) : *b;
  rw = scatter.Sxy / Sqrt(scatter.Sxx * scatter.Syy);
  return true;
}

DemingLine WithIntercept(const WeightedDemingRows& rows, DemingLine line) {
  const Real a0 = line.mean_y - line.mean_x * line.b;
  line.a0 = rows.narrow ? Real(Single(a0)) : a0;
  return line;
}

std::optional<WeightedDemingLine> FitWeightedDeming(const SingleMeasurements& measured,
                                                    const Weighting& weighting) {
  return Fit(measured, weighting);
}

std::optional<WeightedDemingLine> FitWeightedDeming(const DuplicateMeasurements& measured,
                                                    const Weighting& weighting) {
  return Fit(measured, weighting);
}

}  // namespace quorval::regression
