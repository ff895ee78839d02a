// Expected numbers: tests/independent/regressions.py.
#include <random>

#include "analyses/registry.h"
#include "analyses/regression/fit_passing_bablok.h"
#include "analyses/regression/regression_data.h"
#include "core/conversion.h"

namespace quorval::test {
namespace {

using regression::kPassingBablok;
using regression::PassingBablokFit;
using testing::ElementsAre;

TEST(PassingBablok, ComputesItsNumbers) {
  for (const ComputedCase& computed :
       {ComputedCase{"passing-bablok", SingleSet(), {}},
        ComputedCase{"passing-bablok duplicate", DuplicateSet(), {{"mode", "duplicate"}}}})
    ExpectComputed(kPassingBablok, computed, 1e-12);
}

TEST(PassingBablok, WritesItsSheet) {
  const Transcript told = RunAnalysis(kPassingBablok, SingleSet(),
                                      {{"xc1", "5"}, {"xc2", "20.1"}, {"show-residuals", "on"}});
  ExpectLabels(told, SheetOf("PassingBablok, writes its sheet"));
  const Plot& xy = told.PlotOf("frmXY1s");
  EXPECT_EQ(xy.caption, "XY Plot Nonparametric Regression");
  EXPECT_THAT(SizesOf(xy), ElementsAre(25, 25, 2, 2));
  EXPECT_THAT(SizesOf(told.PlotOf("frmRes1s")), ElementsAre(25, 25));
}

TEST(PassingBablok, TellsOfADifference) {
  Columns columns{{}, {}};
  for (int i = 1; i <= 12; ++i) {
    columns[0].push_back(std::to_string(i));
    columns[1].push_back(std::to_string(2 * i + 30) + (i % 2 == 0 ? ".1" : ".2"));
  }
  const Transcript told = RunAnalysis(kPassingBablok, columns);
  ExpectLabels(told, SheetOf("PassingBablok, tells of a difference"));
}

// --- The procedure written out: a list of all slopes, its zeros removed in place, sorted

struct PlainLine {
  bool found = false;
  double b = 0, bL = 0, bU = 0, a0 = 0, aL = 0, aU = 0;
  long K = 0;
};

long HalfEven(double value) { return std::lrint(value); }

std::vector<double> PlainList(const std::vector<double>& x, const std::vector<double>& y) {
  const std::size_t n = x.size();
  const auto slope = [&](std::size_t i, std::size_t j) { return (y[j] - y[i]) / (x[j] - x[i]); };
  double smin = INFINITY, smax = -INFINITY;
  for (std::size_t i = 0; i < n; ++i)
    for (std::size_t j = i + 1; j < n; ++j)
      if (x[i] != x[j]) {
        smin = std::min(smin, slope(i, j));
        smax = std::max(smax, slope(i, j));
      }
  std::vector<double> S;
  std::size_t c = 0;
  for (std::size_t i = 0; i < n; ++i)
    for (std::size_t j = i + 1; j < n; ++j) {
      if (x[i] != x[j]) {
        S.push_back(slope(i, j));
      } else if (y[i] != y[j]) {
        S.push_back(y[j] < y[i] ? smin - 1 : smax + 1);
      } else {
        S.push_back(0);
        ++c;
      }
    }
  const std::size_t N = S.size();
  std::size_t zeros = 0, removed = 0;
  for (std::size_t idx = 0; idx < N; ++idx) {
    if (S[idx] != 0 || ++zeros > c) continue;
    for (std::size_t k = idx; k + 1 < N; ++k) S[k] = S[k + 1];
    ++removed;
  }
  S.resize(N - removed);
  std::stable_sort(S.begin(), S.end());  // as a bubble sort leaves it
  return S;
}

PlainLine PlainFit(const std::vector<double>& x, const std::vector<double>& y) {
  const std::vector<double> S = PlainList(x, y);
  const long M = static_cast<long>(S.size());
  const auto at = [&](long rank) { return S[static_cast<std::size_t>(rank - 1)]; };
  PlainLine line;
  const auto central = [&](long K) -> std::optional<double> {
    const long h = M % 2 == 1 ? (M + 1) / 2 + K : M / 2 + K;
    if (h < 1 || h + (M % 2 == 0) > M) return std::nullopt;
    if (M % 2 == 1) return at(h);
    if (at(h) <= 0 || at(h + 1) <= 0) return std::nullopt;
    return std::exp((std::log(at(h)) + std::log(at(h + 1))) / 2);
  };
  line.K = std::count_if(S.begin(), S.end(), [](double s) { return s < -1; });
  const auto first = central(line.K);
  if (!first) return {};
  line.b = *first;
  for (int round = 0; round < 100; ++round) {
    double K = 0;
    for (double s : S) K += s < -line.b ? 1 : s == -line.b ? 0.5 : 0;
    line.K = HalfEven(K);
    const auto next = central(line.K);
    if (!next) return {};
    const double change = std::fabs(*next - line.b);
    line.b = *next;
    if (change < 0.0001) break;
  }
  line.found = true;
  const double n = static_cast<double>(x.size());
  const double C = 1.96 * std::sqrt(n * (n - 1) * (2 * n + 5) / 18);
  const long M1 = HalfEven((static_cast<double>(M) - C) / 2);
  const long M2 = M - M1 + 1;
  for (long rank : {line.K + M1, line.K + M2})
    if (rank < 1 || rank > M) return line;
  line.bL = at(M1 + line.K);
  line.bU = at(M2 + line.K);
  const auto intercept = [&](double s) {
    std::vector<double> a;
    for (std::size_t i = 0; i < x.size(); ++i) a.push_back(y[i] - s * x[i]);
    std::sort(a.begin(), a.end());
    const std::size_t middle = a.size() / 2;
    return a.size() % 2 == 1 ? a[middle] : (a[middle - 1] + a[middle]) / 2;
  };
  line.a0 = intercept(line.b);
  line.aL = intercept(line.bU);
  line.aU = intercept(line.bL);
  return line;
}

// True where a line was found.
bool ExpectSameBits(const std::vector<double>& x, const std::vector<double>& y) {
  RecordedMessages messages;
  const PlainLine plain = PlainFit(x, y);
  const auto line =
      PassingBablokFit(messages, Sample(x.begin(), x.end()), Sample(y.begin(), y.end()));
  EXPECT_EQ(line.has_value(), plain.found);
  EXPECT_EQ(messages.boxes.size(), plain.found ? 0U : 1U);
  if (!line || !plain.found) return false;
  EXPECT_EQ(line->K, plain.K);
  EXPECT_EQ(Raw(line->b), plain.b);
  EXPECT_EQ(Raw(line->bL), plain.bL);
  EXPECT_EQ(Raw(line->bU), plain.bU);
  EXPECT_EQ(Raw(line->a0), plain.a0);
  EXPECT_EQ(Raw(line->aL), plain.aL);
  EXPECT_EQ(Raw(line->aU), plain.aU);
  return true;
}

bool Differ(const std::vector<double>& x) {
  return std::adjacent_find(x.begin(), x.end(), std::not_equal_to<>()) != x.end();
}

// Few different values: ties, vertical pairs, the same points, zero and negative slopes.
TEST(PassingBablokFit, HasTheBitsOfTheListOnTiedData) {
  std::mt19937 random(1983);
  int found = 0;
  for (int set = 0; set < 6000 && !HasFailure(); ++set) {
    const std::size_t n = 5 + random() % (set % 10 == 0 ? 56 : 16);
    const std::uint32_t distinct = 2 + static_cast<std::uint32_t>(random() % 12);
    const int trend = static_cast<int>(random() % 4) - 1;
    std::vector<double> x, y;
    for (std::size_t i = 0; i < n; ++i) {
      const int value = static_cast<int>(random() % distinct);
      x.push_back(value);
      y.push_back(trend * value + static_cast<int>(random() % (1 + random() % distinct)));
    }
    if (random() % 4 == 0) {  // the last pair is one of the same points
      x.back() = x[n - 2];
      y.back() = y[n - 2];
    }
    if (random() % 3 == 0) std::sort(x.begin(), x.end());
    if (!Differ(x)) continue;
    SCOPED_TRACE(set);
    found += ExpectSameBits(x, y);
  }
  EXPECT_GT(found, 2000);
}

// More slopes than are gathered at once.
TEST(PassingBablokFit, HasTheBitsOfTheListOnLongColumns) {
  std::mt19937 random(42);
  int found = 0;
  for (const double unit : {0.0, 0.01, 0.5, 5.0}) {  // 0: not rounded
    for (const double scatter : {1.0, 0.2, 0.0}) {
      for (const std::size_t n : {320, 411}) {
        std::vector<double> x, y;
        const auto rounded = [&](double v) { return unit == 0 ? v : std::round(v / unit) * unit; };
        const auto error = [&] { return (static_cast<double>(random() % 20001) - 10000) / 5000; };
        for (std::size_t i = 0; i < n; ++i) {
          const double truth = static_cast<double>(random() % 100000) / 1000;
          x.push_back(rounded(truth + scatter * error()));
          y.push_back(rounded(1.02 * truth + scatter * error()));
        }
        SCOPED_TRACE(testing::Message() << unit << ' ' << scatter << ' ' << n);
        found += ExpectSameBits(x, y);
      }
    }
  }
  EXPECT_EQ(found, 24);
}

}  // namespace
}  // namespace quorval::test
