// The resampled curves are walked without being drawn.  An index into a sorted sample is a rank, so
// how often each index was drawn stands for the sorted resample; and the area grows only where the
// specificity does, that is at the values of the first sample.  Left out are candidates that would
// add exactly 0, so the sum has the same bits as the trapezoids of a sweep.
#include "analyses/diagnostic/roc_area.h"

#include "core/failure.h"
#include "stats/resampling.h"

namespace quorval::diagnostic {
namespace {

using Counts = std::span<const std::uint16_t>;

Real Trapezoid(Real false_positive, Real next_false_positive, Real sens, Real next_sens) {
  return (false_positive - next_false_positive) * (sens + next_sens) / 2;
}

// A value of the first sample: where, in each sample, the values up to it end.
struct Step {
  std::size_t first_end;     // values of the first sample that are equal to it
  std::size_t second_below;  // values of the second sample below it
  std::size_t second_end;    // those equal to it too
};

std::vector<Step> StepsOf(std::span<const Real> first, std::span<const Real> second) {
  std::vector<Step> steps;
  std::size_t below = 0;
  for (std::size_t i = 0; i < first.size();) {
    const Real value = first[i];
    while (below < second.size() && second[below] < value) ++below;
    Step step{i, below, below};
    while (step.first_end < first.size() && first[step.first_end] == value) ++step.first_end;
    while (step.second_end < second.size() && second[step.second_end] == value) ++step.second_end;
    i = step.first_end;
    below = step.second_end;
    steps.push_back(step);
  }
  return steps;
}

// Counts up a resample.
class Walk {
 public:
  explicit Walk(Counts counts) : counts_(counts) {}

  // How many values were drawn of those before `end`, which never goes back.
  std::size_t To(std::size_t end) {
    for (; at_ < end; ++at_) drawn_ += counts_[at_];
    return drawn_;
  }

 private:
  Counts counts_;
  std::size_t at_ = 0, drawn_ = 0;
};

class ResampledArea {
 public:
  ResampledArea(std::span<const Real> first, std::span<const Real> second)
      : steps_(StepsOf(first, second)) {
    const int N1 = static_cast<int>(first.size());
    const int N2 = static_cast<int>(second.size());
    for (int below = 0; below <= N1; ++below)
      false_positive_.push_back(1 - Real(Fraction(below, N1)));
    for (int below = 0; below <= N2; ++below) sens_.push_back(Fraction(N2 - below, N2));
  }

  Real Of(Counts first, Counts second) const {
    Walk first_walk(first), second_walk(second);
    Real area;
    std::size_t first_before = 0;
    for (const Step& step : steps_) {
      const std::size_t second_before = second_walk.To(step.second_below);
      const std::size_t second_now = second_walk.To(step.second_end);
      const std::size_t first_now = first_walk.To(step.first_end);
      area += Trapezoid(false_positive_[first_before], false_positive_[first_now],
                        sens_[second_before], sens_[second_now]);
      first_before = first_now;
    }
    return area;
  }

 private:
  std::vector<Step> steps_;
  Sample false_positive_, sens_;  // by how many values of the sample lie at or below
};

}  // namespace

Real AreaUnder(const CutOffSweep& sweep) {
  const auto& SpecAt = sweep.SpecAt;
  const auto& SensAt = sweep.SensAt;
  Real area;
  for (std::size_t k = 0; k + 1 < SpecAt.size(); ++k)
    area += Trapezoid(1 - SpecAt[k], 1 - SpecAt[k + 1], SensAt[k], SensAt[k + 1]);
  return area;
}

Sample ResampleAreas(Messages& messages, std::span<const Real> first, std::span<const Real> second,
                     int B) {
  const ResampledArea area(first, second);
  ResampleGenerator generator;
  Resample first_drawn(first.size()), second_drawn(second.size());
  Sample areas;
  for (int replicate = 0; replicate < B; ++replicate) {
    Insist(messages, "Error in Bootstrap sample sub", [&] {
      first_drawn.Draw(generator);
      second_drawn.Draw(generator);
    });
    areas.push_back(area.Of(first_drawn.Counts(), second_drawn.Counts()));
  }
  return areas;
}

}  // namespace quorval::diagnostic
