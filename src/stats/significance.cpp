#include "stats/significance.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "core/failure.h"
#include "stats/runs_test_tables.h"
#include "stats/significance_tables.h"

namespace quorval {
namespace {

using tables::Knot;

template <std::size_t N>
using CriticalValues = std::array<Real, N>;

// The critical values at df: a knot's own up to the last one of `whole` df and from the last knot
// on, a straight line between two knots; `applies` is false where there are none.
template <std::size_t N>
struct Lookup {
  bool applies = false;
  CriticalValues<N> critical{};
};

template <std::size_t N>
CriticalValues<N> Between(const Knot<N>& lo, const Knot<N>& hi, Real df) {
  CriticalValues<N> critical;
  for (std::size_t k = 0; k < N; ++k)
    critical[k] = lo.critical[k] -
                  (Real(lo.critical[k]) - hi.critical[k]) * (df - lo.df) / (Real(hi.df) - lo.df);
  return critical;
}

template <std::size_t N>
CriticalValues<N> Own(const Knot<N>& knot) {
  CriticalValues<N> critical;
  std::ranges::copy(knot.critical, critical.begin());
  return critical;
}

// Below this many degrees of freedom only whole numbers have a row.
constexpr int kFirstInterpolated = 30;

template <std::size_t N>
Lookup<N> Look(std::span<const Knot<N>> knots, Real df) {
  const auto next = std::ranges::find_if(knots, [&](const auto& knot) { return df < knot.df; });
  if (next == knots.begin()) return {};
  const auto& knot = *(next - 1);
  if (df == knot.df || next == knots.end()) return {true, Own(knot)};
  if (df < kFirstInterpolated) return {};
  return {true, Between(knot, *next, df)};
}

template <std::size_t N>
Lookup<N> Look(const auto& knots, Real df) {
  return Look<N>(std::span<const Knot<N>>(knots), df);
}

// The class of a statistic between critical values: the last of the classes whose bounds hold it.
template <std::size_t N>
std::string_view ClassOf(Real statistic, const CriticalValues<N>& lower,
                         const CriticalValues<N>& upper,
                         const std::array<std::string_view, N + 1>& classes) {
  std::string_view found;
  if (statistic <= upper[0]) found = classes[0];
  for (std::size_t k = 1; k < N; ++k)
    if (lower[k - 1] < statistic && statistic <= upper[k]) found = classes[k];
  if (statistic > lower[N - 1]) found = classes[N];
  return found;
}

// --- Runs test

int CountRuns(std::span<const Real> residuals) {
  int runs = 1;
  for (std::size_t i = 1; i < residuals.size(); ++i)
    if (SignOf(residuals[i]) != SignOf(residuals[i - 1])) ++runs;
  return runs;
}

std::string_view RunsClassByTable(int m1, int m2, int runs) {
  for (const auto& row : tables::kRunsLimits) {
    if (row.m1 != m1 || m2 < row.m2_first || m2 > row.m2_last) continue;
    for (std::size_t k = 0; k < row.limits.size(); ++k)
      if (runs <= row.limits[k]) return tables::kRunsClasses[k];
  }
  return " n.s. ";
}

std::string_view RunsClassByNormal(Real m1, Real m2, Real runs) {
  const Real m = m1 + m2;
  const Real mean = 1 + 2 * m1 * m2 / m;
  const Real variance = 2 * m1 * m2 * (2 * m1 * m2 - m1 - m2) / (Square(m) * (m - 1));
  const Real z = (runs - mean + 0.5) / Sqrt(variance);
  if (z < -3.09) return " P < 0.001";
  if (z < -2.326) return "0.001 < P < 0.01";
  if (z < -1.645) return "0.01 < P < 0.05";
  return " n.s. ";
}

constexpr int kMostTabledResiduals = 10;

}  // namespace

inline namespace MCregaM2 {

Real CriticalT05(Real df) {
  if (df < 1) return 0;
  if (df <= 30) return tables::kT05[static_cast<std::size_t>(Raw(df)) - 1];
  for (const auto& segment : tables::kT05Segments)
    if (df <= segment.hi)
      return segment.t - segment.drop * (df - segment.lo) / (Real(segment.hi) - segment.lo);
  return 1.96;
}

std::string_view TPClass(Real df, Real t) {
  const auto [applies, upper] = Look<6>(tables::kTClasses, df);
  if (!applies) return {};
  CriticalValues<6> lower = upper;
  // The table's one irregular line: here the class " 0.02 < P < 0.05 " begins 0.012 before the
  // class below it ends.
  if (df >= 40 && df < 50) lower[1] = 2.009 - 0.012 * (df - 40) / 10;
  return ClassOf<6>(Abs(t), lower, upper,
                    {" n.s.", " 0.05 < P < 0.10 ", " 0.02 < P < 0.05 ", " 0.01 < P < 0.02 ",
                     " 0.002 < P < 0.01 ", " 0.001 < P < 0.002 ", " P < 0.001 "});
}

std::string_view CorrelationPClass(Real df, Real r) {
  if (df >= tables::kRLargeClasses.front().df) {
    const auto critical = Look<2>(tables::kRLargeClasses, df).critical;
    return ClassOf<2>(Abs(r), critical, critical, {" n.s.", " 0.01 < P < 0.05 ", " P < 0.01 "});
  }
  const auto [applies, critical] = Look<4>(tables::kRClasses, df);
  if (!applies) return {};
  return ClassOf<4>(
      Abs(r), critical, critical,
      {" n.s.", " 0.05 < P < 0.10 ", " 0.01 < P < 0.05 ", " 0.001 < P < 0.01 ", " P < 0.001 "});
}

std::string_view RunsTestClass(Messages& messages, std::span<const Real> residuals) {
  return Insist(messages, "Error in Linearity test", [&] {
    const auto not_negative =
        std::ranges::count_if(residuals, [](Real residual) { return residual >= 0; });
    const int positive = static_cast<int>(not_negative);
    const int negative = static_cast<int>(residuals.size()) - positive;
    const auto [m1, m2] = std::minmax(positive, negative);
    const int runs = CountRuns(residuals);
    return m1 > kMostTabledResiduals ? RunsClassByNormal(m1, m2, runs)
                                     : RunsClassByTable(m1, m2, runs);
  });
}

}  // namespace MCregaM2

TTest TestAgainst(Real expected, Real estimate, Real se, Real df) {
  const Real t = (estimate - expected) / se;
  const Real margin = CriticalT05(df) * se;
  return {estimate, se, t, estimate - margin, estimate + margin, TPClass(df, t)};
}

}  // namespace quorval
