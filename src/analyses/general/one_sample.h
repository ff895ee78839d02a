// Descriptive statistics of one sample: its options, its figures, and what shows them.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "analyses/class_options.h"
#include "core/intake.h"
#include "stats/primitives.h"

namespace quorval::general {

// --- Options that more than the dialog reads

inline constexpr Field kRelativeClasses =
    ClassChoiceField("relative-classes", "No. of class divisions in rel. freq. histogram: ");
inline constexpr Field kRelativeClassCount =
    ClassCountField("relative-class-count", kRelativeClasses);
inline constexpr Field kAbsoluteClasses =
    ClassChoiceField("absolute-classes", "No. of class divisions in abs. no. histogram:");
inline constexpr Field kAbsoluteClassCount =
    ClassCountField("absolute-class-count", kAbsoluteClasses);

// --- Figures

// A percentile that the user asked for.
struct UserPercentile {
  std::string text;  // as typed
  Real value;
  std::optional<Real> se{};  // by bootstrap, where it was asked for
};

struct Percentiles {
  std::array<Real, 9> tens{};  // the 10th to the 90th
  // Of the two fields; none where the field is empty or the sample too small.
  std::array<std::optional<UserPercentile>, 2> user{};
};

struct OneSample {
  std::string name;  // the column's title
  Sample x;          // 32-bit values, ascending
  Description described{};
  Real median{};
  Real skewness{}, kurtosis{};
  std::string normality_P{};
  Real outlier_limit{};  // in SDs
  OutlierMarks outliers{};
  std::optional<Percentiles> percentiles{};  // where they are asked for

  Real N() const { return x.size(); }
};

void WriteOneSample(Run& run, const OneSample& sample);

// --- Plots

inline constexpr std::string_view kAbsoluteHistogramWindow = "frmHistoAbsPlot";
inline constexpr std::string_view kRelativeHistogramWindow = "frmHistoPlot";
inline constexpr std::string_view kCumulativeWindow = "frmCumGauss";

// The dot plot, the histograms of numbers and of relative frequencies, and the cumulative plot.
void DrawOneSample(Run& run, const OneSample& sample);

}  // namespace quorval::general
