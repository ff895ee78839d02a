#include "analyses/difference/paired_data.h"

#include <algorithm>
#include <utility>

#include "core/conversion.h"

namespace quorval::difference {
namespace {

bool AllPositive(std::span<const Real> values) {
  return std::ranges::all_of(values, [](Real value) { return value > 0; });
}

void RefuseFewPairs(const Run& run, const Sample& x) {
  if (x.size() < 3) run.Refuse(kTooFewPairs);
}

void RefuseNoDispersion(const Run& run, const Sample& x, std::string_view words) {
  const Range range = RangeOf(x);
  if (range.min == range.max) run.Refuse(words);
}

void FormDifferences(PairedData& data) {
  data.mean = MeansOf(data.x, data.y);
  data.mean_range = RangeOf(data.mean);
  for (std::size_t i = 0; i < data.x.size(); ++i) data.difference.push_back(data.y[i] - data.x[i]);
}

void FormRelativeDifferences(PairedData& data, const Scale& scale) {
  Sample& relative = data.relative.emplace();
  for (std::size_t i = 0; i < data.mean.size(); ++i)
    relative.push_back(scale.Relative(data.difference[i], data.mean[i]));
}

// No box tells of it; the sheet merely ends earlier.
void NoteNoRelative(Run& run, const PairedData& data, const std::array<Sample, 4>& replicates) {
  for (std::size_t k = 0; k < replicates.size(); ++k)
    for (std::size_t i = 0; i < replicates[k].size(); ++i) {
      if (replicates[k][i] > 0) continue;
      const int column = data.columns[k], row = static_cast<int>(i) + 1;
      Note(run.notices, {"left-out",
                         "row " + std::to_string(row) + " of column " + std::to_string(column) +
                             " holds " + ShortestText(replicates[k][i]) +
                             ", which is not above 0: the relative differences were left out",
                         column, row});
      return;
    }
}

}  // namespace

PairedData TakePairs(Run& run, const Scale& scale) {
  PairColumns columns = ReadPairSingle(run);
  PairedData data{.ids = std::move(columns.ids),
                  .columns = columns.ColumnNumbers(),
                  .x = columns.columns[0].Numbers(run.notices),
                  .y = columns.columns[1].Numbers(run.notices)};
  RefuseFewPairs(run, data.x);
  if (!AllPositive(data.x) || !AllPositive(data.y))
    run.Refuse(" Negative or zero numbers occurred: No analysis ");
  RefuseNoDispersion(run, data.x, " No dispersion in variables: No analysis ");
  FormDifferences(data);
  FormRelativeDifferences(data, scale);
  return data;
}

PairedData TakeDuplicates(Run& run, const Scale& scale) {
  PairColumns columns = ReadPairDuplicate(run);
  std::array<Sample, 4> replicates;  // x1, x2, y1, y2
  std::ranges::transform(columns.columns, replicates.begin(),
                         [&](const Column& column) { return column.Numbers(run.notices); });
  const auto& [x1, x2, y1, y2] = replicates;
  PairedData data{.ids = std::move(columns.ids),
                  .columns = columns.ColumnNumbers(),
                  .x = MeansOf(x1, x2),
                  .y = MeansOf(y1, y2)};
  RefuseFewPairs(run, data.x);
  RefuseNoDispersion(run, data.x, " No dispersion in x: No analysis ");
  FormDifferences(data);
  if (std::ranges::all_of(replicates, AllPositive)) {
    FormRelativeDifferences(data, scale);
  } else {
    NoteNoRelative(run, data, replicates);
  }
  return data;
}

}  // namespace quorval::difference
