#include "analyses/diagnostic/cut_off.h"

#include <algorithm>
#include <limits>

#include "analyses/class_options.h"
#include "analyses/colours.h"
#include "analyses/diagnostic/cut_off_sweep.h"
#include "core/failure.h"
#include "stats/percentile.h"
#include "stats/significance.h"

namespace quorval::diagnostic {
namespace {

constexpr std::string_view kRoutine = "Error in Specificity/Sensitivity routine";

// --- Input

enum class CutOffBy { kValue, kPercentile, kMaxSum, kMaxCorrect };

struct CutOffInput {
  DiagnosticGroups groups;
  CutOffBy by;
  Single given{};  // the value, or the percentile of the first sample
  ClassOptions classes;
};

CutOffInput ReadCutOff(Run& run) {
  CutOffInput input{.groups = TakeGroups(run),
                    .by = CutOffBy::kMaxCorrect,
                    .classes = {run.form, kClasses, kClassCount}};
  const auto take = [&](const Field& field) {
    input.given = Insist(run.messages, kRoutine, [&] { return run.form.TextAsNumber32(field); });
  };
  if (run.form.Is(kCutOffBy, "value")) {
    input.by = CutOffBy::kValue;
    take(kCutOffValue);
  } else if (run.form.Is(kCutOffBy, "percentile")) {
    input.by = CutOffBy::kPercentile;
    take(kCutOffPercentile);
  } else if (run.form.Is(kCutOffBy, "max-sum")) {
    input.by = CutOffBy::kMaxSum;
  }
  return input;
}

// --- Computation

struct Proportion {
  Real p, se;
  Range limits;
};

struct CutOffResult {
  Single CutOff;
  Proportion specificity, sensitivity;
};

Single PercentileCutOff(Messages& messages, const DiagnosticGroups& groups, Real p) {
  const Real t = p / 100 * groups.N1() + 0.5;
  if (t < 1 || t > groups.N1()) {
    messages.Tell(
        "Specified percentile as cut-off could not be computed because too extreme in relation to "
        "sample size");
    throw Failure{};
  }
  return Single(AtPosition(groups.FirstSample, t));
}

Single ChooseCutOff(Messages& messages, const CutOffInput& input) {
  const auto sweep = [&] {
    return SweepCutOffs(input.groups.FirstSample, input.groups.SecondSample);
  };
  switch (input.by) {
    case CutOffBy::kValue:
      return input.given;
    case CutOffBy::kPercentile:
      return PercentileCutOff(messages, input.groups, input.given);
    case CutOffBy::kMaxSum:
      return Insist(messages, "Error in Cut-off sub", [&] { return CutOffOfMaxSum(sweep()); });
    case CutOffBy::kMaxCorrect:
      break;
  }
  return Insist(messages, "Error in Cut-off sub for max no of classifications",
                [&] { return CutOffOfMaxCorrect(sweep()); });
}

Proportion ProportionOf(std::ptrdiff_t correct, Real N) {
  Proportion proportion;
  proportion.p = correct / N;
  proportion.se = Sqrt(proportion.p * (1 - proportion.p) / N);
  const Real t = CriticalT05(1001);  // the Gaussian 1.96, whatever N
  proportion.limits = LimitsWithin({0, 1}, proportion.p, t * proportion.se);
  return proportion;
}

std::ptrdiff_t CountAtMost(const Sample& values, Real limit) {
  return std::ranges::count_if(values, [&](Real value) { return value <= limit; });
}

CutOffResult ComputeCutOff(Messages& messages, const CutOffInput& input) {
  return Insist(messages, kRoutine, [&]() -> CutOffResult {
    const DiagnosticGroups& groups = input.groups;
    const int N2 = groups.N2();
    const Single CutOff = ChooseCutOff(messages, input);
    return {.CutOff = CutOff,
            .specificity = ProportionOf(CountAtMost(groups.FirstSample, CutOff), groups.N1()),
            .sensitivity = ProportionOf(N2 - CountAtMost(groups.SecondSample, CutOff), N2)};
  });
}

// --- Report

std::string_view CutOffLabel(CutOffBy by) {
  switch (by) {
    case CutOffBy::kValue:
      return "(User-selected cut-off)";
    case CutOffBy::kPercentile:
      return "(User-specified percentile as cut-off)";
    case CutOffBy::kMaxSum:
      return "(Cut-off corresponding to max Spec+Sens)";
    case CutOffBy::kMaxCorrect:
      break;
  }
  return "(Cut-off corr. to max no classifications)";
}

void WriteProportion(ResultsSheet& sheet, int row, const ProportionRows& rows,
                     const Proportion& proportion) {
  sheet.Row(row, rows.estimate(proportion.p), rows.se(proportion.se));
  sheet.Row(row + 1, rows.lower(proportion.limits.min), rows.upper(proportion.limits.max));
}

void ReportCutOff(Messages& messages, ResultsSheet& sheet, const CutOffInput& input,
                  const CutOffResult& result) {
  Insist(messages, kRoutine, [&] {
    sheet.Row(2, Bold{" Specificity and sensitivity of diagnostic test"});
    sheet.Row(3, "  Project:", sheet.ProjectName());
    sheet.Row(4, "  Analyst: ", Blank{}, "  Date: ");
    sheet.Row(6, kFirstColumn(input.groups.FirstCol));
    sheet.Row(9, kSecondColumn(input.groups.SecondCol));
    WriteNamesAndSizes(sheet, input.groups, "  ");
    sheet.Row(12, kCutOff(Real(result.CutOff)));
    sheet.Row(13, CutOffLabel(input.by));
    WriteProportion(sheet, 14, kSpecificity, result.specificity);
    WriteProportion(sheet, 16, kSensitivity, result.sensitivity);
  });
}

// --- Plots

// Classes of a width that is given; the last may reach beyond the largest value.
HistogramClasses ClassesOfWidth(Real h, const Range& range) {
  const Real k = -Int(-(range.max - range.min) / h);
  if (k > std::numeric_limits<std::int16_t>::max()) Raise(Fault::Kind::kOverflow);
  return {range.min, h, std::max(static_cast<int>(Raw(k)), 1)};
}

Series FrequencyBars(const HistogramClasses& classes, const Sample& values, Colour colour) {
  Series bars = Bars(classes, CountInClasses(classes, values), values.size());
  bars.colour = colour;
  return bars;
}

Real HighestOf(const Plot& plot) {
  Real highest;
  for (const Series& series : plot.series)
    for (const Point& point : series.points) highest = std::max(highest, point.y);
  return highest;
}

// Histograms of the relative frequencies of both groups in classes of the same width, and the
// cut-off as a dotted line.
void DrawGroups(Messages& messages, Plots& plots, const CutOffInput& input,
                const CutOffResult& result) {
  Insist(messages, "Error in plot Roc-curve routine", [&] {
    const DiagnosticGroups& groups = input.groups;
    Plot& plot = AddPlot(plots, kGroupsPlot[0]);
    plot.label = "Blue: non-diseased, red: diseased, dotted: cut-off";
    const Description first = DescribeSample(messages, groups.FirstSample);
    const HistogramClasses classes = input.classes.Of(first, groups.N1());
    plot.Add(FrequencyBars(classes, groups.FirstSample, kBlue));
    plot.Add(FrequencyBars(ClassesOfWidth(classes.h, RangeOf(groups.SecondSample)),
                           groups.SecondSample, kRed));
    plot.AddLine({{result.CutOff, 0}, {result.CutOff, HighestOf(plot)}}, Pattern::kDotted);
  });
}

}  // namespace

void EvaluateCutOff(Run& run) { Steps<ReadCutOff, ComputeCutOff, ReportCutOff, DrawGroups>(run); }

}  // namespace quorval::diagnostic
