#include "analyses/methodeval/dilution_series.h"

namespace quorval::methodeval::linearity {

int DilutionSeries::N() const {
  std::size_t N = 0;
  for (const DilutionLevel& level : levels) N += level.y.size();
  return static_cast<int>(N);
}

DilutionSeries ReadDilutionSeries(Run& run) {
  DilutionSeries series{.columns = {TakeColumn(run, kStartColumn), TakeColumn(run, kLastColumn)}};
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

}  // namespace quorval::methodeval::linearity
