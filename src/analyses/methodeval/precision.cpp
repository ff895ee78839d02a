// Imprecision of one sample: within a run (precision_single_run.cpp), or within and between runs
// (precision_several_runs.cpp).
#include "analyses/methodeval/precision.h"

#include "analyses/registry.h"

namespace quorval::methodeval {
namespace precision {
namespace {

constexpr Field kRunsNote{.kind = FieldKind::kNote,
                          .group = kSeveralGroup,
                          .caption = "(Each data column corresponds to one run)",
                          .enabled = {kSeveral}};

constexpr Field kFields[] = {kMode,       kColumn,   kOutlierLimit,        kStartColumn,
                             kLastColumn, kRunsNote, kSeveralOutlierLimit, kShowMeans};

constexpr Rule kRules[] = {
    DemandsOf(kColumn, kStartColumn, kLastColumn),
    DemandsOf(kOutlierLimit, kSeveralOutlierLimit),
};

constexpr Dialog frmMethPrecisionOpt{
    .window = "frmMethPrecisionOpt",
    .title = "Quorval     Precision Options   ",
    .heading = "Options for Precision  Determination",
    .fields = kFields,
    .rules = kRules,
};
static_assert(WellFormed(frmMethPrecisionOpt));

constexpr PlotWindow kPictures[] = {
    {.window = kValuesWindow, .caption = {}, .bitmap = " Chart2D1.bmp", .height = 250},
    {.window = kMeansWindow, .caption = {}, .bitmap = " Chart2D1M.bmp", .height = 250},
};
constexpr PlotJob kPlotJobs[] = {{.pictures = kPictures}};

constexpr Procedure ProcedureOf(When mode, void (*run)(Run&)) {
  return {
      .when = mode,
      .window = "frmMethPrecision",
      .title = "Determination of Precision",
      .menu = MenuWith("&Select Options for Precision Evaluation"),
      .print_header = "/cPrecision Results/rPage #/p/n",
      .plot_jobs = kPlotJobs,
      .failure = {.fault = "Error occurred in Precision analysis",
                  .aftermath = Aftermath::kWindowCloses},
      .run = run,
  };
}

constexpr Procedure kProcedures[] = {
    ProcedureOf(kSingle, RunSingle),
    ProcedureOf(kSeveral, RunSeveral),
};

}  // namespace
}  // namespace precision

constinit const Analysis kPrecision{
    .id = "precision",
    .dialog = &precision::frmMethPrecisionOpt,
    .procedures = precision::kProcedures,
    .manual = "precision.md",
};

}  // namespace quorval::methodeval
