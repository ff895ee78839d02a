// The central 95 % interval of a population, from one column of reference values: both limits with
// their 90 % confidence intervals.
//
// The nonparametric procedure takes percentiles of the sorted values, or of their resamples.  The
// parametric ones take mean -/+ 1.96 SD, of the values themselves or of a transform that makes them
// look Gaussian, and carry the result back; they report outliers and remove none.  Everything is
// computed before the sheet is written.
#include "analyses/reference/reference_interval.h"

#include <algorithm>
#include <array>

#include "analyses/distribution_plots.h"
#include "analyses/reference/options.h"
#include "analyses/reference/procedures.h"
#include "analyses/reference/sheet_blocks.h"
#include "analyses/registry.h"
#include "core/failure.h"
#include "core/steps.h"
#include "stats/gaussian.h"
#include "stats/percentile.h"

namespace quorval::reference {
namespace {

// --- Input

struct ReferenceInput {
  Sample RefValues;         // 32-bit values, ascending; at least 20, not all equal
  std::string AnalyteName;  // the title of their column
  ClassOptions classes;     // of the histograms

  Real N() const { return RefValues.size(); }
};

// A column number that the intake refuses ends the run with the intake's box alone.
Column TakeColumn(Run& run) {
  try {
    return ReadColumnWithId(run);
  } catch (const Failure&) {
    throw Refusal{};
  }
}

ReferenceInput TakeValues(Run& run) {
  const Column column = TakeColumn(run);
  Sample values = column.Numbers32(run.notices);
  if (values.size() < 20) run.Refuse(" N < 20: No data analysis! ");
  ReferenceInput input{SortAscending(std::move(values)), column.header,
                       ClassOptions{run.form, kClasses, kClassCount}};
  if (input.RefValues.front() == input.RefValues.back())
    run.Refuse("No dispersion of reference values");
  return input;
}

struct NonparametricInput : ReferenceInput {
  const NonparametricProcedure& procedure;
  int R;  // replications of a bootstrap
};

int TakeReplications(Run& run) {
  const int R = Insist(run.messages, "Error", [&] { return run.form.TextAsInt16(kReplications); });
  if (R < 5) Fail(run.messages, "No. of bootstrap replications < 5: No analysis!");
  return R;
}

NonparametricInput ReadNonparametric(Run& run) {
  ReferenceInput values = TakeValues(run);
  const NonparametricProcedure& procedure = *std::ranges::find(
      kNonparametricProcedures, run.form.Text(kPercentileRule), &NonparametricProcedure::word);
  return {std::move(values), procedure, procedure.bootstrap ? TakeReplications(run) : 0};
}

struct ParametricInput : ReferenceInput {
  const ParametricProcedure& procedure;
  Single outlier_limit;  // in SDs
  bool show_gaussian;
};

ParametricInput ReadParametric(Run& run) {
  const Form& form = run.form;
  ReferenceInput values = TakeValues(run);
  const ParametricProcedure& procedure =
      *std::ranges::find(kParametricProcedures, form.Text(kProcedure), &ParametricProcedure::word);
  Single limit;
  if (form.HoldsNumber(kOutlierLimit)) limit = form.TextAsNumber32(kOutlierLimit);
  if (limit <= 0) run.Refuse("Outlier detection limit should be a positive number of SD´s");
  if (procedure.needs_positive && values.RefValues.front() <= 0)
    run.Refuse("Transformation not possible on non-positive numbers!");
  return {std::move(values), procedure, limit, form.On(kShowGaussian)};
}

// --- Computation

void CheckPositions(Messages& messages, Notices& notices, const NonparametricProcedure& procedure,
                    const PercentilePositions& at, std::size_t n) {
  const auto fail = [&](std::string_view words) {
    if (!procedure.bootstrap) Fail(messages, words);
    Note(notices, {"arithmetic", Counted(n, "value") + " are too few for the 2.5th and 97.5th "
                                                       "percentile by this rule"});
    Fail(messages, "Error");
  };
  const Real N = n;
  if (at.lower < 1 || at.lower > N - procedure.lower_margin)
    fail("The desired lower percentile is too extreme in relation to sample size!");
  if (at.upper > N || at.upper < 1)
    fail("The desired upper percentile is too extreme in relation to sample size!");
}

NonparametricEstimate ComputeNonparametric(Messages& messages, Notices& notices,
                                           const NonparametricInput& input) {
  const PercentilePositions at = input.procedure.positions(input.N());
  CheckPositions(messages, notices, input.procedure, at, input.RefValues.size());
  return input.procedure.bootstrap ? EstimateByBootstrap(input.RefValues, at, input.R)
                                   : EstimateSimple(input.RefValues, at);
}

ParametricEstimate ComputeParametric(Messages& messages, const ParametricInput& input) {
  return Insist(messages, input.procedure.fault, [&] {
    WorkingVariable variable = input.procedure.transform(messages, input.RefValues);
    return EstimateParametric(messages, std::move(variable), input.outlier_limit);
  });
}

// --- Report

// Row 5 has one of two labels, and row 7 the name of the procedure.
template <class Input>
void ReportHead(ResultsSheet& sheet, const Input& input) {
  WriteHead(sheet, input.procedure.title, input.procedure.analyte_label, input.AnalyteName,
            input.RefValues);
}

void ReportNonparametric(ResultsSheet& sheet, const NonparametricInput& input,
                         const NonparametricEstimate& estimate) {
  ReportHead(sheet, input);
  sheet.Row(8, input.procedure.rule);
  sheet.Row(11, quantity::kMedian(estimate.median));
  sheet.Row(12, "  Nonparametric reference interval estimates: ");
  WriteInterval(sheet, 13, estimate.interval);
}

// Rows 15 to 31.
void WriteParametric(ResultsSheet& sheet, const ParametricInput& input,
                     const ParametricEstimate& estimate, std::string_view normality) {
  WriteInterval(sheet, 15, estimate.interval);
  sheet.Row(19, normality);
  sheet.Row(20, quantity::kNormalityP(estimate.NormalityP));
  WriteOutliers(sheet, kOutliers, input.outlier_limit, estimate.outliers, input.RefValues);
}

constexpr Quantity kMean = Captioned(quantity::kMean, "  Mean and SD: ");
constexpr Quantity kSD = Captioned(quantity::kSd, "  Mean and SD: ");
constexpr Quantity kSkewness = Captioned(quantity::kSkewness, "  Coeff. of skewness: ");
constexpr Quantity kKurtosis = Captioned(quantity::kKurtosis, "  Coeff. of kurtosis: ");

void ReportDirect(Messages& messages, ResultsSheet& sheet, const ParametricInput& input,
                  const ParametricEstimate& estimate) {
  Insist(messages, input.procedure.fault, [&] {
    ReportHead(sheet, input);
    sheet.Row(8, "  Percentiles as mean+/-1.96(1/(1-1/(4(n-1)))) SD");
    sheet.Row(11, kMean(estimate.described.mean), kSD(estimate.described.sd));
    sheet.Row(12, kSkewness(estimate.skewness));
    sheet.Row(13, kKurtosis(estimate.kurtosis));
    sheet.Row(14, "  Parametric reference interval estimates: ");
    WriteParametric(sheet, input, estimate, "  Result of Normality test  (Anderson-Darling): ");
  });
}

constexpr Quantity kGeometricMean{"geometric_mean", "  Geometric mean: ", Unit::kMeasurand};
constexpr Quantity kSymmetryConstant{"symmetry_constant", "  Transformation constant: "};
constexpr Quantity kModulusExponent{"modulus_exponent", "  Modulus exponent: "};
constexpr Quantity kTransformedMin{"transformed.min", "  Total range "};
constexpr Quantity kTransformedMax{"transformed.max", "  Total range "};
constexpr Quantity kTransformedMean{"transformed.mean", "  Mean of transformed values: "};
constexpr Quantity kTransformedSD{"transformed.sd", "  SD of transformed values: "};
constexpr Quantity kTransformedSkewness{"transformed.skewness",
                                        "  Skewness of transformed values: "};
constexpr Quantity kTransformedKurtosis{"transformed.kurtosis",
                                        "  Kurtosis of transformed values: "};

void WriteConstants(ResultsSheet& sheet, const ParametricProcedure& procedure,
                    const ParametricEstimate& estimate) {
  const auto& [TransformedValues, inverse, SymmetryConstant, ModulusExponent] = estimate.variable;
  if (SymmetryConstant)
    sheet.Row(11, procedure.row11, kSymmetryConstant(*SymmetryConstant));
  else
    sheet.Row(11, procedure.row11, kGeometricMean(Exp(estimate.described.mean)));
  if (ModulusExponent) sheet.Row(12, kModulusExponent(*ModulusExponent));
}

void ReportTransformed(Messages& messages, ResultsSheet& sheet, const ParametricInput& input,
                       const ParametricEstimate& estimate) {
  const auto& procedure = input.procedure;
  const auto about = [](std::string_view before, std::string_view name, std::string_view after) {
    return std::string(before).append(name).append(after);
  };
  Insist(messages, procedure.fault, [&] {
    ReportHead(sheet, input);
    WriteConstants(sheet, procedure, estimate);
    WriteParametric(
        sheet, input, estimate,
        about("  Result of Normality test on ", procedure.name, " values (Anderson-Darling): "));
    sheet.Row(32, about("  Display of measures on ", procedure.name, " data "));
    const auto& y = estimate.described;
    const std::string_view values = procedure.values, hyphened = procedure.hyphened_values;
    sheet.Row(33, kTransformedMin(y.min), kTransformedMax(y.max));
    sheet.Row(34, about("  Mean of ", values, ": "), kTransformedMean(y.mean));
    sheet.Row(35, about("  SD of ", hyphened, ": "), kTransformedSD(y.sd));
    sheet.Row(36, about("  Skewness of ", hyphened, ": "), kTransformedSkewness(estimate.skewness));
    sheet.Row(37, about("  Kurtosis of ", hyphened, ": "), kTransformedKurtosis(estimate.kurtosis));
    WriteOutliers(sheet, kTransformedOutliers, input.outlier_limit, estimate.outliers,
                  ToReals(ToSingles(estimate.variable.TransformedValues)));
  });
}

constexpr auto kQuantities =
    Joined(kHeadQuantities,
           std::array{quantity::kMedian, kMean, kSD, kSkewness, kKurtosis, kGeometricMean,
                      kSymmetryConstant, kModulusExponent},
           kIntervalQuantities, std::array{quantity::kNormalityP}, kOutliers.All(),
           std::array{kTransformedMin, kTransformedMax, kTransformedMean, kTransformedSD,
                      kTransformedSkewness, kTransformedKurtosis},
           kTransformedOutliers.All());
constexpr NamedTable kTables[] = {kOutliers.values, kTransformedOutliers.values};

// --- Plots

constexpr PlotWindow kPlots[] = {{.window = "frmRefHisto",
                                  .caption = "Histogram of reference values",
                                  .x_title = "Reference value",
                                  .y_title = kRelativeFrequency,
                                  .bitmap = " Chart2D1.bmp",
                                  .height = 250},
                                 {.window = "frmRefCum",
                                  .caption = "Cumulative distribution of reference values",
                                  .x_title = "Reference value",
                                  .y_title = kCumulativeFrequency,
                                  .bitmap = " Chart2D1Cum.bmp",
                                  .height = 250},
                                 {.window = "frmRefHistoTrans",
                                  .caption = "Histogram of transformed reference values",
                                  .x_title = "Transformed reference value",
                                  .y_title = kRelativeFrequency,
                                  .bitmap = " Chart2D1Trans.bmp",
                                  .height = 250},
                                 {.window = "frmRefCumTrans",
                                  .caption = "Cumulative distribution of transformed reference "
                                             "values",
                                  .x_title = "Transformed reference value",
                                  .y_title = kCumulativeFrequency,
                                  .bitmap = " Chart2D1CumTrans.bmp",
                                  .height = 250}};
constexpr const PlotWindow &kHistogram = kPlots[0], &kCumulative = kPlots[1],
                           &kTransformedHistogram = kPlots[2], &kTransformedCumulative = kPlots[3];
constexpr PlotJob kPlotJobs[] = {{.pictures = std::span(kPlots).first(2)},
                                 {.pictures = std::span(kPlots).last(2)}};

// Of the values as they are; drawn first and shown last, above the others.
void DrawHistogram(Messages& messages, Plots& plots, const ReferenceInput& input,
                   bool with_gaussian) {
  Plot& plot = AddPlot(plots, kHistogram);
  const Description described = DescribeSample(messages, input.RefValues);
  HistogramClasses classes{};
  Insist(messages, kHistogramFault, [&] {
    classes = input.classes.Of(described, input.N());
    AddBars(plot, classes, input.RefValues, input.N());
  });
  if (!with_gaussian) return;
  Insist(messages, kGaussianHistogramFault,
         [&] { plot.AddLine(DensityCurve(described, classes.h)); });
}

void ShowFirstLast(Plots& plots) { std::rotate(plots.begin(), plots.begin() + 1, plots.end()); }

void DrawNonparametric(Messages& messages, Plots& plots, const NonparametricInput& input,
                       const NonparametricEstimate&) {
  DrawHistogram(messages, plots, input, false);
}

// The window of the cumulative plot comes even where the Gaussian curve is not asked for.
void DrawDirect(Messages& messages, Plots& plots, const ParametricInput& input,
                const ParametricEstimate&) {
  DrawHistogram(messages, plots, input, input.show_gaussian);
  Plot& cumulative = AddPlot(plots, kCumulative);
  if (input.show_gaussian)
    Insist(messages, kCumulativeFault,
           [&] { AddCumulative(messages, cumulative, input.RefValues); });
  ShowFirstLast(plots);
}

void DrawTransformed(Messages& messages, Plots& plots, const ParametricInput& input,
                     const ParametricEstimate& estimate) {
  DrawHistogram(messages, plots, input, false);
  const Sample& y = estimate.variable.TransformedValues;
  Insist(messages, kGaussianHistogramFault, [&] {
    Plot& plot = AddPlot(plots, kTransformedHistogram);
    const HistogramClasses classes = input.classes.Of(estimate.described, y.size());
    AddBars(plot, classes, y, y.size());
    plot.AddLine(DensityCurve(estimate.described, classes.h));
  });
  Insist(messages, "Error in cumulated display of transformed values",
         [&] { AddCumulative(messages, AddPlot(plots, kTransformedCumulative), y); });
  ShowFirstLast(plots);
}

// --- The analysis

constexpr Procedure ProcedureOf(When when, void (*run)(Run&)) {
  return {
      .when = when,
      .window = "frmRefResults",
      .title = "Quorval      Reference Interval",
      .menu = {.save = "&Save As"},
      .print_header = "/cReference Interval/rPage #/p/n",
      .plot_jobs = kPlotJobs,
      .plot_windows = kPlots,
      .failure = {.fault = "Error", .second = "Error", .aftermath = Aftermath::kWindowNotShown},
      .run = run,
  };
}
constexpr Procedure frmRefResults[] = {
    ProcedureOf(
        {kProcedure.key, "nonparametric"},
        Steps<ReadNonparametric, ComputeNonparametric, ReportNonparametric, DrawNonparametric>),
    ProcedureOf({kProcedure.key, "direct"},
                Steps<ReadParametric, ComputeParametric, ReportDirect, DrawDirect>),
    ProcedureOf({}, Steps<ReadParametric, ComputeParametric, ReportTransformed, DrawTransformed>),
};

}  // namespace

constinit const Analysis kReference{
    .id = "reference",
    .dialog = &frmRefOptions,
    .procedures = frmRefResults,
    .quantities = kQuantities,
    .tables = kTables,
    .manual = "reference-interval.md",
};

}  // namespace quorval::reference
