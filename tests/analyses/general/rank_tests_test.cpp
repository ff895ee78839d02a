// The tables were typed anew from the printed ones.  Each data set has the rank sum that is looked
// up, by construction.
#include <algorithm>
#include <sstream>

#include "analyses/general/rank_tests.h"
#include "analyses/registry.h"
#include "support/analysis_cases.h"

namespace quorval::test {
namespace {

using general::kTwoSamples;
using general::MeanRanks;
using testing::ElementsAre;

// --- Ranks

TEST(MeanRanks, AreSharedByEqualValues) {
  const auto ranks_of = [](const Sample& values) {
    std::vector<double> ranks;
    for (Real rank : MeanRanks(values)) ranks.push_back(Raw(rank));
    return ranks;
  };
  EXPECT_THAT(ranks_of({}), ElementsAre());
  EXPECT_THAT(ranks_of({3, 1, 2}), ElementsAre(3, 1, 2));
  EXPECT_THAT(ranks_of({7, 2, 7, 7, 1, 2}), ElementsAre(5, 2.5, 5, 5, 1, 2.5));
  EXPECT_THAT(ranks_of({4, 4, 4}), ElementsAre(2, 2, 2));
}

// --- Data of a given rank sum

using Ranks = std::vector<int>;

// `count` different ranks up to `last` whose sum is T: the smallest ones, raised from the top.
Ranks RanksOfSum(int count, int last, int T) {
  Ranks ranks;
  for (int i = 1; i <= count; ++i) ranks.push_back(i);
  int left = T - count * (count + 1) / 2;
  for (int i = count; i-- > 0;) {
    const int raise = std::min(left, last - count);
    ranks[static_cast<std::size_t>(i)] += raise;
    left -= raise;
  }
  EXPECT_EQ(left, 0) << count << ' ' << last << ' ' << T;
  return ranks;
}

// The two groups: the ranks that are given, and the others up to `last`.
Columns GroupsOf(const Ranks& ranks, int last, int sign = 1) {
  Columns groups(2);
  for (int rank = 1; rank <= last; ++rank)
    groups[std::ranges::count(ranks, rank) == 1 ? 0 : 1].push_back(std::to_string(sign * rank));
  return groups;
}

// Pairs whose differences have the sizes 1 to N, negative where the ranks say so.
Columns PairsOf(const Ranks& negative, int N, int sign = 1) {
  Columns pairs(2);
  for (int rank = 1; rank <= N; ++rank) {
    pairs[0].push_back("50");
    pairs[1].push_back(
        std::to_string(50 + sign * (std::ranges::count(negative, rank) == 1 ? -rank : rank)));
  }
  return pairs;
}

// Ranks up to N with this sum, as few as it takes.
Ranks SomeRanksOfSum(int N, int T) {
  Ranks ranks;
  for (int rank = N; rank > 0; --rank) {
    if (rank > T) continue;
    ranks.push_back(rank);
    T -= rank;
  }
  return ranks;
}

std::string RankSumClass(const Columns& groups) {
  return RunAnalysis(kTwoSamples, groups, {{"test", "mann-whitney"}}).Text(17, 2);
}

std::string SignedRankClass(const Columns& pairs) {
  return RunAnalysis(kTwoSamples, pairs, {{"test", "wilcoxon"}}).Text(16, 2);
}

// --- The tables

struct Limits {
  int c05, c01;
};

std::string ClassOf(int T, const Limits& limits, const std::string& between) {
  return T > limits.c05 ? "n.s." : T > limits.c01 ? between : "P < 0.01";
}

// The values at the two limits and one above each.
Ranks SumsAround(const Limits& limits) {
  return {limits.c05, limits.c05 + 1, limits.c01, limits.c01 + 1};
}

struct RankSumRow {
  int ns;
  const char* limits;  // c05/c01, for larger sizes from ns on
};
constexpr RankSumRow kRankSumRows[] = {
    {5,
     "17/15 18/16 20/17 21/17 22/18 23/19 24/20 26/21 27/22 28/22 29/23 31/24 32/25 33/26 34/27 "
     "35/28 37/29 38/29 39/30 40/31 42/32"},
    {6,
     "26/23 27/24 29/25 31/26 32/27 34/28 35/30 37/31 38/32 40/33 42/34 43/36 45/37 46/38 48/39 "
     "50/40 51/42 53/43 55/44"},
    {7,
     "36/32 38/34 40/35 42/37 44/38 46/40 48/41 50/43 52/44 54/46 56/47 58/49 60/50 62/52 64/53 "
     "66/55 68/57"},
    {8,
     "49/43 51/45 53/47 55/49 58/51 60/53 63/54 65/56 67/58 70/60 72/62 74/64 77/66 79/68 82/70"},
    {9, "63/56 65/58 68/61 71/63 73/65 76/67 79/70 82/72 84/74 87/76 90/78 93/81 95/83"},
    {10, "78/71 81/74 85/76 88/79 91/81 94/84 97/86 100/89 103/92 107/94 110/97"},
    {11, "96/87 99/90 103/93 106/96 110/99 114/102 117/105 121/108 124/111"},
    {12, "115/106 119/109 123/112 127/115 131/119 135/122 139/125"},
    {13, "137/125 141/129 145/133 150/137 154/140"},
    {14, "160/147 164/151 169/155"},
    {15, "185/171"},
};

TEST(MannWhitney, LooksUpEveryEntryOfItsTable) {
  int entries = 0;
  for (const RankSumRow& row : kRankSumRows) {
    std::istringstream text(row.limits);
    Limits limits{};
    char slash = 0;
    for (int nl = row.ns; text >> limits.c05 >> slash >> limits.c01; ++nl, ++entries) {
      const int last = row.ns + nl;
      for (int T : SumsAround(limits)) {
        const std::string expected = ClassOf(T, limits, "0.01 < P < 0.05");
        const Ranks ranks = RanksOfSum(row.ns, last, T);
        Columns groups = GroupsOf(ranks, last);
        EXPECT_EQ(RankSumClass(groups), expected) << row.ns << ' ' << nl << ' ' << T;
        std::swap(groups[0], groups[1]);
        EXPECT_EQ(RankSumClass(groups), expected) << nl << ' ' << row.ns << ' ' << T;
        EXPECT_EQ(RankSumClass(GroupsOf(ranks, last, -1)), expected)
            << "mirrored " << row.ns << ' ' << nl << ' ' << T;
      }
    }
  }
  EXPECT_EQ(entries, 121);  // 21 + 19 + ... + 1
}

TEST(Wilcoxon, LooksUpEveryEntryOfItsTable) {
  constexpr Limits kLimits[] = {{2, 0},  {2, 0},   {6, 2},   {8, 3},   {11, 5},
                                {14, 7}, {17, 10}, {21, 13}, {25, 16}, {30, 19}};
  int N = 7;
  for (const Limits& limits : kLimits) {
    for (int T : SumsAround(limits))
      for (int sign : {1, -1})
        EXPECT_EQ(SignedRankClass(PairsOf(SomeRanksOfSum(N, T), N, sign)),
                  ClassOf(T, limits, " 0.01 < P < 0.05"))
            << N << ' ' << T << ' ' << sign;
    ++N;
  }
}

// --- Between table and approximation

// The approximation's classes have blanks in front, where the table's have none; z by hand.
TEST(MannWhitney, IsApproximatedBeyondItsTable) {
  struct Case {
    int ns, nl, T;
    const char* expected;
  };
  for (const auto& [ns, nl, T, expected] : {
           Case{15, 15, 185, "0.01 < P < 0.05"}, Case{15, 16, 240, " n.s."},  // the mean
           Case{15, 16, 189, " 0.02 < P < 0.05 "},  // z = 50.5 / 25.298 = 1.996
           Case{15, 16, 190, " 0.05 < P < 0.10 "},  // z = 49.5 / 25.298 = 1.957
           Case{16, 16, 264, " n.s."}, Case{5, 25, 42, "0.01 < P < 0.05"},
           Case{5, 26, 42, " 0.02 < P < 0.05 "},  // z = 37.5 / 18.619 = 2.014
           Case{5, 26, 15, " P < 0.001 "},        // z = 64.5 / 18.619 = 3.464
       }) {
    EXPECT_EQ(RankSumClass(GroupsOf(RanksOfSum(ns, ns + nl, T), ns + nl)), expected)
        << ns << ' ' << nl << ' ' << T;
  }
}

TEST(Wilcoxon, IsApproximatedBeyondItsTable) {
  // N = 17: mean 76.5, SD 21.125.
  const auto class_of = [](int N, int T) {
    return SignedRankClass(PairsOf(SomeRanksOfSum(N, T), N));
  };
  EXPECT_EQ(class_of(16, 31), "n.s.");
  EXPECT_EQ(class_of(17, 76), " n.s.");
  EXPECT_EQ(class_of(17, 41), " 0.05 < P < 0.10 ");  // z = 1.657
  EXPECT_EQ(class_of(17, 34), " 0.02 < P < 0.05 ");  // z = 1.988
  EXPECT_EQ(class_of(17, 0), " P < 0.001 ");         // z = 3.598
}

// --- Ties and zeros, by hand

TEST(MannWhitney, SharesRanksBetweenTheGroups) {
  // Ranks 1 2.5 4 6.5 6.5 and 2.5 6.5 6.5 9 10: sums 20.5 and 34.5.
  const Transcript told =
      RunAnalysis(kTwoSamples, {{"1", "2", "3", "5", "5"}, {"2", "5", "5", "6", "7"}},
                  {{"test", "mann-whitney"}});
  ExpectNumbers(told, {{9, 2, 3}, {10, 2, 4.1}, {15, 2, 5}, {16, 2, 6.9}});
  EXPECT_EQ(told.Text(17, 2), "n.s.");
}

TEST(Wilcoxon, GivesHalfTheRankOfAZeroToEachSide) {
  // Sizes 0 0 1 2 3 4 5 6 7 have the ranks 1.5 1.5 3 ... 9: each side gets 1.5 of the zeros.
  const auto class_of = [](std::vector<std::string> differences) {
    return SignedRankClass({std::vector<std::string>(differences.size(), "0"), differences});
  };
  EXPECT_EQ(class_of({"0", "0", "1", "2", "3", "4", "5", "6", "7"}), "P < 0.01");  // T = 1.5
  EXPECT_EQ(class_of({"0", "0", "-1", "2", "3", "4", "5", "6", "7"}),
            " 0.01 < P < 0.05");                                                // T = 4.5
  EXPECT_EQ(class_of({"0", "0", "1", "2", "-3", "4", "5", "6", "7"}), "n.s.");  // T = 6.5
  EXPECT_EQ(class_of({"0", "0", "0", "0", "0", "0", "0"}), "n.s.");             // T = 14
}

}  // namespace
}  // namespace quorval::test
