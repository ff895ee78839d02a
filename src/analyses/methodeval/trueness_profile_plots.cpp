#include <algorithm>

#include "analyses/methodeval/trueness_profile.h"

namespace quorval::methodeval::trueness {
namespace {

constexpr double kBarWidth = 0.35;

// What a chart shows of a level: two columns side by side, and dots above and below the second.
struct Bars {
  int number;  // of the level, from 1
  Real true_value, mean;
  std::optional<Real> SEM;
};

// From 0, on which the columns stand, to the highest of all with a margin above.
void FitAxis(Axis& axis, const Plot& plot) {
  Real lowest, highest;
  for (const Series& series : plot.series)
    for (const Point& point : series.points) {
      lowest = std::min(lowest, point.y);
      highest = std::max(highest, point.y);
    }
  if (lowest == highest) return;
  const Real margin = (highest - lowest) / 20;
  axis.min = lowest < 0 ? lowest - margin : lowest;
  axis.max = highest > 0 ? highest + margin : highest;
}

void DrawBars(Plot& plot, const std::vector<Bars>& levels) {
  Points true_values, means, dots;
  for (const Bars& level : levels) {
    true_values.push_back({level.number, level.true_value});
    means.push_back({level.number, level.mean});
    if (!level.SEM) continue;
    dots.push_back({level.number, level.mean - *level.SEM});
    dots.push_back({level.number, level.mean + *level.SEM});
  }
  const auto columns = [](Points points, Colour colour, double offset) {
    return Series{.draw = Draw::kBars,
                  .points = std::move(points),
                  .colour = colour,
                  .bar_width = kBarWidth,
                  .offset = offset};
  };
  plot.x.title = "Level no.";
  plot.Add(columns(std::move(true_values), kRed, -kBarWidth / 2));
  plot.Add(columns(std::move(means), kBlue, kBarWidth / 2));
  if (!dots.empty()) {
    plot.AddPoints(std::move(dots));
    plot.series.back().colour = kBlue;
    plot.series.back().offset = kBarWidth / 2;
  }
  FitAxis(plot.y, plot);
}

}  // namespace

void DrawProfile(Run& run, const std::vector<Level>& levels) {
  std::vector<Bars> percent, absolute;
  for (int number = 1; const Level& level : levels) {
    if (const auto mean = level.PercentMean())
      percent.push_back({number, 100, *mean, level.PercentSEM()});
    absolute.push_back({number, level.T, level.mean, level.SEM});
    ++number;
  }
  Plot& relative_plot = run.AddPlot("frmMethTruenessPlot2", "Trueness Profile: percent");
  relative_plot.header =
      "True values (100%, red cols) and means (%, blue) with SEM (dot) of measured values";
  relative_plot.y.title = "%";
  DrawBars(relative_plot, percent);

  Plot& absolute_plot = run.AddPlot("frmMethTruenessPlot1a", "Trueness Profile");
  absolute_plot.header =
      "True values (red cols) and means of measured values (blue cols) with SEM (dot)";
  DrawBars(absolute_plot, absolute);
}

}  // namespace quorval::methodeval::trueness
