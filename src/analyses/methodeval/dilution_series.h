// A dilution series measured with replicates: one worksheet column for each level, headed by its x.
#pragma once

#include <vector>

#include "analyses/methodeval/method_evaluation.h"

namespace quorval::methodeval::linearity {

struct DilutionLevel {
  Real x;
  Sample y;    // replicates
  Real mean;   // of y
  Real w = 1;  // weight of each replicate

  Real n() const { return y.size(); }
};

struct DilutionSeries {
  ColumnSpan columns;
  std::vector<DilutionLevel> levels{};  // in the order of the columns

  int k() const { return static_cast<int>(levels.size()); }
  int N() const;  // of all replicates
};

// At least three levels of at least two replicates, from the columns 1 to 30.
DilutionSeries ReadDilutionSeries(Run& run, const Field& start, const Field& last);

// Levels whose x is not above 0 have no weight.
void RefuseNonPositiveLevels(const Run& run, const DilutionSeries& series);

// Weights by x to the power of -e, with x not below L; x above 0.
void WeightLevels(DilutionSeries& series, Real e, Real L);

}  // namespace quorval::methodeval::linearity
