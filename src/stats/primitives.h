// Mean, spread, correlation and the first outlier screen.  Each routine tells its own failure and
// lets the analysis go on; what could not be computed reads as 0.
#pragma once

#include <span>
#include <vector>

#include "core/messages.h"
#include "core/real.h"

namespace quorval {

struct Range {
  Real min, max;
};

// Smallest and largest of at least one value; a Fault of none.
Range RangeOf(std::span<const Real> values);

inline namespace MCregaM3 {

struct Description {
  Real mean, sd;  // n - 1 in the denominator of the SD
  Real min, max;
};

// Two passes.  Tells "Error occurred" of fewer than 2 values; one value leaves its mean.
Description DescribeSample(Messages& messages, std::span<const Real> x);

// Pearson's r of equally long x and y, not clamped to [-1, 1].  Tells "Error in correlation
// computation" where a column has no variance; r is then 0.
Real PearsonR(Messages& messages, std::span<const Real> x, std::span<const Real> y);

struct OutlierMarks {
  std::vector<bool> flags;  // one for each value
  int count = 0;
};

// Marks the values more than `limit` SDs (n - 1) from the mean; one pass, and nothing is removed.
// Tells "Error in outlier evaluation" where the values have no spread; nothing is then marked.
OutlierMarks MarkOutliersBySD(Messages& messages, Real limit, std::span<const Real> y);
OutlierMarks MarkOutliersBySD(Messages& messages, Real limit, std::span<const Single> y);

// Where the first marked values stand, counted from 0; no more than `most` of them.
std::vector<std::size_t> FirstMarked(const OutlierMarks& outliers, std::size_t most);

}  // namespace MCregaM3

}  // namespace quorval
