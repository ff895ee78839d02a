// The two Bland-Altman plots: differences against the pair means, with their limits.
#pragma once

#include <string_view>

#include "analyses/difference/estimated_limits.h"
#include "analyses/difference/options.h"
#include "analyses/difference/paired_data.h"
#include "core/analysis.h"

namespace quorval::difference {

inline constexpr std::string_view kAbsoluteWindow = "frmBAPlot";
inline constexpr std::string_view kRelativeWindow = "frmBARelPlot";

inline constexpr std::array<PlotWindow, 1> kAbsolutePicture{
    {{.window = kAbsoluteWindow, .caption = {}, .bitmap = " Chart2D1.bmp", .height = 350}}};
inline constexpr std::array<PlotWindow, 1> kRelativePicture{
    {{.window = kRelativeWindow, .caption = {}, .bitmap = " Chart2D1Rel.bmp", .height = 350}}};
inline constexpr std::array<PlotJob, 2> kPlotJobs{
    {{.pictures = kAbsolutePicture}, {.pictures = kRelativePicture}}};

inline constexpr std::string_view kAbsoluteCaption =
    "Bland-Altman Plot (y-x differences against mean of x and y)";
inline constexpr std::string_view kRelativeCaption =
    "Relative Bland-Altman Plot (relative difference against mean of x and y)";
inline constexpr std::string_view kPercentCaption =
    "Percent Bland-Altman Plot (percent difference against mean of x and y)";

// The points, the mean (blue, dashed) and the limits (green, dotted) from the smallest pair mean to
// the largest, and the outliers where there are any.
void DrawAbsolutePlot(Run& run, const PairedData& data, const EstimatedLimits& limits);
void DrawRelativePlot(Run& run, std::string_view caption, const PairedData& data,
                      const EstimatedLimits& limits, const Scale& scale);

// The points, and the lower and the upper of the limits that the user set: straight lines, or
// curves of 50 points.  Kind A has none on the relative plot.  The curves of kind C run from 0 on,
// and a constant limit there has no relative value: a Fault.
void DrawAbsolutePlot(Run& run, const PairedData& data, const UserLimits& limits);
void DrawRelativePlot(Run& run, const PairedData& data, const UserLimits& limits,
                      const Scale& scale);

}  // namespace quorval::difference
