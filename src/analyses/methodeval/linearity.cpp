// Linearity within a method, from a dilution series measured with replicates: the lack-of-fit test
// of a straight line (linearity_lack_of_fit.cpp), or its deviation from a polynomial
// (linearity_polynomial.cpp).
#include "analyses/methodeval/linearity.h"

#include "analyses/registry.h"

namespace quorval::methodeval {
namespace linearity {
namespace {

// --- Options

constexpr Field Note(std::string_view text) { return {.kind = FieldKind::kNote, .caption = text}; }

constexpr Field kFields[] = {
    kStartColumn,
    kLastColumn,
    Note("x values should be in ascending order from start to last column"),
    Note("Notice:For a given column, the x value (dilution value) constitutes the first numeric "
         "variable value  (row 1). The y values constitute the following consecutive series of row "
         "values (see demo example). "),
    kOutlierLimit,
    kProcedure,
    kExponent,
    kTruncation,
    kDegree,
    kGoal,
    kPercentGoal,
    kAbsoluteGoal,
    Note("Linearity evaluation presupposes at least two y measurements at the x levels (dilution "
         "levels)."),
};

constexpr Rule kRules[] = {
    DemandsOf(kStartColumn, kLastColumn),
    DemandsOf(kOutlierLimit),
};

constexpr Dialog frmMethLinearityOpt{
    .window = "frmMethLinearityOpt",
    .title = "Quorval     Linearity Options   ",
    .heading =
        "Options for Linearity Evaluation (Within-Method) on the basis of an F-test (Lack "
        "of fit principle)",
    .fields = kFields,
    .rules = kRules,
};
static_assert(WellFormed(frmMethLinearityOpt));

// --- Windows

constexpr std::string_view kPrintHeader = "/cLinearity Results/rPage #/p/n";
constexpr FailurePolicy kFailure{.fault = "Error occurred in Linearity analysis",
                                 .aftermath = Aftermath::kWindowCloses};

constexpr std::string_view kTitle = "Linearity Evaluation";

constexpr PlotWindow kLackOfFitPictures[] = {
    {.window = "frmMethLinPlot1", .caption = {}, .bitmap = " Chart2D1Plot1.bmp", .height = 200},
    {.window = "frmMethLinPlot2", .caption = {}, .bitmap = " Chart2D1Plot2.bmp", .height = 150},
    {.window = "frmMethLinPlot3", .caption = {}, .bitmap = " Chart2D1Plot3.bmp", .height = 150},
};
constexpr PlotJob kLackOfFitJobs[] = {{.pictures = kLackOfFitPictures}};
constexpr PlotWindow kPolynomialPictures[] = {
    {.window = "frmLinPolynPlot", .caption = {}, .bitmap = " Chart2D1.bmp", .height = 350},
    {.window = "frmLinPolynDifPlot", .caption = {}, .bitmap = " Chart2D1Res.bmp", .height = 150},
};
constexpr PlotJob kPolynomialJobs[] = {{.pictures = kPolynomialPictures}};

constexpr Procedure LackOfFitProcedure(When procedure) {
  return {
      .when = procedure,
      .window = "frmMethLinearity",
      .title = kTitle,
      .menu = MenuWith("&Select Options for Linearity Eval."),
      .print_header = kPrintHeader,
      .plot_jobs = kLackOfFitJobs,
      .offers_tutorial = true,
      .failure = kFailure,
      .run = RunLackOfFit,
  };
}

constexpr Procedure kProcedures[] = {
    LackOfFitProcedure(kOlr),
    LackOfFitProcedure(kWlr),
    {.when = kPolynomial,
     .window = "frmLinPolynReg",
     .title = kTitle,
     .menu = MenuWith("Select linearity &Options"),
     .print_header = kPrintHeader,
     .plot_jobs = kPolynomialJobs,
     .offers_tutorial = true,
     .failure = kFailure,
     .run = RunPolynomial},
};

}  // namespace
}  // namespace linearity

constinit const Analysis kLinearity{
    .id = "linearity",
    .dialog = &linearity::frmMethLinearityOpt,
    .procedures = linearity::kProcedures,
    .manual = "linearity.md",
};

}  // namespace quorval::methodeval
