#include "stats/resampling.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "stats/percentile.h"
#include "support/made_data.h"

namespace quorval {
namespace {

// Expected numbers: tests/independent/resampling_and_shape.py, in modular arithmetic and fractions.
TEST(ResampleGenerator, DrawsTheSequenceOfEverySecondNumber) {
  ResampleGenerator uniforms;
  for (double expected : {0.06772362479862733, 0.4459640848658083, 0.5129194204026819,
                          0.19930832997814776, 0.23714984101562459})
    EXPECT_NEAR(uniforms.Uniform(), expected, 1e-15);

  const struct {
    std::size_t N;
    std::vector<std::size_t> indexes;
  } cases[] = {
      {20, {1, 8, 10, 3, 4, 10, 11, 5, 15, 1, 13, 11}},
      {158, {10, 70, 81, 31, 37, 83, 93, 40, 123, 11, 106, 93}},
      {9999, {677, 4459, 5128, 1992, 2371, 5255, 5911, 2563, 7785, 704, 6722, 5901}},
  };
  for (const auto& [N, indexes] : cases) {
    ResampleGenerator generator;
    for (std::size_t expected : indexes) EXPECT_EQ(generator.DrawIndex(N), expected) << N;
  }

  ResampleGenerator generator;
  std::size_t sum = 0, last = 0;
  for (int i = 0; i < 100000; ++i) sum += last = generator.DrawIndex(158);
  EXPECT_EQ(sum, 7862846U);
  EXPECT_EQ(last, 113U);
}

// The plain form: draw the values, sort them, look.
TEST(Resample, EqualsTheSortedListOfDrawnValues) {
  std::mt19937 random(1);
  for (int set = 0; set < 300; ++set) {
    const std::size_t N = 1 + random() % (set % 10 == 0 ? 2000 : 150);
    const Sample sorted = SortAscending(test::TiedSample(random, N, 1 + random() % 60));
    ResampleGenerator generator, plain_generator;
    Resample resample(N);
    for (int replicate = 0; replicate < 5; ++replicate) {
      resample.Draw(generator);
      Sample plain;
      for (std::size_t i = 0; i < N; ++i) plain.push_back(sorted[plain_generator.DrawIndex(N)]);
      std::ranges::sort(plain);
      for (std::size_t k = 1; k <= N; ++k)
        ASSERT_EQ(AtRank(sorted, resample.RankOf(k)), plain[k - 1]) << N << ' ' << k;
    }
  }
}

TEST(Resample, HasNoRankBeyondItsSize) {
  ResampleGenerator generator;
  Resample resample(64);
  resample.Draw(generator);
  EXPECT_THROW(resample.RankOf(0), Fault);
  EXPECT_THROW(resample.RankOf(65), Fault);
}

TEST(BootstrapPositions, EqualsThePlainBootstrapBitForBit) {
  std::mt19937 random(2);
  for (int set = 0; set < 100; ++set) {
    const std::size_t n = 20 + random() % 180;
    const int R = 5 + static_cast<int>(random() % 40);
    const Real N = n;
    const Sample sorted = SortAscending(test::TiedSample(random, n, 1 + random() % 500));
    const Sample positions{MedianPosition(N), 0.025 * N + 0.5, 0.975 * N + 0.5};

    std::vector<Sample> replicates(3);
    ResampleGenerator generator;
    for (int replicate = 0; replicate < R; ++replicate) {
      Sample drawn;
      for (std::size_t i = 0; i < n; ++i) drawn.push_back(sorted[generator.DrawIndex(n)]);
      std::ranges::sort(drawn);
      for (std::size_t p = 0; p < 3; ++p) replicates[p].push_back(AtPosition(drawn, positions[p]));
    }

    const auto estimates = BootstrapPositions(sorted, positions, R);
    for (std::size_t p = 0; p < 3; ++p) {
      const Real mean = Sum(replicates[p]) / R;
      Real squares;
      for (Real value : replicates[p]) squares += Square(value - mean);
      EXPECT_EQ(estimates[p].mean, mean);
      EXPECT_EQ(estimates[p].sd, Sqrt(squares / (R - 1)));
    }
  }
}

}  // namespace
}  // namespace quorval
