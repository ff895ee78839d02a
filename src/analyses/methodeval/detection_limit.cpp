// The smallest amounts that a method can tell from none, and can quantify: as multiples of an SD
// (detection_limit_by_sd.cpp), or with both types of error specified (limit_of_detection.cpp).
#include "analyses/methodeval/detection_limit.h"

#include "analyses/registry.h"

namespace quorval::methodeval {
namespace detection {
namespace {

// --- Options

constexpr Field Note(std::string_view group, std::string_view text) {
  return {.kind = FieldKind::kNote, .group = group, .caption = text, .enabled = {kByEp17}};
}

constexpr Field kFields[] = {
    kProcedure,
    kDl,
    kDlColumn,
    kDlSds,
    kLoq,
    kLoqColumn,
    kLoqSds,
    kBlankColumn,
    kAlpha,
    kStartColumn,
    kLastColumn,
    Note("Low sample values:",
         "Measurements from each sample in separate adjacent columns; Minimum one sample. Minimum "
         "two measurements of each sample."),
    Note("Low sample values:", "The pooled SD of the low sample measurements is computed."),
    kBeta,
    Note({},
         "This procedure estimates the (1-alpha percentile (default 95) of the blanks using a "
         "nonparametric principle. This is the Limit of Blank (LoB). The pooled SD estimate of "
         "measurements of several samples with a low amount of analyte is estimated. The Limit of "
         "Detection (LoD) is obtained:                           LoD = LoB + 1.65 SD (given beta = "
         "5%; a correction for degrees of freedom is performed by the program).  For further "
         "details, see Ref. 27 in Help or the Reference Manual."),
    kOutlierLimit,
};

bool AsksForNeither(const Form& form) {
  return form.Holds(kBySd) && !form.On(kDl) && !form.On(kLoq);
}

constexpr Rule kRules[] = {
    {.broken = AsksForNeither, .refusal = kDlRefused},
    Filled(kDlColumn),
    Filled(kLoqColumn),
    Filled(kBlankColumn),
    Filled(kStartColumn),
    Filled(kLastColumn),
    DemandsOf(kDlColumn, kLoqColumn, kBlankColumn, kStartColumn, kLastColumn),
    DemandsOf(kOutlierLimit),
};

constexpr Dialog frmMethDetLimOpt{
    .window = "frmMethDetLimOpt",
    .title = "Quorval     Detection Limit(DL)/LOQ Options   ",
    .heading = "Options for Detection Limit (DL)/LOQ Determination",
    .fields = kFields,
    .rules = kRules,
};
static_assert(WellFormed(frmMethDetLimOpt));

// --- Windows

constexpr FileMenu kMenu = MenuWith("Select &Options for Det. Limit/ LOQ");
constexpr std::string_view kPrintHeader = "/cDetection Limit/rPage #/p/n";
constexpr FailurePolicy kFailure{.fault = "Error occurred in DL/LOQ analysis",
                                 .aftermath = Aftermath::kWindowCloses};

constexpr PlotWindow kBySdPictures[] = {
    {.window = kDlPlot, .caption = {}, .bitmap = " Chart2D1.bmp", .height = 250},
    {.window = kLoqPlot, .caption = {}, .bitmap = " Chart2D1Res.bmp", .height = 250},
};
constexpr PlotJob kBySdJobs[] = {{.pictures = kBySdPictures}};
constexpr PlotWindow kByEp17Pictures[] = {
    {.window = kDotPlot, .caption = {}, .bitmap = " Chart2D1.bmp", .height = 350}};
constexpr PlotJob kByEp17Jobs[] = {{.pictures = kByEp17Pictures}};

constexpr Procedure kProcedures[] = {
    {.when = kBySd,
     .window = "frmMethDetLim",
     .title = "Determination of Detection Limit (DL) and/or LOQ",
     .menu = kMenu,
     .print_header = kPrintHeader,
     .plot_jobs = kBySdJobs,
     .failure = kFailure,
     .run = RunBySd},
    {.when = kByEp17,
     .window = "frmMethDetLim17",
     .title = "Determination of Limit of Detection (LoD) with type I and II errors specified",
     .menu = kMenu,
     .print_header = kPrintHeader,
     .plot_jobs = kByEp17Jobs,
     .failure = kFailure,
     .run = RunByEp17},
};

}  // namespace
}  // namespace detection

constinit const Analysis kDetectionLimit{
    .id = "detection-limit",
    .dialog = &detection::frmMethDetLimOpt,
    .procedures = detection::kProcedures,
    .manual = "detection-limit.md",
};

}  // namespace quorval::methodeval
