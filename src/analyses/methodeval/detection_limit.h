// The options of detection limits, and the two procedures behind them.
#pragma once

#include <array>

#include "analyses/methodeval/method_evaluation.h"

namespace quorval::methodeval::detection {

inline constexpr std::array<Choice, 2> kProcedureChoices{
    {{"a", "A. Procedure addressing the type I error aspect:"},
     {"b", "B. Procedure taking both type I and II errors into account (CLSI EP 17-A): "}}};
inline constexpr Field kProcedure{
    .key = "procedure", .kind = FieldKind::kChoice, .initial = "a", .choices = kProcedureChoices};
inline constexpr When kBySd{kProcedure.key, "a"}, kByEp17{kProcedure.key, "b"};

// --- A.  Either limit may be left out

inline constexpr std::string_view kDlGroup = "Detection Limit (DL):";
inline constexpr std::string_view kLoqGroup = "Lower Limit of Quantitation (LOQ):";
inline constexpr std::string_view kSdColumnCaption = "Compute SD from Data Column No.:";

inline constexpr std::string_view kDlRefused = "No column no. was selected for DL analysis!";

inline constexpr Field kDl{.key = "dl",
                           .kind = FieldKind::kCheck,
                           .group = kDlGroup,
                           .caption = "DL",
                           .initial = "on",
                           .enabled = {kBySd}};
inline constexpr Conditions kDlAsked{kBySd, When{kDl.key, "on"}};
inline constexpr Field kDlColumn{.key = "dl-column",
                                 .group = kDlGroup,
                                 .caption = kSdColumnCaption,
                                 .enabled = kDlAsked,
                                 .demand = kWorksheetColumn.RefusedIfBlank(kDlRefused)};
inline constexpr Field kDlSds{.key = "dl-sds",
                              .group = kDlGroup,
                              .caption = "No. of SD´s of low/zero sample as DL:",
                              .initial = "3",
                              .enabled = kDlAsked};
inline constexpr Field kLoq{.key = "loq",
                            .kind = FieldKind::kCheck,
                            .group = kLoqGroup,
                            .caption = "LOQ",
                            .initial = "on",
                            .enabled = {kBySd}};
inline constexpr Conditions kLoqAsked{kBySd, When{kLoq.key, "on"}};
inline constexpr Field kLoqColumn{
    .key = "loq-column",
    .group = kLoqGroup,
    .caption = kSdColumnCaption,
    .enabled = kLoqAsked,
    .demand = kWorksheetColumn.RefusedIfBlank("No column no. was selected for LOQ analysis!")};
inline constexpr Field kLoqSds{.key = "loq-sds",
                               .group = kLoqGroup,
                               .caption = "No. of SD´s of low/zero sample as LOQ:",
                               .initial = "5",
                               .enabled = kLoqAsked};

// --- B

inline constexpr Field kBlankColumn{.key = "blank-column",
                                    .group = "Blank:",
                                    .caption = "Blank measurements from Data Column No.:",
                                    .enabled = {kByEp17},
                                    .demand = kWorksheetColumn.RefusedIfBlank(
                                        "No column no. was selected for the blank measurements!")};
inline constexpr Field kAlpha{.key = "alpha",  // percent
                              .group = "Blank:",
                              .caption = "Type I error (alpha, %): (LoB = Perc(1-alpha)",
                              .initial = "5",
                              .enabled = {kByEp17}};
inline constexpr Field kStartColumn{
    .key = "start-column",
    .group = "Low sample values:",
    .caption = "Data Column No. (start):",
    .enabled = {kByEp17},
    .demand = kWorksheetColumn.RefusedIfBlank(
        "No column start no. was selected for low sample measurements!")};
inline constexpr Field kLastColumn{
    .key = "last-column",
    .group = "Low sample values:",
    .caption = "Data Column No. (last):",
    .enabled = {kByEp17},
    .demand = kWorksheetColumn.RefusedIfBlank(
        "No last column no. was selected for low sample measurements!")};
inline constexpr std::array<Choice, 2> kBetaChoices{{{"5", "5%"}, {"1", "1%"}}};
inline constexpr Field kBeta{.key = "beta",
                             .kind = FieldKind::kChoice,
                             .group = "Type II error:",
                             .initial = "5",
                             .choices = kBetaChoices,
                             .enabled = {kByEp17}};

inline constexpr Field kOutlierLimit{
    .key = "outlier-limit",
    .caption = "Specify number of standard deviations as outlier limit:",
    .initial = "4",
    .demand = kPositiveLimit};

// --- Windows

inline constexpr std::string_view kDlPlot = "frmPrecPlot1", kLoqPlot = "frmPrecPlot2";
inline constexpr std::string_view kDotPlot = "frmDotDetplot";

void RunBySd(Run& run);
void RunByEp17(Run& run);

}  // namespace quorval::methodeval::detection
