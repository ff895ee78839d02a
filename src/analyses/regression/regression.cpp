#include "analyses/regression/regression.h"

#include "core/conversion.h"

namespace quorval::regression {
namespace {

CriticalValue TakeCriticalValue(const Form& form, const Field& field, const Range& range,
                                Real fraction) {
  const CriticalValue inside{range.min + fraction * (range.max - range.min)};
  if (form.Blank(field)) return inside;
  const Real given = form.Number32(field);
  if (given >= Single(range.min) && given <= Single(range.max)) return {given, true};
  form.Note(field, "; x goes from " + ShortestText(range.min) + " to " + ShortestText(range.max) +
                       ", so its rows are left out");
  return inside;
}

std::array<int, 4> ColumnNumbers(const Form& form) {
  if (!IsDuplicate(form)) return {form.Column(Text10), form.Column(Text11)};
  return {form.Column(Text10), form.Column(Text11), form.Column(Text12), form.Column(Text13)};
}

}  // namespace

std::string_view ModeInTitle(const Form& form) {
  return IsDuplicate(form) ? "    Duplicate (x1, x2, y1, y2)" : "    Single (x, y)";
}

Pairs ReadPairs(Run& run) {
  Pairs data;
  if (run.repeated != nullptr) {
    data.columns = ColumnNumbers(run.form);
    data.ids = run.repeated->retained_ids;
    data.measured = run.repeated->retained;
  } else {
    PairColumns columns = IsDuplicate(run.form) ? ReadPairDuplicate(run) : ReadPairSingle(run);
    data.columns = columns.ColumnNumbers();
    data.ids = std::move(columns.ids);
    std::ranges::transform(columns.columns, data.measured.begin(),
                           [&](const Column& column) { return column.Numbers(run.notices); });
  }
  if (IsDuplicate(run.form)) {
    const auto& [x1, x2, y1, y2] = data.measured;
    data.x = MeansOf(x1, x2);
    data.y = MeansOf(y1, y2);
  } else {
    data.x = data.measured[0];
    data.y = data.measured[1];
  }
  return data;
}

Range RangeOfAbscissae(const Run& run, const Pairs& data, int least) {
  if (data.Count() < least)
    run.Refuse(" n < " + std::to_string(least) + ": No regression analysis");
  const Range range = RangeOf(data.x);
  if (range.min == range.max) run.Refuse(" No dispersion of x values: no regression analysis ");
  return range;
}

Levels PlaceLevels(const Form& form, const Range& range) {
  constexpr std::array<double, 9> kTenths{0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9};
  Levels levels{.Xc1 = TakeCriticalValue(form, kXc1, range, 0.25),
                .Xc2 = TakeCriticalValue(form, kXc2, range, 0.75),
                .u = {}};
  levels.u.front() = range.min;
  levels.u.back() = range.max;
  for (std::size_t k = 0; k < kTenths.size(); ++k)
    levels.u[k + 1] = range.min + kTenths[k] * (range.max - range.min);
  return levels;
}

Bands ComputeBands(const Levels& levels, const Estimates& estimates, Real tcrit) {
  Bands bands{.u = levels.u};
  for (std::size_t k = 0; k < levels.u.size(); ++k) {
    const auto& [y, se] = estimates.bands[k];
    bands.estimate[k] = y;
    bands.lower[k] = y - tcrit * se;
    bands.upper[k] = y + tcrit * se;
  }
  return bands;
}

Real ResidualSD(Run& run, std::span<const Real> residuals) {
  const Real n = residuals.size();
  return DescribeSample(run.messages, residuals).sd * Sqrt((n - 1) / (n - 2));
}

OutlierMarks MarkOutliers(Run& run, std::span<const Real> residuals) {
  return MarkOutliersBySD(run.messages, run.form.Number32(kOutlierLimit), ToSingles(residuals));
}

void KeepForReanalysis(Run& run, const Pairs& data, const OutlierMarks& outliers) {
  if (outliers.count == 0) return;
  Rejection& kept = run.rejection.emplace();
  kept.limit = run.form.Number32(kOutlierLimit);
  kept.read_anew = {kXc1.key, kXc2.key};
  for (std::size_t i = 0; i < data.x.size(); ++i) {
    if (outliers.flags[i]) {
      kept.rejected.push_back({data.ids[i], data.x[i], data.y[i]});
      continue;
    }
    kept.retained_ids.push_back(data.ids[i]);
    for (std::size_t k = 0; k < 4; ++k)
      if (!data.measured[k].empty()) kept.retained[k].push_back(data.measured[k][i]);
  }
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
    WriteSingleColumns(run, data);
  }
}

