#include "analyses/methodeval/profile.h"

#include "core/conversion.h"

namespace quorval::methodeval::profile {

RawData ReadRawData(Run& run, const Layout& layout) {
  RawData data{.outlier_limit = run.form.WholeNumber32(kOutlierLimit),
               .columns = TakeColumns(run, kStartColumn, kLastColumn, layout.columns)};
  for (int column = data.columns.start; column <= data.columns.last; ++column) {
    const Texts texts = ReadColumn(run, column).values;
    if (texts.size() < layout.heads + layout.least) run.Refuse(layout.too_few);
    Replicates& level = data.levels.emplace_back();
    if (layout.heads > 0) level.head = ToNumber(texts.front());
    const Sample values = ToNumbers(std::span(texts).subspan(layout.heads));
    level.d = DescribeSample(run.messages, values);
    level.N = static_cast<int>(values.size());
    if (MarkOutliersBySD(run.messages, data.outlier_limit, values).count > 0)
      data.outlier_columns.push_back(column);
  }
  return data;
}

std::vector<Sample> ReadPairs(Run& run, std::span<const int> columns) {
  std::vector<Texts> texts;
  for (int column : columns) {
    texts.push_back(ReadColumn(run, column).values);
    if (texts.back().empty()) run.Refuse(kNoValues);
  }
  const std::size_t levels = texts.front().size();
  std::vector<Sample> values;
  for (const Texts& column : texts) {
    if (column.size() < levels) Raise(Fault::Kind::kOutOfRange);
    values.push_back(ToNumbers(std::span(column).first(levels)));
  }
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
