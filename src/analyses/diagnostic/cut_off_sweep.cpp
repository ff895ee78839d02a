#include "analyses/diagnostic/cut_off_sweep.h"

#include <algorithm>
#include <iterator>

namespace quorval::diagnostic {
namespace {

// In 64 bits.  The first is meant to lie below every value, which that of a large magnitude does
// not: it classifies all values as positive all the same.
Sample CandidatesOf(std::span<const Real> merged) {
  Sample candidates{merged.front() - 0.00001};
  for (std::size_t k = 0; k + 1 < merged.size(); ++k)
    candidates.push_back((merged[k] + merged[k + 1]) / 2);
  candidates.push_back(merged.back());
  return candidates;
}

template <class Score>
Single CutOffOfMax(const CutOffSweep& sweep, Score score) {
  const auto best = std::ranges::max_element(sweep.correct, {}, score);
  return sweep.CutCandidates[static_cast<std::size_t>(best - sweep.correct.begin())];
}

}  // namespace

CutOffSweep SweepCutOffs(std::span<const Real> first, std::span<const Real> second) {
  CutOffSweep sweep{.N1 = static_cast<int>(first.size()), .N2 = static_cast<int>(second.size())};
  const auto add = [&](Real candidate, int first_below, int second_below) {
    const CorrectCounts correct{first_below, sweep.N2 - second_below};
    sweep.CutCandidates.emplace_back(candidate);
    sweep.correct.push_back(correct);
    sweep.SpecAt.push_back(Fraction(correct.first, sweep.N1));
    sweep.SensAt.push_back(Fraction(correct.second, sweep.N2));
  };
  Sample merged;
  std::ranges::merge(first, second, std::back_inserter(merged));
  const Sample candidates = CandidatesOf(merged);
  add(candidates.front(), 0, 0);
  auto first_above = first.begin();
  auto second_above = second.begin();
  for (const Real candidate : std::span(candidates).subspan(1)) {
    const auto above = [&](Real value) { return value > candidate; };
    first_above = std::find_if(first_above, first.end(), above);
    second_above = std::find_if(second_above, second.end(), above);
    add(candidate, static_cast<int>(first_above - first.begin()),
        static_cast<int>(second_above - second.begin()));
  }
  return sweep;
}

Single CutOffOfMaxSum(const CutOffSweep& sweep) {
  // Times N1 N2: whole numbers, so that equal sums are equal.
  return CutOffOfMax(sweep, [&](const CorrectCounts& correct) {
    return correct.first * sweep.N2 + correct.second * sweep.N1;
  });
}

Single CutOffOfMaxCorrect(const CutOffSweep& sweep) {
  return CutOffOfMax(sweep,
                     [](const CorrectCounts& correct) { return correct.first + correct.second; });
}

}  // namespace quorval::diagnostic
