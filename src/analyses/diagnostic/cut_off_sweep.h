// The cut-offs that a diagnostic test can have, and what each of them gets right.
#pragma once

#include <span>
#include <vector>

#include "core/real.h"

namespace quorval::diagnostic {

// How many values a cut-off classifies correctly.
struct CorrectCounts {
  int first;   // values of the first sample at or below it
  int second;  // values of the second sample above it
};

// One place for each candidate, from the lowest up: below the smallest value, halfway between
// neighbours of the merged samples, and at the largest value.
struct CutOffSweep {
  int N1, N2;
  Singles CutCandidates{};
  std::vector<CorrectCounts> correct{};
  Singles SpecAt{}, SensAt{};
};

// Of ascending samples of at least one value each.  Candidates are compared in 64 bits and kept in
// 32.
CutOffSweep SweepCutOffs(std::span<const Real> first, std::span<const Real> second);

// The candidate of the greatest sum of specificity and sensitivity; the lowest of equal ones.
Single CutOffOfMaxSum(const CutOffSweep& sweep);

// The candidate that classifies most values correctly; the lowest of equal ones.
Single CutOffOfMaxCorrect(const CutOffSweep& sweep);

// A specificity or a sensitivity as the sweep keeps it.
inline Single Fraction(int correct, int N) { return Single(Real(correct) / N); }

}  // namespace quorval::diagnostic
