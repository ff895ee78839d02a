// The tests of two samples: what they share, and their entries.  Each test reads two groups, writes
// its sheet and draws one dot plot; its routine has words of its own for what cannot be computed.
#pragma once

#include <string>
#include <string_view>

#include "analyses/quantities.h"
#include "core/steps.h"

namespace quorval::general {

// --- Input

// One column.
struct Group {
  int column;
  std::string name;  // the column's title
  Sample values;     // 32-bit numbers in the order of the worksheet

  int N() const { return static_cast<int>(values.size()); }
};

struct TwoGroups {
  Group first, second;
};

TwoGroups ReadTwoGroups(Run& run);

// Second less first, row by row.  Fails where the groups differ in size.
Sample TakeDifferences(Messages& messages, Notices& notices, const TwoGroups& groups);

// --- The tests

void CompareMeans(Run& run);        // the t-test
void ComparePairedMeans(Run& run);  // the paired t-test
void CompareVariances(Run& run);    // the F-test
void CompareRanks(Run& run);        // Mann and Whitney
void ComparePairedRanks(Run& run);  // Wilcoxon

// --- Rows of the sheets

namespace quantity {
using namespace quorval::quantity;

struct GroupRows {
  Quantity column, n, mean, sd, mean_se, variance, df, median, mean_rank;
};
constexpr GroupRows kFirst{
    .column = {"first.column", "  First sample (left side of plot): Col: ", Unit::kNone,
               Width::kWhole},
    .n = {"first.n", "  Number of observations for first group: ", Unit::kNone, Width::kWhole},
    .mean = {"first.mean", "  Mean (see plot): ", Unit::kMeasurand},
    .sd = {"first.sd", "  SD: ", Unit::kMeasurand},
    .mean_se = {"first.mean.se", "  SEM: ", Unit::kMeasurand},
    .variance = {"first.variance", " Variance (squared SD): "},
    .df = {"first.df", "Degrees of freedom:", Unit::kNone, Width::kWhole},
    .median = {"first.median", "  Median (see plot): ", Unit::kMeasurand},
    .mean_rank = {"first.mean_rank", "  Average of ranks: "},
};
constexpr GroupRows kSecond{
    .column = {"second.column", "  Second sample (right side of plot): Col: ", Unit::kNone,
               Width::kWhole},
    .n = {"second.n", "  Number of observations for second group: ", Unit::kNone, Width::kWhole},
    .mean = {"second.mean", "  Mean (see plot): ", Unit::kMeasurand},
    .sd = {"second.sd", "  SD: ", Unit::kMeasurand},
    .mean_se = {"second.mean.se", "  SEM: ", Unit::kMeasurand},
    .variance = {"second.variance", " Variance (squared SD): "},
    .df = {"second.df", "Degrees of freedom:", Unit::kNone, Width::kWhole},
    .median = {"second.median", "  Median (see plot): ", Unit::kMeasurand},
    .mean_rank = {"second.mean_rank", "  Avearge of ranks: "},
};

inline constexpr Quantity kPairs = Captioned(kCount, "  Number of paired observations:");
inline constexpr Quantity kDifference{"difference.mean", "  Mean difference: ", Unit::kMeasurand};
inline constexpr Quantity kDifferenceSe{"difference.mean.se",
                                        "  SE of mean difference: ", Unit::kMeasurand};
inline constexpr Quantity kDifferenceLower{
    "difference.mean.lower", "  95%-conf. limits for mean difference: ", Unit::kMeasurand};
inline constexpr Quantity kDifferenceUpper{
    "difference.mean.upper", "  95%-conf. limits for mean difference: ", Unit::kMeasurand};
inline constexpr Quantity kDifferenceT{"difference.mean.t", "  t and P: "};
inline constexpr Quantity kDifferenceSd{"difference.sd", "  SD of differences: ", Unit::kMeasurand};
inline constexpr Quantity kMedianDifference{"difference.median",
                                            "  Median Difference(see plot):", Unit::kMeasurand};
inline constexpr Quantity kF{"f", "F-ratio:"};
inline constexpr Quantity kFP{"f.p", "P(two-sided):"};
}  // namespace quantity

// Rows 2 to 11 of a test of pairs.
void WritePairedHead(ResultsSheet& sheet, std::string_view title, const TwoGroups& groups);

// --- Plots

// Both groups, then a bar for each at its centre.
void DrawGroups(Messages& messages, Plots& plots, const TwoGroups& groups, Real first_centre,
                Real second_centre);

// The differences and a bar at their centre.
void DrawDifferences(Messages& messages, Plots& plots, std::span<const Real> differences,
                     Real centre);

}  // namespace quorval::general
