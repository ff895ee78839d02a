// Histograms and cumulative plots of one sample, with the Gaussian curve of its mean and SD.
#pragma once

#include <span>
#include <string_view>

#include "core/messages.h"
#include "stats/histogram.h"

namespace quorval {

// The words of the routines that draw them.
inline constexpr std::string_view kHistogramFault = "Error in histogram display";
inline constexpr std::string_view kGaussianHistogramFault =
    "Error in histogram display with gauss distribution";
inline constexpr std::string_view kCumulativeFault =
    "Error in cumulative display of reference values";

inline constexpr std::string_view kRelativeFrequency = "Rel. Frequency";
inline constexpr std::string_view kCumulativeFrequency = "Cum. Frequency";

// Bars of the numbers in the classes over `divisor`.
void AddBars(Plot& plot, const HistogramClasses& classes, std::span<const Real> values,
             Real divisor);

// The cumulative frequencies and the Gaussian curve.
void AddCumulative(Messages& messages, Plot& plot, std::span<const Real> sorted);

}  // namespace quorval
