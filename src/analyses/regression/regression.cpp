#include "analyses/regression/regression.h"

#include "core/conversion.h"

namespace quorval::regression {
namespace {

CriticalValue TakeCriticalValue(const Form& form, const Field& field, const Range& range,
                                Real fraction) {
  const CriticalValue inside{range.min + fraction * (range.max - range.min)};
  if (form.Blank(field)) return inside;
  const Real given = form.LeadingNumber32(field);
  if (given >= Single(range.min) && given <= Single(range.max)) return {given, true};
  form.Note(field, "; x goes from " + ShortestText(range.min) + " to " + ShortestText(range.max) +
                       ", so its rows are left out");
  return inside;
}

std::array<int, 4> ColumnNumbers(const Form& form) {
  if (!IsDuplicate(form)) return {form.TextAsInt16(Text10), form.TextAsInt16(Text11)};
  return {form.TextAsInt16(Text10), form.TextAsInt16(Text11), form.TextAsInt16(Text12),
          form.TextAsInt16(Text13)};
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

ComparisonInput TakeOptions(const Run& run, Pairs data, int least) {
  const Range range = RangeOfAbscissae(run, data, least);
  return {.duplicate = IsDuplicate(run.form),
          .data = std::move(data),
          .levels = PlaceLevels(run.form, range),
          .show_residuals = run.form.On(kShowResiduals)};
}

ParametricInput TakeParametricOptions(const Run& run, Pairs data, int least) {
  ParametricInput input{TakeOptions(run, std::move(data), least)};
  input.repeated = run.repeated != nullptr;
  input.outlier_limit = run.form.LeadingNumber32(kOutlierLimit);
  input.show_bands = run.form.On(kShowBands);
  input.plot_bands = run.form.On(kPlotBands);
  return input;
}

Real ResidualSD(Messages& messages, std::span<const Real> residuals) {
  const Real n = residuals.size();
  return DescribeSample(messages, residuals).sd * Sqrt((n - 1) / (n - 2));
}

OutlierMarks MarkOutliers(Messages& messages, const ParametricInput& input,
                          std::span<const Real> residuals) {
  return MarkOutliersBySD(messages, input.outlier_limit, ToSingles(residuals));
}

std::optional<Rejection> KeepForReanalysis(const ParametricInput& input,
                                           const OutlierMarks& outliers) {
  if (outliers.count == 0) return std::nullopt;
  const Pairs& data = input.data;
  Rejection kept;
  kept.limit = input.outlier_limit;
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
  return kept;
}

void WriteHead(ResultsSheet& sheet, std::string_view title, const ComparisonInput& input) {
  const auto& [n, x, y, x1, x2, y1, y2] = kHeadQuantities;
  const std::array<int, 4>& columns = input.data.columns;
  sheet.Frame(title);
  if (!input.duplicate) return WriteXYColumns(sheet, input.data.Count(), columns);
  sheet.Row(6, "  Number of (x1, x2, y1, y2) data points", n(input.data.Count()));
  sheet.Row(7, x1(columns[0]));
  sheet.Row(8, x2(columns[1]));
  sheet.Row(9, y1(columns[2]));
  sheet.Row(10, y2(columns[3]));
}

void WriteTest(ResultsSheet& sheet, int row, const TestRows& rows, const TTest& test) {
  sheet.Row(row, rows.estimate(test.estimate));
  sheet.Row(row + 1, rows.se(test.se));
  sheet.Row(row + 2, rows.lower(test.lower), rows.upper(test.upper));
  sheet.Row(row + 3, rows.tested);
  sheet.Row(row + 4, rows.t(test.t), test.P);
}

void WriteCriticalValues(ResultsSheet& sheet, int row, const Levels& levels,
                         const Estimates& estimates) {
  using namespace quantity;
  const auto& [Xc1, Xc2, u] = levels;
  const auto& [Yc1, Yc2, bands] = estimates;
  if (Xc1.shown) {
    sheet.Row(row, quantity::kXc1(Xc1.x));
    sheet.Row(row + 1, kDifference1(Yc1.y - Xc1.x), kDifference1Se(Yc1.se));
  }
  if (Xc2.shown) {
    sheet.Row(row + 2, quantity::kXc2(Xc2.x));
    sheet.Row(row + 3, kDifference2(Yc2.y - Xc2.x), kDifference2Se(Yc2.se));
  }
}

void WriteOutliers(ResultsSheet& sheet, const OutlierRows& rows, const ParametricInput& input,
                   const OutlierMarks& outliers) {
  quorval::WriteOutliers(sheet, rows, outliers, input.outlier_limit, input.data.x, input.data.y);
}

void WriteBands(ResultsSheet& sheet, int row, std::string_view estimate_heading,
                const Bands& bands) {
  constexpr std::string_view kX = "x value";
  constexpr std::string_view kLower = "Lower 95%-conf. limit";
  constexpr std::string_view kUpper = "Upper 95%-conf. limit";
  const ResultsSheet::Listing listing(sheet, kBandsTable);
  const bool estimates = !estimate_heading.empty();
  if (estimates) {
    sheet.Row(row, kX, estimate_heading, kLower, kUpper);
  } else {
    sheet.Row(row, kX, kLower, kUpper);
  }
  for (std::size_t k = 0; k < bands.u.size(); ++k) {
    ++row;
    if (estimates) {
      sheet.Row(row, bands.u[k], bands.estimate[k], bands.lower[k], bands.upper[k]);
    } else {
      sheet.Row(row, bands.u[k], bands.lower[k], bands.upper[k]);
    }
  }
}

void WriteResiduals(ResultsSheet& sheet, int row, const std::array<std::string_view, 5>& headings,
                    const Pairs& data, const Residuals& residuals) {
  const ResultsSheet::Listing listing(sheet, kResidualsTable);
  const auto& [x, y, estimate, e, z] = headings;
  sheet.Row(row, x, y, estimate, e, z);
  for (std::size_t i = 0; i < data.x.size(); ++i)
    sheet.Row(row + 1 + static_cast<int>(i), data.x[i], data.y[i], residuals.estimate[i],
              residuals.e[i], residuals.z[i]);
}

}  // namespace quorval::regression
