#include "stats/moments.h"

#include "core/failure.h"

namespace quorval {
namespace {

// The differences from the mean.
Sample Centred(std::span<const Real> y) {
  const Real mean = Sum(y) / y.size();
  Sample differences;
  for (Real value : y) differences.push_back(value - mean);
  return differences;
}

// The population SD of values whose mean is 0.
Real PopulationSD(std::span<const Real> centred) {
  Real squares;
  for (Real d : centred) squares += d * d;
  return Sqrt(squares / centred.size());
}

}  // namespace

Real Skewness(Messages& messages, std::span<const Real> y) {
  return Insist(messages, "Error in skewness sub", [&] {
    const Sample centred = Centred(y);
    const Real sd = PopulationSD(centred);
    Real cubes;
    for (Real d : centred) cubes += d * d * d;
    return cubes / y.size() / (sd * sd * sd);
  });
}

Real Kurtosis(std::span<const Real> y) {
  const Sample centred = Centred(y);
  const Real sd = PopulationSD(centred);
  Real fourths;
  for (Real d : centred) fourths += d * d * d * d;
  return fourths / y.size() / (sd * sd * sd * sd) - 3;
}

}  // namespace quorval
