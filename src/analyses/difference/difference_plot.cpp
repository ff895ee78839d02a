// Difference plots of two methods (Bland and Altman, Lancet 1986;1:307-310): the difference y - x
// of every sample against the mean of x and y, in absolute units and relative to the mean.
//
// The procedure of the single form reads in single.cpp, that of the duplicate form in
// duplicate.cpp.  Everything is computed before the sheet is written.
#include "analyses/difference/duplicate.h"
#include "analyses/difference/options.h"
#include "analyses/difference/plots.h"
#include "analyses/difference/single.h"
#include "analyses/registry.h"

namespace quorval::difference {
namespace {

constexpr std::string_view kPrintHeader = "/cDifference Plot/rPage #/p/n";
constexpr std::string_view kFault = "Error occurred in Difference Plot analysis";
constexpr PlotWindow kBothPlots[] = {
    {.window = kAbsoluteWindow, .caption = kAbsoluteCaption, .opens_empty = true},
    {.window = kRelativeWindow, .caption = kRelativeCaption, .opens_empty = true}};
constexpr PlotWindow kAbsolutePlot[] = {
    {.window = kAbsoluteWindow, .caption = kAbsoluteCaption, .opens_empty = true}};

constexpr FileMenu MenuWith(std::string_view back) {
  return {.back = back, .print = "&Print ", .save = "&Save As", .export_results = "E&xport"};
}

constexpr Procedure kProcedures[] = {
    {.when = kSingleMode,
     .window = "frmBAs",
     .title = "Difference Plots      Single (x, y) data set",
     .menu = MenuWith("&Select Options for Difference Plot"),
     .print_header = kPrintHeader,
     .plot_jobs = kPlotJobs,
     .plot_windows = kBothPlots,
     .failure = {.fault = kFault,
                 .second = kTooFewPairs,  // unequal columns count as none
                 .aftermath = Aftermath::kWindowCloses},
     .run = RunSingle},
    {.when = kDuplicateMode,
     .window = "frmBAd",
     .title = "Quorval   Difference Plot Section      Duplicate data (id, x1, x2, y1, y2) ",
     .menu = MenuWith("&Select options for difference plots"),
     .print_header = kPrintHeader,
     .plot_jobs = kPlotJobs,
     .plot_windows = kAbsolutePlot,  // a run without relative differences has no other
     .plot_button = {"Show X2-X1 and Y2-Y1 diff. plots", kAbsoluteWindow},
     .failure = {.fault = kFault, .aftermath = Aftermath::kWindowCloses},
     .run = RunDuplicate},
};

}  // namespace

constinit const Analysis kDifference{
    .id = "difference",
    .dialog = &frmBAOpt,
    .procedures = kProcedures,
    .manual = "difference-plot.md",
};

}  // namespace quorval::difference
