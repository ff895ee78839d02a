#include "analyses/diagnostic/options.h"

namespace quorval::diagnostic {
namespace {

constexpr Field kFields[] = {
    Captioned(InGroup(Text10, kColumnGroup), "First Sample: No.:"),
    Captioned(InGroup(Text11, kColumnGroup), "Second Sample: No.:"),
    Note(kColumnGroup,
         "The first sample is supposed to constitute the non-diseased group, and the second sample "
         "is the diseased group (high values)."),
    Note(kColumnGroup, kSizeNote),
    kEvaluation,
    kCutOffBy,
    kCutOffValue,
    kCutOffPercentile,
    kClasses,
    kClassCount,
    kAreaSE,
};

}  // namespace

constexpr Dialog frmDiaOptions{
    .window = "frmDiaOptions",
    .title = "Quorval Diagnostic test Evaluation ",
    .fields = kFields,
};
static_assert(WellFormed(frmDiaOptions));

}  // namespace quorval::diagnostic
