#include "analyses/reference/options.h"

namespace quorval::reference {
namespace {

constexpr Field kNonparametricFields[] = {kPercentileRule, kReplications};

constexpr std::string_view kLimitsGroup = "Reference interval limits (percentiles):";
constexpr Field Note(std::string_view text) {
  return {.kind = FieldKind::kNote, .group = kLimitsGroup, .caption = text};
}

constexpr Field kFields[] = {
    kColumn,
    kIdColumn,
    kProcedure,
    {.kind = FieldKind::kButton,
     .group = kProcedureGroup,
     .caption = "Options",
     .enabled = {{{"procedure", "nonparametric"}}},
     .opens = &frmRefNonparametricOptions},
    Note("Lower: 2.5"),
    Note("Upper: 97.5"),
    Note("Confidence interval widths: 90%"),
    kOutlierLimit,
    kClasses,
    kClassCount,
    kShowGaussian,
};

}  // namespace

constexpr Dialog frmRefNonparametricOptions{
    .window = "frmRefNonparametricOptions",
    .title = "Nonparametric Reference Interval Options",
    .fields = kNonparametricFields,
};
static_assert(WellFormed(frmRefNonparametricOptions));

constexpr Dialog frmRefOptions{
    .window = "frmRefOptions",
    .title = "Quorval Reference Interval ",
    .fields = kFields,
};
static_assert(WellFormed(frmRefOptions));

}  // namespace quorval::reference
