// What both procedures for detection limits share, and what the record of the analysis needs of the
// second (limit_of_detection.cpp).
#pragma once

#include <array>

#include "analyses/methodeval/method_evaluation.h"

namespace quorval::methodeval::detection {

// --- Options of both

inline constexpr std::array<Choice, 2> kProcedureChoices{
    {{"a", "A. Procedure addressing the type I error aspect:"},
     {"b", "B. Procedure taking both type I and II errors into account (CLSI EP 17-A): "}}};
inline constexpr Field kProcedure{
    .key = "procedure", .kind = FieldKind::kChoice, .initial = "a", .choices = kProcedureChoices};
inline constexpr When kBySd{kProcedure.key, "a"}, kByEp17{kProcedure.key, "b"};

inline constexpr Field kOutlierLimit{
    .key = "outlier-limit",
    .caption = "Specify number of standard deviations as outlier limit:",
    .initial = "4",
    .demand = kPositiveLimit};

// --- Options of B

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

// --- Rows of B

inline constexpr Quantity kBlanksFrom{"blank.column", " Selected Col. for blanks:", Unit::kNone,
                                      Width::kWhole};
inline constexpr Quantity kBlankCount{"blank.n", "No of blank obs:", Unit::kNone, Width::kWhole};
inline constexpr Quantity kAlphaUsed{"alpha", "Type I error (alpha, % ):", Unit::kPercent,
                                     Width::k32};
inline constexpr Quantity kLoB{"lob", "Limit of blank (LoB):", Unit::kMeasurand};
inline constexpr Quantity kLoBSE{"lob.se", "SE of LoB:", Unit::kMeasurand};
inline constexpr Quantity kBetaUsed{"beta", "Type II error (beta, %):", Unit::kPercent,
                                    Width::kWhole};
inline constexpr std::string_view kLowColumns = "Low sample(s) from cols:";
inline constexpr Quantity kFirstLow = Captioned(quantity::kFirstColumn, kLowColumns);
inline constexpr Quantity kLastLow = Captioned(quantity::kLastColumn, kLowColumns);
inline constexpr Quantity kPooledSD = Captioned(quantity::kSDWithin, "Pooled low sample SD:");
inline constexpr Quantity kPooledDf{"df.within", "D. of freedom:", Unit::kNone, Width::kWhole};
inline constexpr Quantity kCbeta{"cbeta", "cbeta:"};
inline constexpr Quantity kLoD{"lod", "Limit of detection (LoD):", Unit::kMeasurand};
inline constexpr Quantity kLoDSE{"lod.se", "SE of LoD:", Unit::kMeasurand};
inline constexpr std::array kByEp17Quantities{
    kBlanksFrom, kBlankCount, kAlphaUsed, kLoB,   kLoBSE, kBetaUsed, kFirstLow,
    kLastLow,    kPooledSD,   kPooledDf,  kCbeta, kLoD,   kLoDSE};

// --- Plots of B

inline constexpr PlotWindow kByEp17Plots[] = {{.window = "frmDotDetplot",
                                               .caption = "Limit of detection",
                                               .x_title = "Sample no.",
                                               .bitmap = " Chart2D1.bmp",
                                               .height = 350}};
inline constexpr PlotJob kByEp17Jobs[] = {{.pictures = kByEp17Plots}};

void RunByEp17(Run& run);

}  // namespace quorval::methodeval::detection
