// Limits of the runs test: a class holds for as many runs or fewer, above the class before it.
#pragma once

#include <array>
#include <string_view>

namespace quorval::tables {

inline constexpr std::array<std::string_view, 5> kRunsClasses{
    " P < 0.001", "0.001 < P < 0.01", " P < 0.01", "0.01 < P < 0.05", " P < 0.05"};

// For m1 residuals of the rarer sign and from m2_first to m2_last of the other: the most runs of
// each class; 0: the pair does not have the class.
struct RunsLimits {
  int m1, m2_first, m2_last;
  std::array<int, 5> limits;
};
inline constexpr std::array<RunsLimits, 16> kRunsLimits{{
    {2, 8, 10, {0, 0, 0, 0, 2}},
    {3, 7, 9, {0, 0, 0, 0, 2}},
    {3, 10, 10, {0, 0, 2, 3, 0}},
    {4, 6, 10, {0, 0, 2, 3, 0}},
    {5, 5, 8, {0, 0, 2, 3, 0}},
    {5, 9, 10, {0, 0, 3, 4, 0}},
    {6, 6, 6, {0, 0, 2, 3, 0}},
    {6, 7, 9, {0, 0, 3, 4, 0}},
    {6, 10, 10, {0, 0, 3, 5, 0}},
    {7, 7, 8, {2, 3, 0, 4, 0}},
    {7, 9, 10, {3, 4, 0, 5, 0}},
    {8, 8, 9, {3, 4, 0, 5, 0}},
    {8, 10, 10, {3, 4, 0, 6, 0}},
    {9, 9, 9, {3, 4, 0, 6, 0}},
    {9, 10, 10, {3, 5, 0, 6, 0}},
    {10, 10, 10, {4, 5, 0, 6, 0}},
}};

}  // namespace quorval::tables
