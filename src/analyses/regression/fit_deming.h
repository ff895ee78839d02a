// Deming regression: both methods measure with error (Deming, 1943; Linnet, 1993).
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "core/real.h"

namespace quorval::regression {

// Each sample measured once by both methods; 32 bits.
struct SingleMeasurements {
  using Width = Single;  // of what is computed of a point, and of the line
  Singles x, y;
  Single lambda;  // (SDax / SDay)^2, the squared ratio of the analytical SDs; given
};

// Each sample measured twice by both methods; 64 bits.
struct DuplicateMeasurements {
  using Width = Real;
  Sample x1, x2, y1, y2;
  std::optional<Real> lambda{};  // as above; none where a fit estimates it from its duplicates
};

// The line, its numbers as wide as the measurements' Width.
struct DemingLine {
  Real lambda;  // given, or estimated
  Real b, a0;   // slope and intercept
  Real mean_x, mean_y;

  Real At(Real u) const { return a0 + b * u; }
};

// Sums of squares and products about the means.  Sxx is rounded to 32 bits at each addition.
struct Scatter {
  Single Sxx;
  Real Syy, Sxy;

  void Add(Real dx, Real dy) {
    Sxx += Square(dx);
    Syy += Square(dy);
    Sxy += dx * dy;
  }
};

// The slope that fits the scatter; none where lambda Sxy is 0.
std::optional<Real> DemingSlope(const Scatter& scatter, Real lambda);

// The line through at least 2 points; none where lambda Sxy is 0.
std::optional<DemingLine> FitDeming(const SingleMeasurements& measured);

// As FitDeming, with lambda from the ratio of the duplicates' squared differences unless it is
// given. None where it cannot be estimated, since all y1 equal their y2.
std::optional<DemingLine> FitDemingDuplicate(const DuplicateMeasurements& measured);
inline std::optional<DemingLine> FitDeming(const DuplicateMeasurements& measured) {
  return FitDemingDuplicate(measured);
}

// The lines without each row in turn, in the order of the rows; none where one of them cannot be
// fitted.  The same bits as by a fit of the other rows.
std::optional<std::vector<DemingLine>> FitDemingWithoutEach(const SingleMeasurements& measured);
std::optional<std::vector<DemingLine>> FitDemingWithoutEach(const DuplicateMeasurements& measured);

}  // namespace quorval::regression
