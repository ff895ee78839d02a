// The tests of two samples: what they share, and their entries.  Each test reads two groups, writes
// its sheet and draws one dot plot; its routine has words of its own for what cannot be computed.
#pragma once

#include <string>
#include <string_view>

#include "core/failure.h"
#include "core/run.h"

namespace quorval::general {

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

void RunTTest(Run& run, const TwoGroups& groups);
void RunPairedTTest(Run& run, const TwoGroups& groups);
void RunFTest(Run& run, const TwoGroups& groups);
void RunMannWhitney(Run& run, const TwoGroups& groups);
void RunWilcoxon(Run& run, const TwoGroups& groups);

// Ends a test with its words.
[[noreturn]] inline void Fail(const Run& run, std::string_view words) {
  run.messages.Tell(words);
  throw Failure{};
}

// Second less first, row by row.  Fails where the groups differ in size.
Sample TakeDifferences(Run& run, const TwoGroups& groups);

// Clears the sheet and writes rows 2 to 11 of a test of pairs.
void WritePairedHead(Run& run, std::string_view title, const TwoGroups& groups);

// Both groups, then a bar for each at its centre.
void DrawGroups(Run& run, const TwoGroups& groups, Real first_centre, Real second_centre);

// The differences and a bar at their centre.
void DrawDifferences(Run& run, std::span<const Real> differences, Real centre);

}  // namespace quorval::general
