// What a step of weighted Deming regression takes and gives, whether one fit goes at a time or
// many.
#pragma once

#include <vector>

#include "analyses/regression/fit_weighted_deming.h"

namespace quorval::regression {

// The measurements, row by row.
struct WeightedDemingRows {
  std::vector<double> x{}, y{};  // one point for each row, or two that follow one another
  std::vector<double> place_x{}, place_y{};  // a row's point, or the mean of its two
  std::vector<double> A{}, B{};  // squared differences of duplicates, where lambda is estimated
  bool narrow = false;           // what is computed of a row is rounded to 32 bits

  std::size_t Count() const { return place_x.size(); }
  bool Duplicate() const { return x.size() > Count(); }
  bool EstimatesLambda() const { return !A.empty(); }
};

WeightedDemingRows RowsOf(const SingleMeasurements& measured);
WeightedDemingRows RowsOf(const DuplicateMeasurements& measured);

// After a first step at most so many, until the slope moves by less.
inline constexpr int kMostSteps = 10;
inline constexpr double kTolerance = 0.000001;

// What a step sums up over the rows, about the weighted means.  A and B are those of the squared
// differences of duplicates.
struct StepSums {
  Real Sw, mean_x, mean_y;
  Scatter scatter;
  Real A, B;
};

// The next line of a fit, from its last one, and the weighted correlation; false where a sum is 0.
// The intercept comes with the last step.
bool SolveStep(const WeightedDemingRows& rows, const StepSums& sums, DemingLine& line, Real& rw);

// The line with the intercept through the weighted means.
DemingLine WithIntercept(const WeightedDemingRows& rows, DemingLine line);

}  // namespace quorval::regression
