#include "analyses/regression/fit_deming.h"

#include "analyses/regression/leave_one_out.h"

namespace quorval::regression {
namespace {

template <class Width>
std::optional<DemingLine> Line(const Scatter& scatter, Width lambda, Real mean_x, Real mean_y) {
  const std::optional<Real> slope = DemingSlope(scatter, lambda);
  if (!slope) return std::nullopt;
  const Width b(*slope);
  const Width a0(mean_y - mean_x * b);
  return DemingLine{.lambda = lambda, .b = b, .a0 = a0, .mean_x = mean_x, .mean_y = mean_y};
}

std::vector<double> RawOf(std::span<const Single> values) {
  std::vector<double> raw;
  for (Single value : values) raw.push_back(Raw(value));
  return raw;
}

// a1, b1, a2, b2 and so on.
std::vector<double> Interleave(std::span<const Real> a, std::span<const Real> b) {
  std::vector<double> raw;
  for (std::size_t i = 0; i < a.size(); ++i) {
    raw.push_back(Raw(a[i]));
    raw.push_back(Raw(b[i]));
  }
  return raw;
}

template <class Term>
std::vector<double> Terms(std::span<const Real> a, std::span<const Real> b, Term&& term) {
  std::vector<double> raw;
  for (std::size_t i = 0; i < a.size(); ++i) raw.push_back(Raw(term(a[i], b[i])));
  return raw;
}

// Of sums of squared differences of duplicates; none where those of y are all 0.
std::optional<Real> RatioOf(Real x, Real y) {
  if (y == 0) return std::nullopt;
  return x / y;
}

Real Plus(Real a, Real b) { return a + b; }
Real SquaredDifference(Real a, Real b) { return Square(a - b); }

// The means without each row: sums over `count` values.
std::vector<double> MeansWithoutEach(std::span<const double> values, Real count) {
  std::vector<double> means = SumsWithoutEach(values);
  for (double& mean : means) mean = Raw(mean / count);
  return means;
}

Scatter At(const ScatterWithoutEach& all, std::size_t row) {
  return {.Sxx = Single(all.Sxx[row]), .Syy = all.Syy[row], .Sxy = all.Sxy[row]};
}

}  // namespace

std::optional<Real> DemingSlope(const Scatter& scatter, Real lambda) {
  const auto& [Sxx, Syy, Sxy] = scatter;
  const Real D = Square(Sxx - lambda * Syy) + 4 * lambda * Square(Sxy);
  if (D < 0) return std::nullopt;
  const Real U = lambda * Syy - Sxx + Sqrt(D);
  if (lambda * Sxy == 0) return std::nullopt;
  return U / (2 * lambda * Sxy);
}

std::optional<DemingLine> FitDeming(const SingleMeasurements& measured) {
  const auto& [x, y, lambda] = measured;
  const Real n = x.size();
  const Real mean_x = Sum(x) / n;
  const Real mean_y = Sum(y) / n;
  Scatter scatter;
  for (std::size_t i = 0; i < x.size(); ++i) scatter.Add(mean_x - x[i], mean_y - y[i]);
  return Line(scatter, lambda, mean_x, mean_y);
}

std::optional<DemingLine> FitDemingDuplicate(const DuplicateMeasurements& measured) {
  const auto& [x1, x2, y1, y2, given] = measured;
  const Real n = x1.size();
  Real sum_x, sum_y, A, B;
  for (std::size_t i = 0; i < x1.size(); ++i) {
    sum_x += x1[i] + x2[i];
    sum_y += y1[i] + y2[i];
    A += Square(x1[i] - x2[i]);
    B += Square(y1[i] - y2[i]);
  }
  const std::optional<Real> lambda = given ? given : RatioOf(A, B);
  if (!lambda) return std::nullopt;
  const Real mean_x = sum_x / (2 * n);
  const Real mean_y = sum_y / (2 * n);
  Scatter scatter;
  for (std::size_t i = 0; i < x1.size(); ++i) {
    scatter.Add(mean_x - x1[i], mean_y - y1[i]);
    scatter.Add(mean_x - x2[i], mean_y - y2[i]);
  }
  return Line(scatter, *lambda, mean_x, mean_y);
}

std::optional<std::vector<DemingLine>> FitDemingWithoutEach(const SingleMeasurements& measured) {
  const std::vector<double> x = RawOf(measured.x);
  const std::vector<double> y = RawOf(measured.y);
  const Real count = Real(x.size()) - 1;
  const std::vector<double> means_x = MeansWithoutEach(x, count);
  const std::vector<double> means_y = MeansWithoutEach(y, count);
  const ScatterWithoutEach scatters = ScattersWithoutEach(x, y, 1, means_x, means_y);
  std::vector<DemingLine> lines;
  for (std::size_t j = 0; j < x.size(); ++j) {
    const auto line = Line(At(scatters, j), measured.lambda, means_x[j], means_y[j]);
    if (!line) return std::nullopt;
    lines.push_back(*line);
  }
  return lines;
}

std::optional<std::vector<DemingLine>> FitDemingWithoutEach(const DuplicateMeasurements& measured) {
  const auto& [x1, x2, y1, y2, given] = measured;
  const Real count = 2 * (Real(x1.size()) - 1);
  const std::vector<double> means_x = MeansWithoutEach(Terms(x1, x2, Plus), count);
  const std::vector<double> means_y = MeansWithoutEach(Terms(y1, y2, Plus), count);
  const std::vector<double> A = SumsWithoutEach(Terms(x1, x2, SquaredDifference));
  const std::vector<double> B = SumsWithoutEach(Terms(y1, y2, SquaredDifference));
  const ScatterWithoutEach scatters =
      ScattersWithoutEach(Interleave(x1, x2), Interleave(y1, y2), 2, means_x, means_y);
  std::vector<DemingLine> lines;
  for (std::size_t j = 0; j < x1.size(); ++j) {
    const std::optional<Real> lambda = given ? given : RatioOf(A[j], B[j]);
    if (!lambda) return std::nullopt;
    const auto line = Line(At(scatters, j), *lambda, means_x[j], means_y[j]);
    if (!line) return std::nullopt;
    lines.push_back(*line);
  }
  return lines;
}

}  // namespace quorval::regression
