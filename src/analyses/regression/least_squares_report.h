// What ordinary and weighted least squares tell alike: the sheet from the residual SD on, the
// tables and the plots.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "analyses/regression/fit_least_squares.h"

namespace quorval::regression {

// Where a method's rows stand, and its own words in them.
struct LeastSquaresRows {
  int sd;  // the test of linearity follows
  std::string_view sd_label;
  int intercept;
  int critical_values;
  OutlierRows outliers;
  int bands;
  std::string_view estimate_heading;
  int residuals;
  std::array<std::string_view, 5> residual_headings;
};

// A fitted line with all that its report needs.
struct LeastSquaresFit {
  const Pairs& data;
  const Levels& levels;
  const LineFit& line;
  const Estimates& estimates;
  std::span<const Real> w;  // weights
};

// Returns the marks of the points.
OutlierMarks ReportLeastSquares(Run& run, const LeastSquaresRows& rows, const LeastSquaresFit& fit,
                                std::span<const PlotWindow> plots);

}  // namespace quorval::regression
