// Critical values of the rank tests: two-sided 5 % and 1 % points of the smaller rank sum.
#pragma once

#include <span>

namespace quorval::general::tables {

// T is significant at 5 % and at 1 % up to these.
struct RankLimits {
  double c05, c01;
};

// The rank sum of the smaller of two samples (White C, Biometrics 1952;8:33-41): an array for each
// smaller size from 5 to 15, a place for each larger size from the smaller one on, until both
// together are 30.
inline constexpr RankLimits kRankSum5[] = {
    {17, 15}, {18, 16}, {20, 17}, {21, 17}, {22, 18}, {23, 19}, {24, 20},
    {26, 21}, {27, 22}, {28, 22}, {29, 23}, {31, 24}, {32, 25}, {33, 26},
    {34, 27}, {35, 28}, {37, 29}, {38, 29}, {39, 30}, {40, 31}, {42, 32}};
inline constexpr RankLimits kRankSum6[] = {{26, 23}, {27, 24}, {29, 25}, {31, 26}, {32, 27},
                                           {34, 28}, {35, 30}, {37, 31}, {38, 32}, {40, 33},
                                           {42, 34}, {43, 36}, {45, 37}, {46, 38}, {48, 39},
                                           {50, 40}, {51, 42}, {53, 43}, {55, 44}};
inline constexpr RankLimits kRankSum7[] = {
    {36, 32}, {38, 34}, {40, 35}, {42, 37}, {44, 38}, {46, 40}, {48, 41}, {50, 43}, {52, 44},
    {54, 46}, {56, 47}, {58, 49}, {60, 50}, {62, 52}, {64, 53}, {66, 55}, {68, 57}};
inline constexpr RankLimits kRankSum8[] = {{49, 43}, {51, 45}, {53, 47}, {55, 49}, {58, 51},
                                           {60, 53}, {63, 54}, {65, 56}, {67, 58}, {70, 60},
                                           {72, 62}, {74, 64}, {77, 66}, {79, 68}, {82, 70}};
inline constexpr RankLimits kRankSum9[] = {{63, 56}, {65, 58}, {68, 61}, {71, 63}, {73, 65},
                                           {76, 67}, {79, 70}, {82, 72}, {84, 74}, {87, 76},
                                           {90, 78}, {93, 81}, {95, 83}};
inline constexpr RankLimits kRankSum10[] = {{78, 71},  {81, 74},  {85, 76}, {88, 79},
                                            {91, 81},  {94, 84},  {97, 86}, {100, 89},
                                            {103, 92}, {107, 94}, {110, 97}};
inline constexpr RankLimits kRankSum11[] = {{96, 87},   {99, 90},   {103, 93},
                                            {106, 96},  {110, 99},  {114, 102},
                                            {117, 105}, {121, 108}, {124, 111}};
inline constexpr RankLimits kRankSum12[] = {{115, 106}, {119, 109}, {123, 112}, {127, 115},
                                            {131, 119}, {135, 122}, {139, 125}};
inline constexpr RankLimits kRankSum13[] = {
    {137, 125}, {141, 129}, {145, 133}, {150, 137}, {154, 140}};
inline constexpr RankLimits kRankSum14[] = {{160, 147}, {164, 151}, {169, 155}};
inline constexpr RankLimits kRankSum15[] = {{185, 171}};
inline constexpr std::span<const RankLimits> kRankSums[] = {
    kRankSum5,  kRankSum6,  kRankSum7,  kRankSum8,  kRankSum9, kRankSum10,
    kRankSum11, kRankSum12, kRankSum13, kRankSum14, kRankSum15};
inline constexpr int kSmallestSize = 5, kLargestSmallerSize = 15, kLargestTotal = 30;

// The signed rank sum of paired samples of 7 to 16 pairs.
inline constexpr RankLimits kSignedRanks[] = {{2, 0},  {2, 0},   {6, 2},   {8, 3},   {11, 5},
                                              {14, 7}, {17, 10}, {21, 13}, {25, 16}, {30, 19}};
inline constexpr int kFewestPairs = 7, kMostTabledPairs = 16;

}  // namespace quorval::general::tables
