// The options of the imprecision at one level, and its two ways of running.
#pragma once

#include <array>

#include "analyses/methodeval/method_evaluation.h"

namespace quorval::methodeval::precision {

inline constexpr std::array<Choice, 2> kModes{
    {{"single", "Precision from single run (mean, SD and CV%)"},
     {"several", "Precision from several runs "}}};
inline constexpr Field kMode{
    .key = "mode", .kind = FieldKind::kChoice, .initial = "single", .choices = kModes};
inline constexpr When kSingle{kMode.key, "single"}, kSeveral{kMode.key, "several"};

inline constexpr std::string_view kLimitCaption = "No. of SD units as outlier rejection limit:";
inline constexpr std::string_view kSingleGroup = "Single run:", kSeveralGroup = "Several runs:";

inline constexpr Field kColumn{.key = "column",
                               .group = kSingleGroup,
                               .caption = "x values from Data Column No.:",
                               .initial = "2",
                               .enabled = {kSingle},
                               .demand = kDataColumn};
inline constexpr Field kOutlierLimit{.key = "outlier-limit",
                                     .group = kSingleGroup,
                                     .caption = kLimitCaption,
                                     .initial = "4",
                                     .enabled = {kSingle},
                                     .demand = kPositiveLimit};
inline constexpr Field kStartColumn{
    .key = "start-column",
    .group = kSeveralGroup,
    .caption = "Compute means and SD from       Data Column No.(start):",
    .enabled = {kSeveral},
    .demand = kDataColumn};
inline constexpr Field kLastColumn{.key = "last-column",
                                   .group = kSeveralGroup,
                                   .caption = "Data Column No. (last):",
                                   .enabled = {kSeveral},
                                   .demand = kDataColumn};
inline constexpr Field kSeveralOutlierLimit{.key = "several-outlier-limit",
                                            .group = kSeveralGroup,
                                            .caption = kLimitCaption,
                                            .initial = "4",
                                            .enabled = {kSeveral},
                                            .demand = kPositiveLimit};
inline constexpr Field kShowMeans{.key = "show-means",
                                  .kind = FieldKind::kCheck,
                                  .group = kSeveralGroup,
                                  .caption = "Display mean values",
                                  .initial = "off",
                                  .enabled = {kSeveral}};

inline constexpr std::string_view kValuesWindow = "frmPrecSPlot";
inline constexpr std::string_view kMeansWindow = "frmPrecMPlot";

void RunSingle(Run& run);
void RunSeveral(Run& run);

}  // namespace quorval::methodeval::precision
