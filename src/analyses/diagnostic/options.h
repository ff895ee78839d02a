// The options of the evaluation of one diagnostic test: one dialog for the cut-off and the curve.
#pragma once

#include "analyses/class_options.h"
#include "analyses/diagnostic/diagnostic.h"

namespace quorval::diagnostic {

inline constexpr std::string_view kColumnGroup = "Select Data Columns:";
inline constexpr Choice kEvaluations[] = {
    {"cut-off", "Evaluation of specificity/sensitivity"},
    {"roc", "ROC Curve"},
};
inline constexpr Field kEvaluation{.key = "evaluation",
                                   .kind = FieldKind::kChoice,
                                   .group = kColumnGroup,
                                   .initial = "cut-off",
                                   .choices = kEvaluations};
inline constexpr When kByCutOff{kEvaluation.key, "cut-off"}, kByRoc{kEvaluation.key, "roc"};

inline constexpr std::string_view kCutOffGroup = "Cut off selection:";
inline constexpr Choice kCutOffRules[] = {
    {"value", "Cut off value:"},
    {"percentile", "Cut off as percentile of first sample:"},
    {"max-sum", "Cut off as optimal limit (max spec+sens)"},
    {"max-correct", "Cut-off as optimal limit (max no of correct classifications)"},
};
inline constexpr Field kCutOffBy{.key = "cut-off-by",
                                 .kind = FieldKind::kChoice,
                                 .group = kCutOffGroup,
                                 .initial = "percentile",
                                 .choices = kCutOffRules,
                                 .enabled = {kByCutOff}};
inline constexpr Field kCutOffValue{.key = "cut-off-value",
                                    .group = kCutOffGroup,
                                    .enabled = {kByCutOff},
                                    .beside = {kCutOffBy.key, "value"}};
inline constexpr Field kCutOffPercentile{.key = "cut-off-percentile",
                                         .group = kCutOffGroup,
                                         .initial = "90",
                                         .enabled = {kByCutOff},
                                         .beside = {kCutOffBy.key, "percentile"}};

inline constexpr std::string_view kClassGroup = "Class divisions in plot:";
inline constexpr Choice kClassRules[] = {{"default", "Default"}, {"user", "User-specified:"}};
inline constexpr Field kClasses{.key = "classes",
                                .kind = FieldKind::kChoice,
                                .group = kClassGroup,
                                .initial = "default",
                                .choices = kClassRules,
                                .enabled = {kByCutOff}};
inline constexpr Field kClassCount{
    .key = "class-count",
    .group = kClassGroup,
    .caption =
        "No. in non-diseased group: (the same class width is used for the non-diseased "
        "group)",
    .enabled = {kByCutOff}};

inline constexpr Field kAreaSE{
    .key = "area-se",
    .kind = FieldKind::kCheck,
    .caption = "SE of ROC Curve area (time-consuming resampling procedure)",
    .initial = "off",
    .enabled = {kByRoc}};

extern const Dialog frmDiaOptions;

inline constexpr Quantity kFirstColumn{
    "first.column", "  First sample (Non-diseased group, blue): Col: ", Unit::kNone, Width::kWhole};
inline constexpr Quantity kSecondColumn{
    "second.column", "  Second sample (Diseased group, red): Col: ", Unit::kNone, Width::kWhole};

// The two columns of the dialog, each in ascending order.
DiagnosticGroups TakeGroups(Run& run);

}  // namespace quorval::diagnostic
