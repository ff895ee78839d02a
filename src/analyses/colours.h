// The colours of series that the results name.
#pragma once

#include "core/grid.h"

namespace quorval {

inline constexpr Colour kBlue = 0x0000FF, kGreen = 0x008000, kRed = 0xFF0000;

}  // namespace quorval
