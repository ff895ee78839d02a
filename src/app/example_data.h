// The values of the built-in examples.
#pragma once

#include <array>

namespace quorval::example_data {

// Of 25 samples: x of the first measurement.
inline constexpr std::array<double, 25> kA{
    2.521,  3.341,  4.388,  5.252,  6.422,  7.443,  8.285, 9.253,  10.621,
    10.405, 11.874, 13.444, 13.343, 16.402, 19.108, 19.25, 20.917, 23.409,
    5.583,  5.063,  6.272,  7.469,  10.176, 6.581,  7.63,
};

// Of 25 samples: y of the first measurement.
inline constexpr std::array<double, 25> kB{
    2.362,  3.548,  4.528,  4.923,  6.443,  6.494,  8.275,  9.623,  9.646,
    11.542, 10.251, 11.866, 13.388, 17.666, 17.379, 21.089, 21.296, 23.983,
    5.42,   6.369,  7.899,  8.619,  11.247, 7.526,  7.653,
};

// Of 25 samples: x of the second measurement.
inline constexpr std::array<double, 25> kC{
    2.397,  3.213, 4.161,  5.125,  6.627,  8.078, 7.938,  8.802,  9.892,
    10.854, 11.38, 11.889, 13.138, 14.375, 16.13, 20.975, 21.805, 23.302,
    5.243,  5.398, 6.653,  8.013,  8.555,  6.362, 7.421,
};

// Of 25 samples: y of the second measurement.
inline constexpr std::array<double, 25> kD{
    2.376, 3.761,  4.655,  5.175,  6.579,  7.257,  8.189,  8.929,  9.761,
    9.481, 11.261, 13.409, 13.197, 16.479, 16.887, 19.611, 19.804, 21.498,
    5.004, 6.095,  8.687,  7.994,  12.156, 6.698,  7.77,
};

}  // namespace quorval::example_data
