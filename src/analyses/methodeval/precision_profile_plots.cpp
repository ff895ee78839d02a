#include <algorithm>

#include "analyses/methodeval/precision_profile.h"
#include "stats/spline.h"

namespace quorval::methodeval::precision_profile {
namespace {

constexpr int kCurvePoints = 100;

// The natural spline through the points, from the first to the last of them.
Points SmoothCurve(const Points& sorted) {
  Sample x, y;
  for (const Point& point : sorted) {
    x.push_back(point.x);
    y.push_back(point.y);
  }
  const Spline spline = SplineSetup(x, y);
  Points curve;
  for (int i = 0; i < kCurvePoints; ++i) {
    const Real X = x.front() + i * (x.back() - x.front()) / (kCurvePoints - 1);
    curve.push_back({X, SplineEvaluate(spline, X)});
  }
  return curve;
}

void DrawCurve(Run& run, Plot plot, Points points, bool smooth) {
  std::ranges::stable_sort(points, {}, &Point::x);
  Points curve = smooth ? SmoothCurve(points) : points;
  plot.AddPoints(std::move(points));
  plot.AddLine(std::move(curve));
  run.plots.push_back(std::move(plot));
}

}  // namespace

bool HasUndefinedCV(const std::vector<Level>& levels) {
  return std::ranges::any_of(levels, [](const Level& level) { return !level.CV; });
}

void DrawProfile(Run& run, const std::vector<Level>& levels, bool smooth) {
  Points sds, cvs;
  for (const Level& level : levels) {
    sds.push_back({level.x, level.SD});
    if (level.CV) cvs.push_back({level.x, *level.CV});
  }
  DrawCurve(run,
            {.window = "frmPrecPlot1",
             .caption = "Precision Profile: SD",
             .label = "Precision Profile: SD against level",
             .x = {.title = "Level"},
             .y = {.title = "SD"}},
            std::move(sds), smooth);
  if (HasUndefinedCV(levels)) return;
  DrawCurve(run,
            {.window = "frmPrecPlot2",
             .caption = "Precision Profile: CV",
             .label = "Precision Profile: CV against level",
             .x = {.title = "Level"},
             .y = {.title = "CV%"}},
            std::move(cvs), smooth);
}

}  // namespace quorval::methodeval::precision_profile
