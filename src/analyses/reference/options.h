// The options of a reference interval run: the dialog, and the nonparametric one behind its button.
#pragma once

#include "analyses/class_options.h"
#include "core/intake.h"

namespace quorval::reference {

// --- The nonparametric dialog

inline constexpr std::string_view kPercentileGroup = "Nonparametric Percentile Estimation:";
inline constexpr Choice kPercentileRules[] = {
    {"simple-n-half", "Percentiles as (2.5/100)N+0.5 and (97.5/100)N+0.5", "Simple:"},
    {"simple-n-plus-1", "Percentiles as (2.5/100)(N+1) and (97.5/100)(N+1)"},
    {"bootstrap-n-half", "Bootstrap percentiles as (2.5/100)N+0.5 and (97.5/100)N+0.5",
     "Bootstrap:"},
    {"bootstrap-n-plus-1", "Bootstrap percentiles as (2.5/100)(N+1) and (97.5/100)(N+1)"},
};
inline constexpr Field kPercentileRule{.key = "percentile-rule",
                                       .kind = FieldKind::kChoice,
                                       .group = kPercentileGroup,
                                       .initial = "simple-n-half",
                                       .choices = kPercentileRules};
inline constexpr Field kReplications{.key = "replications",
                                     .group = kPercentileGroup,
                                     .caption = "No. of bootstrap replications",
                                     .initial = "200"};

inline constexpr Field kNonparametricFields[] = {kPercentileRule, kReplications};

constexpr Dialog frmRefNonparametricOptions{
    .window = "frmRefNonparametricOptions",
    .title = "Nonparametric Reference Interval Options",
    .fields = kNonparametricFields,
};
static_assert(WellFormed(frmRefNonparametricOptions));

// --- The dialog

inline constexpr std::string_view kColumnGroup = "Select Column No.:";
inline constexpr Field kColumn = Captioned(InGroup(WithInitial(Text1, "2"), kColumnGroup), "x:");
inline constexpr Field kIdColumn = Captioned(InGroup(Text2, kColumnGroup), "ID: (Optional)");

inline constexpr std::string_view kProcedureGroup = "Procedure:";
inline constexpr Choice kProcedures[] = {
    {"nonparametric", "Nonparametric"},
    {"direct", "Parametric Direct"},
    {"log", "Parametric Log-transformed"},
    {"power", "Parametric Power-transformed"},
    {"exponential", "Parametric Exponential-transf."},
    {"power-modulus", "Two-stage Power-Modulus"},
    {"exponential-modulus", "Two-stage Exponential-Modulus"},
};
inline constexpr Field kProcedure{.key = "procedure",
                                  .kind = FieldKind::kChoice,
                                  .group = kProcedureGroup,
                                  .initial = "nonparametric",
                                  .choices = kProcedures};

// The number of SDs from the mean beyond which a value is reported as an outlier.
inline constexpr Field kOutlierLimit{
    .key = "outlier-limit", .group = "Outlier detection limit (SD)", .initial = "4"};

inline constexpr Field kClasses = ClassChoiceField("classes", "No. of class divisions in plots:");
inline constexpr Field kClassCount = ClassCountField("class-count", kClasses);
inline constexpr Field kShowGaussian{.key = "show-gaussian",
                                     .kind = FieldKind::kCheck,
                                     .caption = "Show gaussian distribution where relevant",
                                     .initial = "on"};

inline constexpr std::string_view kLimitsGroup = "Reference interval limits (percentiles):";
constexpr Field LimitsNote(std::string_view text) {
  return {.kind = FieldKind::kNote, .group = kLimitsGroup, .caption = text};
}

inline constexpr Field kFields[] = {
    kColumn,
    kIdColumn,
    kProcedure,
    {.kind = FieldKind::kButton,
     .group = kProcedureGroup,
     .caption = "Options",
     .enabled = {{{"procedure", "nonparametric"}}},
     .opens = &frmRefNonparametricOptions},
    LimitsNote("Lower: 2.5"),
    LimitsNote("Upper: 97.5"),
    LimitsNote("Confidence interval widths: 90%"),
    kOutlierLimit,
    kClasses,
    kClassCount,
    kShowGaussian,
};

constexpr Dialog frmRefOptions{
    .window = "frmRefOptions",
    .title = "Quorval Reference Interval ",
    .fields = kFields,
};
static_assert(WellFormed(frmRefOptions));

}  // namespace quorval::reference
