#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/real.h"

namespace quorval {

// What a run that marked outliers leaves for a repetition without them.
struct Rejection {
  struct Point {
    std::string id;
    Real x, y;
  };
  Real limit;                   // in SDs
  std::vector<Point> rejected;  // in data order, as the retained ones

  std::vector<std::string> retained_ids;
  // x and y, or x1, x2, y1 and y2: as the columns were read.
  std::array<Sample, 4> retained;

  // What the run estimated and a repetition keeps: the squared ratio of the analytical SDs.
  std::optional<Real> lambda{};

  // The fields, by key, that a repetition reads anew.  All others keep their values.
  std::vector<std::string_view> read_anew;
};

}  // namespace quorval
