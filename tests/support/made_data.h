// Made data: the same on every machine, as only the generator's raw numbers are used.
#pragma once

#include <random>
#include <vector>

#include "core/real.h"

namespace quorval::test {

// `n` whole numbers from 0 to `distinct` - 1, times `unit`: full of ties when `distinct` is small.
inline Sample TiedSample(std::mt19937& random, std::size_t n, unsigned long distinct,
                         Real unit = 0.1) {
  Sample sample;
  for (std::size_t i = 0; i < n; ++i)
    sample.push_back(static_cast<int>(random() % distinct) * unit);
  return sample;
}

}  // namespace quorval::test
