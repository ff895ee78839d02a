// The standard error of the difference between the areas of two ROC curves of the same
// individuals, by a binormal model of both tests (Obuchowski and McClish, Statistics in Medicine
// 1997;16:1529-42).
#pragma once

#include <span>

#include "core/messages.h"
#include "core/real.h"

namespace quorval::diagnostic {

// The results of one test by both groups, paired with those of the other test by position.
struct PairedTest {
  std::span<const Real> first, second;
};

// Groups of equal size in both tests.  A correlation that cannot be computed is told and counts as
// 0.  A Fault where the diseased have the lower mean or no spread, and of a negative variance.
Real SEOfAreaDifference(Messages& messages, const PairedTest& test1, const PairedTest& test2);

}  // namespace quorval::diagnostic