void WriteSingleColumns(Run& run, const Pairs& data) {
  run.sheet.Row(6, "  Number of (x, y) data points", data.Count());
  run.sheet.Row(7, "  x: Col no.", data.columns[0]);
  run.sheet.Row(8, "  y: Col no.", data.columns[1]);
}

void WriteSlope(Run& run, int row, const TTest& slope) {
  ResultsSheet& sheet = run.sheet;
  sheet.Row(row, "  Slope b", slope.estimate);
  sheet.Row(row + 1, "  SE b", slope.se);
  sheet.Row(row + 2, "  95%-Conf. Int.", slope.lower, slope.upper);
  sheet.Row(row + 3, "  Test for slope deviation from 1");
  sheet.Row(row + 4, "  t  and  P", slope.t, slope.P);
}

void WriteIntercept(Run& run, int row, const TTest& intercept) {
  ResultsSheet& sheet = run.sheet;
  sheet.Row(row, "  Intercept  a0", intercept.estimate);
  sheet.Row(row + 1, "  SE a0", intercept.se);
  sheet.Row(row + 2, "  95%-Conf. Int.", intercept.lower, intercept.upper);
  sheet.Row(row + 3, "  Test for intercept deviation from 0");
  sheet.Row(row + 4, "  t  and  P", intercept.t, intercept.P);
}

void WriteCriticalValues(Run& run, int row, const Levels& levels, const Estimates& estimates) {
  const auto& [Xc1, Xc2, u] = levels;
  const auto& [Yc1, Yc2, bands] = estimates;
  if (Xc1.shown) {
    run.sheet.Row(row, "  Critical value Xc1", Xc1.x);
    run.sheet.Row(row + 1, "  Difference Yc1 - Xc1 with SE", Yc1.y - Xc1.x, Yc1.se);
  }
  if (Xc2.shown) {
    run.sheet.Row(row + 2, "  Critical value Xc2", Xc2.x);
    run.sheet.Row(row + 3, "  Difference Yc2 - Xc2 with SE", Yc2.y - Xc2.x, Yc2.se);
  }
}

void WriteOutliers(Run& run, const OutlierRows& rows, const OutlierMarks& outliers,
                   const Pairs& data) {
  quorval::WriteOutliers(run.sheet, rows, outliers, run.form.Number32(kOutlierLimit), data.x,
                         data.y);
}

void WriteBands(Run& run, int row, std::string_view estimate_heading, const Bands& bands) {
  constexpr std::string_view kX = "x value";
  constexpr std::string_view kLower = "Lower 95%-conf. limit";
  constexpr std::string_view kUpper = "Upper 95%-conf. limit";
  const bool estimates = !estimate_heading.empty();
  if (estimates) {
    run.sheet.Row(row, kX, estimate_heading, kLower, kUpper);
  } else {
    run.sheet.Row(row, kX, kLower, kUpper);
  }
  for (std::size_t k = 0; k < bands.u.size(); ++k) {
    ++row;
    if (estimates) {
      run.sheet.Row(row, bands.u[k], bands.estimate[k], bands.lower[k], bands.upper[k]);
    } else {
      run.sheet.Row(row, bands.u[k], bands.lower[k], bands.upper[k]);
    }
  }
}

void WriteResiduals(Run& run, int row, const std::array<std::string_view, 5>& headings,
                    const Pairs& data, const Residuals& residuals) {
  const auto& [x, y, estimate, e, z] = headings;
  run.sheet.Row(row, x, y, estimate, e, z);
  for (std::size_t i = 0; i < data.x.size(); ++i)
    run.sheet.Row(row + 1 + static_cast<int>(i), data.x[i], data.y[i], residuals.estimate[i],
                  residuals.e[i], residuals.z[i]);
}

}  // namespace quorval::regression
