// The measurements of one run, paired by sample.
#pragma once

#include <array>
#include <optional>

#include "analyses/difference/options.h"
#include "core/intake.h"
#include "core/run.h"
#include "stats/primitives.h"

namespace quorval::difference {

inline constexpr std::string_view kTooFewPairs = " n < 3: No analysis ";

// All of length n.  Every difference is y minus x.
struct PairedData {
  Texts ids{};
  std::array<int, 4> columns{};  // as PairColumns::numbers
  Sample x{}, y{};               // in the duplicate form the means of the replicates
  Sample mean{};                 // (x + y) / 2
  Sample difference{};           // y - x
  Range mean_range{};
  // y - x by the pair mean; none in the duplicate form when a measurement is not positive.
  std::optional<Sample> relative{};

  int Count() const { return static_cast<int>(x.size()); }
};

// Both take the columns, refuse fewer than 3 pairs and an x without dispersion.  The single form
// refuses zero and negative measurements too; the duplicate form then leaves out what is relative.
PairedData TakePairs(Run& run, const Scale& scale);
PairedData TakeDuplicates(Run& run, const Scale& scale);

}  // namespace quorval::difference
