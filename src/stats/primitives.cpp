#include "stats/primitives.h"

#include <algorithm>

#include "core/failure.h"

namespace quorval {
namespace {

Real SumOfSquares(std::span<const Real> values, Real mean) {
  Real squares;
  for (Real value : values) squares += Square(value - mean);
  return squares;
}

}  // namespace

Range RangeOf(std::span<const Real> values) {
  if (values.empty()) Raise(Fault::Kind::kOutOfRange);
  const auto [min, max] = std::ranges::minmax(values);
  return {min, max};
}

inline namespace MCregaM3 {

Description DescribeSample(Messages& messages, std::span<const Real> x) {
  Description d;  // all zero; what a fault keeps from being computed stays so
  Attempt(messages, "Error occurred", [&] {
    const Real n = x.size();
    d.mean = Sum(x) / n;
    d.sd = Sqrt(SumOfSquares(x, d.mean) / (n - 1));
    const Range range = RangeOf(x);
    d.min = range.min;
    d.max = range.max;
  });
  return d;
}

Real PearsonR(Messages& messages, std::span<const Real> x, std::span<const Real> y) {
  Real r;
  Attempt(messages, "Error in correlation computation", [&] {
    const Real n = x.size();
    const Real mean_x = Sum(x) / n;
    const Real mean_y = Sum(y) / n;
    Real Sxx, Syy, Sxy;
    for (std::size_t i = 0; i < x.size(); ++i) {
      Sxx += Square(mean_x - x[i]);
      Syy += Square(mean_y - y[i]);
      Sxy += (mean_x - x[i]) * (mean_y - y[i]);
    }
    r = Sxy / Sqrt(Sxx * Syy);
  });
  return r;
}

OutlierMarks MarkOutliersBySD(Messages& messages, Real limit, std::span<const Real> y) {
  OutlierMarks marks{.flags = std::vector<bool>(y.size())};
  Attempt(messages, "Error in outlier evaluation", [&] {
    const Real n = y.size();
    const Real mean = Sum(y) / n;
    const Real sd = Sqrt(SumOfSquares(y, mean) / (n - 1));
    for (std::size_t i = 0; i < y.size(); ++i) {
      if (Abs((mean - y[i]) / sd) <= limit) continue;
      marks.flags[i] = true;
      ++marks.count;
    }
  });
  return marks;
}

OutlierMarks MarkOutliersBySD(Messages& messages, Real limit, std::span<const Single> y) {
  return MarkOutliersBySD(messages, limit, ToReals(y));
}

std::vector<std::size_t> FirstMarked(const OutlierMarks& outliers, std::size_t most) {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < outliers.flags.size() && places.size() < most; ++i)
    if (outliers.flags[i]) places.push_back(i);
  return places;
}

}  // namespace MCregaM3

}  // namespace quorval
