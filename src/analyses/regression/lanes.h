// Vectors of fits that run side by side.  Lane arithmetic is plain IEEE arithmetic in each lane.
#pragma once

#include <experimental/simd>
#include <span>

namespace quorval::regression {

inline constexpr int kLanes = 8;
using Lanes = std::experimental::fixed_size_simd<double, kLanes>;
using SingleLanes = std::experimental::fixed_size_simd<float, kLanes>;
using LaneMask = Lanes::mask_type;

// What is called for every point is inlined whatever its size: a call passes lanes through memory,
// and the sums wait for it.

// Each lane rounded to 32 bits.
[[gnu::always_inline]] inline Lanes Round32(const Lanes& a) {
  return std::experimental::static_simd_cast<double>(std::experimental::static_simd_cast<float>(a));
}

}  // namespace quorval::regression
