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

// The diseased of the single diagnostic test.
inline constexpr std::array<double, 25> kDiseased{
    12.362, 13.548, 14.528, 14.923, 16.443, 16.494, 18.275, 19.623, 19.646,
    21.542, 20.251, 21.866, 23.388, 27.666, 27.379, 31.089, 31.296, 33.983,
    15.42,  16.369, 17.899, 18.619, 21.247, 17.526, 17.653,
};

// The diseased of the first of two diagnostic tests.
inline constexpr std::array<double, 25> kDiseased1{
    12.397, 13.213, 14.161, 15.125, 16.627, 18.078, 17.938, 18.802, 19.892,
    20.854, 21.38,  21.889, 23.138, 24.375, 26.13,  30.975, 31.805, 33.302,
    15.243, 15.398, 16.653, 18.013, 18.555, 16.362, 17.421,
};

// The diseased of the second of two diagnostic tests.
inline constexpr std::array<double, 25> kDiseased2{
    17.376, 18.761, 19.655, 20.175, 21.579, 22.257, 23.189, 23.929, 24.761,
    24.481, 26.261, 28.409, 25.197, 31.479, 31.887, 34.611, 34.804, 36.498,
    20.004, 21.095, 23.687, 7.994,  27.156, 21.698, 22.77,
};

// A curve that rises faster and faster.
inline constexpr std::array<double, 8> kPolynomialX{6, 7, 8, 9, 10, 11, 12, 13};
inline constexpr std::array<double, 8> kPolynomialY{0.029, 0.052, 0.079, 0.125,
                                                    0.181, 0.261, 0.425, 0.738};

// Measurements of a blank, and of five samples with low amounts of analyte.
inline constexpr std::array<double, 20> kBlanks{
    7.33, 2.35, 3.21, 3.2,  5.53, 3.56, 3.41, 4.24, 2.83, 3.37,
    2.91, 2.17, 2.68, 2.58, 1.62, 3.43, 4.12, 3.17, 3.21, 4.5,
};
inline constexpr std::array<double, 4> kLow1{15.47, 15.08, 10.26, 18.96};
inline constexpr std::array<double, 4> kLow2{16.02, 17.78, 10.35, 17.97};
inline constexpr std::array<double, 4> kLow3{13.92, 16.28, 10.44, 19.67};
inline constexpr std::array<double, 4> kLow4{14.21, 18.48, 12.53, 18.68};
inline constexpr std::array<double, 4> kLow5{13.49, 18.07, 9.55, 19.81};

// Repeated measurements at three levels.
inline constexpr std::array<double, 6> kPrecision1{1, 0.8, 1.3, 0.9, 1.115, 0.99};
inline constexpr std::array<double, 5> kPrecision2{5.1, 4.8, 4.7, 5.3, 6.4};
inline constexpr std::array<double, 8> kPrecision3{10.1, 11.3, 13.5, 9.7, 10.3, 12.4, 9.4, 10.9};

// The level of a dilution and its measurements.
inline constexpr std::array<double, 4> kLinearity1{2.459, 2.362, 2.376, 2.6};
inline constexpr std::array<double, 4> kLinearity2{3.277, 3.548, 3.761, 3.8};
inline constexpr std::array<double, 3> kLinearity3{4.2745, 4.528, 4.655};
inline constexpr std::array<double, 5> kLinearity4{7.1, 7.325, 7.53, 7.32, 7.05};

// Control measurements by day; -1 stands for a day without one.
inline constexpr std::array<double, 8> kControlValues{10.5, 11.3, 9.7, -1, 10.1, 8.3, 12.9, 11.5};

// Carbamide in serum of 158 persons, mmol/L.
inline constexpr std::array<double, 158> kCarbamide{
    3.1, 6.0, 4.5, 6.8, 4.8, 4.8, 4.3, 5.2, 4.9, 5.7, 6.0, 4.5, 4.5, 4.5, 4.9, 5.9, 3.8, 7.3,
    4.0, 5.6, 4.9, 5.1, 2.7, 4.6, 3.8, 4.2, 4.1, 5.0, 7.6, 4.4, 3.8, 5.3, 3.3, 3.5, 5.0, 5.1,
    7.1, 4.6, 4.3, 4.2, 6.1, 6.3, 3.1, 4.2, 6.5, 4.4, 5.9, 5.6, 5.0, 5.0, 3.5, 5.8, 5.5, 5.3,
    5.9, 6.6, 4.1, 3.2, 5.5, 7.1, 5.6, 3.4, 5.3, 3.5, 4.4, 4.1, 5.4, 3.7, 4.5, 3.2, 4.4, 3.4,
    5.5, 3.7, 4.2, 4.3, 4.1, 4.0, 5.1, 4.1, 4.6, 4.1, 3.4, 4.1, 3.9, 5.0, 4.5, 5.9, 2.9, 4.7,
    3.5, 3.9, 4.2, 2.5, 4.0, 3.6, 5.4, 5.5, 3.2, 3.6, 5.2, 4.4, 3.1, 6.4, 4.1, 5.3, 4.8, 5.5,
    4.3, 6.6, 6.1, 5.5, 4.0, 6.9, 5.4, 6.1, 4.2, 4.9, 3.8, 4.2, 3.8, 3.2, 4.9, 5.6, 3.7, 5.5,
    5.3, 5.7, 4.3, 7.6, 4.6, 5.8, 4.7, 5.3, 4.2, 3.1, 4.5, 4.4, 4.3, 6.8, 4.0, 4.8, 4.7, 4.1,
    5.5, 3.2, 7.5, 4.2, 5.2, 3.4, 3.5, 4.3, 5.8, 4.6, 4.8, 5.0, 5.1, 5.6,
};

}  // namespace quorval::example_data
