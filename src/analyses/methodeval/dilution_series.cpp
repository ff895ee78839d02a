#include "analyses/methodeval/dilution_series.h"

#include <algorithm>

namespace quorval::methodeval::linearity {

int DilutionSeries::N() const {
  std::size_t N = 0;
  for (const DilutionLevel& level : levels) N += level.y.size();
  return static_cast<int>(N);
}

DilutionSeries ReadDilutionSeries(Run& run, const Field& start, const Field& last) {
  DilutionSeries series{.columns = {TakeColumn(run, start), TakeColumn(run, last)}};
  if (series.columns.last - series.columns.start + 1 < 3)
    run.Refuse(" Less than three x levels: No analysis ");
  for (int column = series.columns.start; column <= series.columns.last; ++column) {
    const Sample cells = ReadColumn(run, column).Numbers(run.notices);
    if (cells.size() < 3) run.Refuse(" Less than two y values at each x level: No analysis ");
    DilutionLevel level{.x = cells.front(), .y = {cells.begin() + 1, cells.end()}, .mean = {}};
    level.mean = Sum(level.y) / level.n();
    series.levels.push_back(std::move(level));
  }
  return series;
}

void RefuseNonPositiveLevels(const Run& run, const DilutionSeries& series) {
  if (std::ranges::any_of(series.levels, [](const DilutionLevel& level) { return level.x <= 0; }))
    run.Refuse("Negative or zero x values in weighted linearity evaluation: no analysis");
}

void WeightLevels(DilutionSeries& series, Real e, Real L) {
  for (DilutionLevel& level : series.levels) level.w = 1 / Pow(std::max(level.x, L), e);
}

}  // namespace quorval::methodeval::linearity
