// The choice between the procedures for linearity, and what the record of the analysis needs of the
// polynomial one (linearity_polynomial.cpp).
#pragma once

#include <array>

#include "analyses/methodeval/method_evaluation.h"

namespace quorval::methodeval::linearity {

inline constexpr std::array<Choice, 3> kProcedureChoices{
    {{"ols",
      "Linearity evaluation on the basis of Ordinary Least-Squares Regression Analysis (OLR)"},
     {"wls",
      "Linearity evaluation on the basis of Weighted Least-Squares Regression Analysis (WLR)"},
     {"polynomial",
      "Linearity evaluation on the basis of polynomial fit (recommended NCCLS EP6 A "
      "procedure)"}}};
inline constexpr Field kProcedure{
    .key = "procedure", .kind = FieldKind::kChoice, .initial = "ols", .choices = kProcedureChoices};
inline constexpr When kOlr{kProcedure.key, "ols"}, kWlr{kProcedure.key, "wls"},
    kPolynomial{kProcedure.key, "polynomial"};

// --- Options of the polynomial

inline constexpr std::array<Choice, 2> kDegrees{
    {{"2", "Second degree polynomial fit"}, {"3", "Third degree polynomial fit"}}};
inline constexpr Field kDegree{.key = "degree",
                               .kind = FieldKind::kChoice,
                               .group = "Polynomial fit:",
                               .initial = "2",
                               .choices = kDegrees,
                               .enabled = {kPolynomial}};

inline constexpr std::string_view kGoalGroup = "Linearity goal:";
inline constexpr std::array<Choice, 2> kGoals{
    {{"percent", "Maximum percent deviation:"}, {"absolute", "Maximum abs. deviation:"}}};
inline constexpr Field kGoal{.key = "goal",
                             .kind = FieldKind::kChoice,
                             .group = kGoalGroup,
                             .initial = "percent",
                             .choices = kGoals,
                             .enabled = {kPolynomial}};
inline constexpr When kByPercent{kGoal.key, "percent"}, kByAmount{kGoal.key, "absolute"};
inline constexpr Field kPercentGoal{.key = "percent-goal",
                                    .group = kGoalGroup,
                                    .initial = "5",
                                    .enabled = {kPolynomial, kByPercent},
                                    .beside = kByPercent};
inline constexpr Field kAbsoluteGoal{.key = "absolute-goal",
                                     .group = kGoalGroup,
                                     .enabled = {kPolynomial, kByAmount},
                                     .beside = kByAmount};

// --- Rows of the polynomial

inline constexpr Quantity kPooledSD = Captioned(quantity::kSDWithin, " Pooled SD:");
inline constexpr Quantity kPooledCV{"cv.within", " Pooled CV%:", Unit::kPercent};
inline constexpr std::array kCoefficients{Quantity{"b0", " b0:"}, Quantity{"b1", " b1:"},
                                          Quantity{"b2", " b2:"}, Quantity{"b3", " b3:"}};
inline constexpr Quantity kSDyx{"sd_yx", " SDy.x:", Unit::kMeasurand};
inline constexpr Quantity kLastSE{"last_coefficient.se", " SE of last coef.:"};
inline constexpr Quantity kLastT{"last_coefficient.t", " t value:"};
inline constexpr Quantity kLastP{"last_coefficient.p", " P:"};
inline constexpr std::array kLineCoefficients{Quantity{"intercept", " b0:", Unit::kMeasurand},
                                              Quantity{"slope", " b1:"}};
inline constexpr Quantity kLineSDyx{"line.sd_yx", " SDy.x:", Unit::kMeasurand};
inline constexpr Quantity kGoalExceeded{"goal.percent",
                                        " Maximum percent deviation exceeds user-set limit of ",
                                        Unit::kPercent, Width::k32};
inline constexpr Quantity kAbsoluteGoalExceeded{
    "goal.absolute", " Estimated max. absolute deviation from linearity exceeds user-set limit of ",
    Unit::kMeasurand, Width::k32};
// The line's coefficients are those of the lack-of-fit test.
inline constexpr auto kPolynomialQuantities = Joined(
    std::array{kPooledSD, kPooledCV}, kCoefficients,
    std::array{kSDyx, kLastSE, kLastT, kLastP, kLineSDyx, kGoalExceeded, kAbsoluteGoalExceeded});
inline constexpr NamedTable kReplicates{"replicates", "Each level, its mean and its replicates"};
inline constexpr NamedTable kRepeatability{
    "repeatability", "Each level, its mean and the largest difference of its replicates"};
inline constexpr NamedTable kDeviations{
    "deviations", "Each level, its mean, the line, the polynomial and their difference"};

// --- Plots of the polynomial

inline constexpr PlotWindow kPolynomialPlots[] = {
    {.window = "frmLinPolynPlot",
     .caption = "Linearity: polynomial and line",
     .x_title = "x values (dilutions)",
     .y_title = "Actual measured means",
     .bitmap = " Chart2D1.bmp",
     .height = 350},
    {.window = "frmLinPolynDifPlot",
     .caption = "Linearity: deviations",
     .x_title = "Measured mean values",
     .y_title = "Difference",
     .bitmap = " Chart2D1Res.bmp",
     .height = 150},
};
inline constexpr PlotJob kPolynomialJobs[] = {{.pictures = kPolynomialPlots}};

void RunPolynomial(Run& run);

}  // namespace quorval::methodeval::linearity
