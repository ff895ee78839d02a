#include "analyses/methodeval/profile.h"

#include "core/conversion.h"

namespace quorval::methodeval::profile {

RawData ReadRawData(Run& run, const Layout& layout) {
  RawData data{.outlier_limit = run.form.WholeNumber32(kOutlierLimit),
               .columns = TakeColumns(run, kStartColumn, kLastColumn, layout.columns)};
  for (int column = data.columns.start; column <= data.columns.last; ++column) {
    const Sample cells = ToNumbers(ReadColumn(run, column).values);
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
  std::vector<Sample> values;
  for (int column : columns) {
    Texts texts = ReadColumn(run, column).values;
    // What stands below the levels of the first column belongs to none.
    if (!values.empty() && texts.size() > values[0].size()) texts.resize(values[0].size());
    values.push_back(ToNumbers(texts));
    if (values.back().empty()) run.Refuse(kNoValues);
  }
  for (const Sample& column : values)
    if (column.size() < values[0].size()) Raise(Fault::Kind::kOutOfRange);
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
