// Histograms of equally wide classes.
#pragma once

#include <span>
#include <vector>

#include "core/plot.h"
#include "stats/primitives.h"

namespace quorval {

struct HistogramClasses {
  Real smallest;  // the lower bound of the first class
  Real h;         // class width
  int k = 1;      // number of classes
};

// As many classes as fit into the range at the width 2.15 s N^(-0.2), with N at least 1; the width
// is then the range over their number.  Fewer than one are one.  A Fault of values without spread.
// The width is the one that suits the frequency polygon of a Gaussian sample best (Scott, J Am Stat
// Assoc 1985;80:348-354).
HistogramClasses DefaultClasses(const Description& values, Real N);

// k classes over the range; fewer than one are one.
HistogramClasses DivideRange(const Description& values, int k);

// The number of values in each class: from its lower bound to below the next; the last has no upper
// bound.
std::vector<int> CountInClasses(const HistogramClasses& classes, Sample values);

// Bars at the classes' midpoints, as high as the counts divided by `divisor`: N for relative
// frequencies, 1 for numbers.
Series Bars(const HistogramClasses& classes, std::span<const int> counts, Real divisor);

}  // namespace quorval
