// The difference plots with limits of agreement that the user sets, and the test of the proportion
// of pairs outside them.
#include "analyses/difference/difference_plot.h"
#include "analyses/difference/user_limits.h"
#include "core/steps.h"

namespace quorval::difference {
namespace {

// --- Input

struct UserLimitsInput : DifferenceInput {
  UserLimits limits;
};

UserLimitsInput ReadLimitsAndPairs(Run& run) {
  const Options options = ReadOptions(run.form);
  const UserLimits limits = ReadUserLimits(run.form);
  return {{options, TakePairs(run, options.scale)}, limits};
}

// --- Computation

struct UserLimitsResult {
  Real percent;     // the limit in percent, carried to the scale and back
  Real proportion;  // percent of the pairs
  // The upper limit along the pair means: two points of a straight line, or a curve; kind A has
  // none on the relative plot.
  Points absolute{}, relative{};
};

constexpr int kCurvePoints = 50;

// Fiftieths of the range beyond `start`, which is not among them.
template <class LimitAt>
Points Curve(const Range& range, Real start, LimitAt limit_at) {
  Points points;
  for (int k = 1; k <= kCurvePoints; ++k) {
    const Real X = start + k * (range.max - range.min) / kCurvePoints;
    points.push_back({X, limit_at(X)});
  }
  return points;
}

// A limit at every pair mean from the smallest to the largest.
Points Level(const Range& range, Real limit) { return {{range.min, limit}, {range.max, limit}}; }

// The curves of kind C run from 0 on, and a constant limit there has no relative value: a Fault.
UserLimitsResult ComputeUserLimits(Messages&, const UserLimitsInput& input) {
  const auto& limits = input.limits;
  const Scale& scale = input.options.scale;
  const PairedData& data = input.data;
  const Range& range = data.mean_range;
  const Real relative_limit = scale.FromPercent(limits.percent);
  const auto absolute_at = [&](Real X) -> Real {
    return limits.IsConstantAt(X) ? Real(limits.constant) : X * limits.percent / 100;
  };
  const auto relative_at = [&](Real X) {
    return limits.IsConstantAt(X) ? scale.Relative(limits.constant, X) : relative_limit;
  };

  UserLimitsResult result{.percent = scale.ToPercent(relative_limit),
                          .proportion = ProportionOutside(limits, relative_limit, data.mean,
                                                          data.difference, *data.relative)};
  switch (limits.kind) {
    case LimitKind::kConstant:
      result.absolute = Level(range, limits.constant);
      break;
    case LimitKind::kPercentage:
      result.absolute = Curve(range, range.min, absolute_at);
      result.relative = Level(range, relative_limit);
      break;
    case LimitKind::kConstantThenPercentage:
      result.absolute = Curve(range, 0, absolute_at);
      result.relative = Curve(range, 0, relative_at);
      break;
  }
  return result;
}

// --- Report

constexpr std::string_view kTitle = "  Results of Difference plots (single)";
constexpr std::string_view kTitleWithRows = "  Results of Difference plots (single)(row 1 - 80)";
constexpr std::string_view kLimitLabel = "  User set limits for differences (y-x)(+/-):";
constexpr std::string_view kShortPercentLabel = " User set percent limits: ";

// A row that not every case has: row 0 stands for none.
struct LabelledRow {
  int row = 0;
  std::string_view label{};
};

// Where the rows of one case stand below the head, and their labels.
struct Layout {
  std::string_view title;
  std::string_view limit_label;       // row 10: the constant limit, of kind B the percentage
  std::string_view division_label{};  // row 11, of kind C
  int relative_heading;
  LabelledRow percent{};
  LabelledRow proportion;
  int verdict;  // two rows
  ListingLayout listing;
};

constexpr Layout kAFraction{.title = kTitle,
                            .limit_label = kLimitLabel,
                            .relative_heading = 20,
                            .proportion = {11, kOutside.caption},
                            .verdict = 13,
                            .listing = {25, 26, 28}};
constexpr Layout kAPercent{.title = kTitleWithRows,
                           .limit_label = kLimitLabel,
                           .relative_heading = 20,
                           .proportion = {11, kOutside.caption},
                           .verdict = 13,
                           .listing = {25, 26, 28}};
constexpr Layout kBFraction{.title = kTitleWithRows,
                            .limit_label = kPercentLimitSet.caption,
                            .relative_heading = 12,
                            .percent = {16, kPercentLimit.caption},
                            .proportion = {17, "Proportion (%) differences outside the limits: "},
                            .verdict = 18,
                            .listing = {21, 22, 24}};
constexpr Layout kBPercent{.title = kTitleWithRows,
                           .limit_label = kLimitLabel,
                           .relative_heading = 12,
                           .percent = {16, kPercentLimit.caption},
                           .proportion = {17, "Proportion (%) differences outside the limits: "},
                           .verdict = 18,
                           .listing = {21, 22, 24}};
constexpr Layout kCFraction{.title = kTitle,
                            .limit_label = kConstantLimit.caption,
                            .division_label = " up to division point of:  ",
                            .relative_heading = 14,
                            .percent = {17, kShortPercentLabel},
                            .proportion = {18, kOutside.caption},
                            .verdict = 20,
                            .listing = {25, 26, 28}};
constexpr Layout kCPercent{.title = kTitle,
                           .limit_label = kConstantLimit.caption,
                           .division_label = kDivision.caption,
                           .relative_heading = 20,
                           .percent = {23, kShortPercentLabel},
                           .proportion = {24, kOutside.caption},
                           .verdict = 25,
                           .listing = {27, 28, 29}};

const Layout& LayoutOf(LimitKind kind, const Scale& scale) {
  switch (kind) {
    case LimitKind::kConstant:
      return scale.percent ? kAPercent : kAFraction;
    case LimitKind::kPercentage:
      return scale.percent ? kBPercent : kBFraction;
    case LimitKind::kConstantThenPercentage:
      break;
  }
  return scale.percent ? kCPercent : kCFraction;
}

void WriteVerdict(Notices& notices, ResultsSheet& sheet, int row, Agreement agreement) {
  switch (agreement) {
    case Agreement::kAgrees:
      sheet.Row(row, "  Obs. distribution agrees with null hypothesis");
      sheet.Row(row + 1, "  of at least 95% observations within limits");
      break;
    case Agreement::kDoesNotAgree:
      sheet.Row(row, "  Obs. distribution does not agree with null");
      sheet.Row(row + 1, "  hypothesis of 95% observations within limits");
      break;
    case Agreement::kNotTested:
      Note(notices, {"not-tested",
                     "the proportion outside the limits was not tested, which takes 20 to 1000 "
                     "pairs"});
      break;
  }
}

void ReportUserLimits(Messages&, Notices& notices, ResultsSheet& sheet,
                      const UserLimitsInput& input, const UserLimitsResult& result) {
  const auto& limits = input.limits;
  const Scale& scale = input.options.scale;
  const Layout& layout = LayoutOf(limits.kind, scale);
  sheet.Frame(layout.title, DateBeside::kAnalyst);
  WriteXYColumns(sheet, input.data.Count(), input.data.columns);
  if (limits.kind == LimitKind::kPercentage)
    sheet.Row(10, layout.limit_label, kPercentLimitSet(result.percent));
  else
    sheet.Row(10, layout.limit_label, kConstantLimit(Real(limits.constant)));
  if (!layout.division_label.empty())
    sheet.Row(11, layout.division_label, kDivision(Real(limits.division)));
  sheet.Row(layout.relative_heading,
            Bold{scale.Word("Relative Y-X difference plot", "Percentage Y-X difference plot")});
  if (layout.percent.row > 0)
    sheet.Row(layout.percent.row, layout.percent.label, kPercentLimit(result.percent));
  sheet.Row(layout.proportion.row, layout.proportion.label, kOutside(result.proportion));
  WriteVerdict(notices, sheet, layout.verdict,
               TestProportion(input.data.Count(), result.proportion));
  WriteListing(sheet, layout.listing, input);
}

// --- Plots

// The points, and the lower limit, which is the upper one with its sign turned, and the upper one.
void DrawLimits(Plot& plot, std::span<const Real> mean, std::span<const Real> difference,
                const Points& upper) {
  plot.AddPoints(Zip(mean, difference));
  if (upper.empty()) return;
  Points lower = upper;
  for (Point& point : lower) point.y = -point.y;
  AddLimit(plot, std::move(lower));
  AddLimit(plot, upper);
}

void DrawUserLimits(Plots& plots, const UserLimitsInput& input, const UserLimitsResult& result) {
  const PairedData& data = input.data;
  const Scale& scale = input.options.scale;
  const bool two_limits = input.limits.kind == LimitKind::kConstantThenPercentage;
  DrawLimits(AddPlot(plots, kPlots[0]), data.mean, data.difference, result.absolute);
  const std::string_view caption = scale.Word(
      kRelativeCaption,
      two_limits ? "Percentage Bland-Altman Plot (perc. difference against mean of x and y)"
                 : kPercentCaption);
  DrawLimits(AddRelativePlot(plots, caption, scale), data.mean, *data.relative, result.relative);
}

}  // namespace

void RunUserLimits(Run& run) {
  Steps<ReadLimitsAndPairs, ComputeUserLimits, ReportUserLimits, DrawUserLimits>(run);
}

}  // namespace quorval::difference
