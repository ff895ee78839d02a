#include "analyses/regression/regression.h"

#include "core/conversion.h"
#include "stats/significance.h"

namespace quorval::regression {

std::string WindowTitle(std::string_view analysis, const Form& form) {
  return "Quorval      " + std::string(analysis) +
         (IsDuplicate(form) ? "    Duplicate (x1, x2, y1, y2)" : "    Single (x, y)");
}

Pairs ReadPairs(Run& run) {
  const bool duplicate = IsDuplicate(run.form);
  PairColumns columns = duplicate ? ReadPairDuplicate(run) : ReadPairSingle(run);
  Pairs data{.ids = std::move(columns.ids), .columns = columns.numbers};
  if (!duplicate) {
    data.x = ToNumbers(columns.values[0]);
    data.y = ToNumbers(columns.values[1]);
    return data;
  }
  for (std::size_t i = 0; i < 4; ++i) data.replicates[i] = ToNumbers(columns.values[i]);
  const auto& [x1, x2, y1, y2] = data.replicates;
  data.x = MeansOf(x1, x2);
  data.y = MeansOf(y1, y2);
  return data;
}

CriticalValue TakeCriticalValue(const Form& form, const Field& field, const Range& range,
                                Real fraction) {
  const CriticalValue inside{range.min + fraction * (range.max - range.min)};
  if (form.Blank(field)) return inside;
  const Real given = form.Number32(field);
  if (given < Single(range.min) || given > Single(range.max)) return inside;
  return {given, true};
}

BandPositions PlaceBands(const Range& range) {
  constexpr std::array<double, 9> kTenths{0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9};
  BandPositions positions;
  positions.front() = range.min;
  positions.back() = range.max;
  for (std::size_t k = 0; k < kTenths.size(); ++k)
    positions[k + 1] = range.min + kTenths[k] * (range.max - range.min);
  return positions;
}

Test TestAgainst(Real expected, Real estimate, Real se, Real df) {
  const Real t = (estimate - expected) / se;
  const Real margin = CriticalT05(df) * se;
  return {estimate, se, t, estimate - margin, estimate + margin, TPClass(df, t)};
}

void WriteHead(Run& run, std::string_view title, const Pairs& data) {
  ResultsSheet& sheet = run.sheet;
  sheet.Frame(title);
  if (IsDuplicate(run.form)) {
    sheet.Row(6, "  Number of (x1, x2, y1, y2) data points", data.Count());
    sheet.Row(7, "  x1: Col no.", data.columns[0]);
    sheet.Row(8, "  x2: Col no.", data.columns[1]);
    sheet.Row(9, "  y1: Col no.", data.columns[2]);
    sheet.Row(10, "  y2: Col no.", data.columns[3]);
  } else {
    sheet.Row(6, "  Number of (x, y) data points", data.Count());
    sheet.Row(7, "  x: Col no.", data.columns[0]);
    sheet.Row(8, "  y: Col no.", data.columns[1]);
  }
}

void WriteOutliers(Run& run, int row, const OutlierMarks& outliers, const Pairs& data) {
  quorval::WriteOutliers(run.sheet, {.count = row, .first = row + 3, .more = row + 13}, outliers,
                         run.form.Number32(kOutlierLimit), data.x, data.y);
}

void WriteBands(Run& run, int row, std::string_view estimate_heading, const Bands& bands) {
  run.sheet.Row(row, "x value", estimate_heading, "Lower 95%-conf. limit", "Upper 95%-conf. limit");
  for (std::size_t k = 0; k < bands.u.size(); ++k)
    run.sheet.Row(row + 1 + static_cast<int>(k), bands.u[k], bands.estimate[k], bands.lower[k],
                  bands.upper[k]);
}

}  // namespace quorval::regression
