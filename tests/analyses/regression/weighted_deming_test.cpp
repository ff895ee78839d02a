// Expected numbers: tests/independent/regressions.py.
#include <random>

#include "analyses/registry.h"
#include "analyses/regression/fit_weighted_deming.h"
#include "analyses/regression/regression_data.h"

namespace quorval::test {
namespace {

using regression::kWeightedDeming;

TEST(WeightedDeming, ComputesItsNumbers) {
  for (const ComputedCase& computed : {
           ComputedCase{"weighted-deming", SingleSet(), {{"xc1", "5"}, {"xc2", "20.1"}}},
           ComputedCase{
               "weighted-deming power 1 truncated ratio 0.8",
               SingleSet(),
               {{"weighting-exponent", "1"}, {"truncation-limit", "7"}, {"sd-ratio", "0.8"}}},
           ComputedCase{"weighted-deming duplicate", DuplicateSet(), {{"mode", "duplicate"}}},
           ComputedCase{
               "weighted-deming duplicate power 1.5 truncated",
               DuplicateSet(),
               {{"mode", "duplicate"}, {"weighting-exponent", "1.5"}, {"truncation-limit", "7"}}},
           ComputedCase{"weighted-deming tenth step",  // the last that is taken
                        {{"1", "4", "5", "5", "7", "12"}, {"3", "1", "8", "8", "9", "8"}},
                        {}},
       })
    ExpectComputed(kWeightedDeming, computed, 1e-10);
}

TEST(WeightedDeming, WritesItsLabels) {
  const Transcript told = RunAnalysis(kWeightedDeming, SingleSet(), {{"weighting-exponent", "1"}});
  ExpectLabels(told, SheetOf("WeightedDeming, writes its labels"));
  EXPECT_EQ(told.PlotOf("frmXY1s").caption, "XY-plot Weighted Deming regression analysis");
  const Transcript duplicate =
      RunAnalysis(kWeightedDeming, DuplicateSet(), {{"mode", "duplicate"}});
  ExpectLabels(duplicate, SheetOf("WeightedDeming, writes its labels (2)"));
}

TEST(WeightedDeming, EqualsDemingWithWeightsOf1) {
  const Transcript weighted =
      RunAnalysis(kWeightedDeming, SingleSet(), {{"weighting-exponent", "0"}});
  const Transcript deming = RunAnalysis(regression::kDeming, SingleSet());
  for (int row : {11, 12, 15, 20, 21, 24}) EXPECT_EQ(weighted.Value(row, 2), deming.Value(row, 2));
}

// --- The fits without a row each, against a plain fit of the other rows

struct PlainLine {
  bool found = false;
  double b = 0, a0 = 0;
};

// One fit, written out in doubles and floats.
PlainLine PlainFit(const std::vector<float>& x, const std::vector<float>& y, float lambda32,
                   float T, double P) {
  const std::size_t n = x.size();
  const double lambda = lambda32;
  double mean_x = 0, mean_y = 0;
  for (std::size_t i = 0; i < n; ++i) {
    mean_x += x[i];
    mean_y += y[i];
  }
  mean_x /= static_cast<double>(n);
  mean_y /= static_cast<double>(n);
  std::vector<float> w(n, 1);
  float b = 0;
  const auto solve = [&] {
    float Sxx = 0;
    double Syy = 0, Sxy = 0;
    for (std::size_t i = 0; i < n; ++i) {
      const double dx = mean_x - x[i], dy = mean_y - y[i];
      Sxx = static_cast<float>(Sxx + w[i] * (dx * dx));
      Syy += w[i] * (dy * dy);
      Sxy += w[i] * dx * dy;
    }
    const double part = Sxx - lambda * Syy;
    const double D = part * part + 4 * lambda * (Sxy * Sxy);
    b = static_cast<float>((lambda * Syy - Sxx + std::sqrt(D)) / (2 * lambda * Sxy));
  };
  solve();
  for (int step = 0; step <= 10; ++step) {
    const double g = 1 + lambda * (static_cast<double>(b) * b);
    double Sw = 0, sum_x = 0, sum_y = 0;
    for (std::size_t i = 0; i < n; ++i) {
      const double d = y[i] - (mean_y + b * (x[i] - mean_x));
      const double x_hat = x[i] + lambda * b * d / g;
      const double y_hat = y[i] - d / g;
      if (x_hat <= 0 || y_hat <= 0) return {};
      const double place = x_hat + lambda * y_hat;
      const auto power = [&](double u) { return P == 2 ? u * u : P == 1 ? u : std::pow(u, P); };
      const bool truncated = T != 0 && place <= T + lambda * T;
      w[i] = static_cast<float>(1 / power(truncated ? T : place / (1 + lambda)));
      Sw += w[i];
      sum_x += static_cast<double>(w[i]) * x[i];
      sum_y += static_cast<double>(w[i]) * y[i];
    }
    mean_x = sum_x / Sw;
    mean_y = sum_y / Sw;
    const float before = b;
    solve();
    if (step > 0 && std::fabs(static_cast<double>(b) - before) < 0.000001)
      return {true, b, static_cast<float>(mean_y - mean_x * b)};
  }
  return {};
}

TEST(FitWeightedDemingWithoutEach, HasTheBitsOfPlainFits) {
  std::mt19937 random(7);
  const auto factor = [&] { return 1 + (static_cast<double>(random() % 200) - 100) / 900; };
  for (std::size_t n : {5, 8, 9, 40, 64}) {
    for (double P : {2.0, 1.0, 0.7}) {
      for (float T : {0.0F, 20.0F}) {
        std::vector<float> x, y;
        regression::SingleMeasurements measured{.x = {}, .y = {}, .lambda = Single(0.64)};
        for (std::size_t i = 0; i < n; ++i) {
          const double truth = 3 + static_cast<double>(random() % 10000) / 99;
          x.push_back(static_cast<float>(truth * factor()));
          y.push_back(static_cast<float>(truth * factor()));
          measured.x.emplace_back(static_cast<double>(x.back()));
          measured.y.emplace_back(static_cast<double>(y.back()));
        }
        const auto lines = regression::FitWeightedDemingWithoutEach(
            measured, {.P = Single(P), .T = Single(static_cast<double>(T))});
        const double P32 = static_cast<float>(P);
        bool all = true;
        for (std::size_t row = 0; row < n; ++row) {
          auto rest_x = x, rest_y = y;
          rest_x.erase(rest_x.begin() + static_cast<std::ptrdiff_t>(row));
          rest_y.erase(rest_y.begin() + static_cast<std::ptrdiff_t>(row));
          const auto plain = PlainFit(rest_x, rest_y, 0.64F, T, P32);
          all = all && plain.found;
          if (!plain.found || !lines) continue;
          EXPECT_EQ(Raw((*lines)[row].b), plain.b) << n << ' ' << P << ' ' << T << ' ' << row;
          EXPECT_EQ(Raw((*lines)[row].a0), plain.a0) << n << ' ' << P << ' ' << T << ' ' << row;
        }
        EXPECT_EQ(lines.has_value(), all);
        EXPECT_TRUE(all);
      }
    }
  }
}

}  // namespace
}  // namespace quorval::test
