// Deming regression for errors that grow with the concentration: iteratively reweighted (Linnet,
// 1993).
#pragma once

#include <optional>
#include <vector>

#include "analyses/regression/fit_deming.h"
#include "analyses/regression/weighting.h"

namespace quorval::regression {

struct WeightedDemingLine : DemingLine {
  Real rw;   // weighted correlation
  Sample w;  // one for each row
};

// The line through rows that weigh 1 / u^P, where u is the point's estimated place on the line
// (between both methods, by lambda) or the limit of truncation.  Starts from the unweighted line,
// reweights once and then up to ten times, until the slope moves by less than 1e-6; duplicates
// whose lambda is not given have a weighted one estimated in each step.  None where the slope does
// not settle, a place on the line is not positive, or a sum is 0.
std::optional<WeightedDemingLine> FitWeightedDeming(const SingleMeasurements& measured,
                                                    const Weighting& weighting);
std::optional<WeightedDemingLine> FitWeightedDeming(const DuplicateMeasurements& measured,
                                                    const Weighting& weighting);

// The lines without each row in turn, each by a full iteration; none where one cannot be fitted.
std::optional<std::vector<DemingLine>> FitWeightedDemingWithoutEach(
    const SingleMeasurements& measured, const Weighting& weighting);
std::optional<std::vector<DemingLine>> FitWeightedDemingWithoutEach(
    const DuplicateMeasurements& measured, const Weighting& weighting);

}  // namespace quorval::regression
