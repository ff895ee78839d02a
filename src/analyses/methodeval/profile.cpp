#include "analyses/methodeval/profile.h"

#include <algorithm>
#include <string>

namespace quorval::methodeval::profile {

namespace {

// Values below the last level belong to none.
void NoteSurplus(Notices& notices, const Column& column, const Column& levels) {
  const std::size_t most = levels.values.size(), size = column.values.size();
  if (size <= most) return;
  Note(notices, {"length",
                 "column " + std::to_string(column.number) + " holds " + Counted(size, "value") +
                     ", " + std::to_string(size - most) + " more than column " +
                     std::to_string(levels.number) + ": the last ones were not read",
                 column.number, static_cast<int>(most) + 1});
}

}  // namespace

RawData ReadRawData(Run& run, const Layout& layout) {
  RawData data{.outlier_limit = run.form.TextAsNumber32(kOutlierLimit),
               .columns = TakeColumns(run, kStartColumn, kLastColumn, layout.columns)};
  for (int column = data.columns.start; column <= data.columns.last; ++column) {
    const Sample cells = ReadColumn(run, column).Numbers(run.notices);
    if (cells.size() < layout.heads + layout.least) run.Refuse(layout.too_few);
    Replicates& level = data.levels.emplace_back();
    if (layout.heads > 0) level.head = cells.front();
    const auto values = std::span(cells).subspan(layout.heads);
    level.d = DescribeSample(run.messages, values);
    level.N = static_cast<int>(values.size());
    if (MarkOutliersBySD(run.messages, data.outlier_limit, values).count > 0)
      data.outlier_columns.push_back(column);
  }
  return data;
}

std::vector<Sample> ReadPairs(Run& run, std::span<const int> columns) {
  std::vector<Column> read;
  std::vector<Sample> values;
  for (int number : columns) {
    Column& column = read.emplace_back(ReadColumn(run, number));
    NoteSurplus(run.notices, column, read.front());
    column.values.resize(std::min(column.values.size(), read.front().values.size()));
    values.push_back(column.Numbers(run.notices));
    if (values.back().empty()) run.Refuse(kNoValues);
  }
  NoteLengths(run.notices, LengthsOf(read));
  for (const Sample& column : values)
    if (column.size() < values[0].size()) throw Fault{Fault::Kind::kOutOfRange, true};
  return values;
}

void PutPercentage(ResultsSheet& sheet, int row, int column,
                   const std::optional<Real>& percentage) {
  if (percentage) {
    sheet.Put(row, column, *percentage);
  } else {
    sheet.Put(row, column, "n.d.");
  }
}

}  // namespace quorval::methodeval::profile
