// Sums over all rows but one, for each row in turn.  Every sum runs over its rows in their order,
// with the roundings of a plain loop: a term taken off a full sum would leave other bits.  So that
// it does not take n times as long, several sums run side by side in the lanes of vectors.
#pragma once

#include <span>
#include <vector>

namespace quorval::regression {

// For each i the sum of the others.
std::vector<double> SumsWithoutEach(std::span<const double> values);

// For each row the scatter of the others about its own means.  A row holds `per_row` points that
// follow one another in x and y.  Sxx is rounded to 32 bits at each addition.  What overflows is
// infinite or not a number.
struct ScatterWithoutEach {
  std::vector<double> Sxx, Syy, Sxy;
};
ScatterWithoutEach ScattersWithoutEach(std::span<const double> x, std::span<const double> y,
                                       std::size_t per_row, std::span<const double> means_x,
                                       std::span<const double> means_y);

}  // namespace quorval::regression
