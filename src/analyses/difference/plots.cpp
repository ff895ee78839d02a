#include "analyses/difference/plots.h"

#include "analyses/colours.h"

namespace quorval::difference {
namespace {

Plot& AddDifferencePlot(Run& run, std::string_view window, std::string_view caption,
                        std::string_view y_title) {
  Plot& plot = run.AddPlot(window, caption);
  plot.x.title = "Mean of x and y";
  plot.y.title = y_title;
  return plot;
}

Plot& AddAbsolutePlot(Run& run) {
  return AddDifferencePlot(run, kAbsoluteWindow, kAbsoluteCaption, "Difference y - x");
}

Plot& AddRelativePlot(Run& run, std::string_view caption, const Scale& scale) {
  return AddDifferencePlot(
      run, kRelativeWindow, caption,
      scale.Word("Difference y - x, fraction of mean", "Difference y - x, % of mean"));
}

void AddLimit(Plot& plot, Points points) {
  plot.AddLine(std::move(points), Pattern::kDotted).colour = kGreen;
}

// --- Estimated limits

void AddEstimates(Plot& plot, const PairedData& data, std::span<const Real> difference,
                  const EstimatedLimits& limits) {
  const auto level = [&](Real value) {
    return Points{{data.mean_range.min, value}, {data.mean_range.max, value}};
  };
  plot.AddPoints(Select(data.mean, difference, limits.outliers, false));
  plot.AddLine(level(limits.mean), Pattern::kDashed).colour = kBlue;
  AddLimit(plot, level(limits.lower));
  AddLimit(plot, level(limits.upper));
  if (limits.outliers.count > 0)
    plot.AddPoints(Select(data.mean, difference, limits.outliers, true), Mark::kCross);
}

// --- Limits set by the user

constexpr int kCurvePoints = 50;

// Fiftieths of the range beyond `start`, which is not among them.
Sample CurveAbscissae(const Range& range, Real start) {
  Sample abscissae;
  for (int k = 1; k <= kCurvePoints; ++k)
    abscissae.push_back(start + k * (range.max - range.min) / kCurvePoints);
  return abscissae;
}

// The lower limit, which is the upper one with its sign turned, and the upper limit.
template <class LimitAt>
void AddLimits(Plot& plot, const Sample& abscissae, LimitAt limit_at) {
  Points lower, upper;
  for (Real X : abscissae) {
    const Real limit = limit_at(X);
    lower.push_back({X, -limit});
    upper.push_back({X, limit});
  }
  AddLimit(plot, std::move(lower));
  AddLimit(plot, std::move(upper));
}

}  // namespace

void DrawAbsolutePlot(Run& run, const PairedData& data, const EstimatedLimits& limits) {
  Plot& plot = AddAbsolutePlot(run);
  plot.label = "Mean (blue dashed line) with +/-t-95 % x SD limits (green dot lines)";
  AddEstimates(plot, data, data.difference, limits);
}

void DrawRelativePlot(Run& run, std::string_view caption, const PairedData& data,
                      const EstimatedLimits& limits, const Scale& scale) {
  Plot& plot = AddRelativePlot(run, caption, scale);
  plot.label = "Mean (blue dashed line) with +/-t-95% x SD limits (green dot lines)";
  AddEstimates(plot, data, *data.relative, limits);
}

void DrawAbsolutePlot(Run& run, const PairedData& data, const UserLimits& limits) {
  const Range& range = data.mean_range;
  const auto limit_at = [&](Real X) -> Real {
    return limits.IsConstantAt(X) ? Real(limits.constant) : X * limits.percent / 100;
  };
  Plot& plot = AddAbsolutePlot(run);
  plot.AddPoints(Zip(data.mean, data.difference));
  switch (limits.kind) {
    case LimitKind::kConstant:
      return AddLimits(plot, {range.min, range.max}, limit_at);
    case LimitKind::kPercentage:
      return AddLimits(plot, CurveAbscissae(range, range.min), limit_at);
    case LimitKind::kConstantThenPercentage:
      return AddLimits(plot, CurveAbscissae(range, 0), limit_at);
  }
}

void DrawRelativePlot(Run& run, const PairedData& data, const UserLimits& limits,
                      const Scale& scale) {
  const Range& range = data.mean_range;
  const auto limit_at = [&](Real X) -> Real {
    return limits.IsConstantAt(X) ? scale.Relative(limits.constant, X)
                                  : scale.FromPercent(limits.percent);
  };
  const bool two_limits = limits.kind == LimitKind::kConstantThenPercentage;
  Plot& plot = AddRelativePlot(
      run,
      scale.Word(kRelativeCaption,
                 two_limits ? "Percentage Bland-Altman Plot (perc. difference against mean of x "
                              "and y)"
                            : kPercentCaption),
      scale);
  plot.AddPoints(Zip(data.mean, *data.relative));
  switch (limits.kind) {
    case LimitKind::kConstant:
      return;
    case LimitKind::kPercentage:
      return AddLimits(plot, {range.min, range.max}, limit_at);
    case LimitKind::kConstantThenPercentage:
      return AddLimits(plot, CurveAbscissae(range, 0), limit_at);
  }
}

}  // namespace quorval::difference
