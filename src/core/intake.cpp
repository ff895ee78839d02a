#include "core/intake.h"

#include "core/conversion.h"

namespace quorval {
namespace {

constexpr std::array<const Field*, 4> kPairFields{&Text10, &Text11, &Text12, &Text13};

PairColumns ReadPairColumns(Run& run, std::size_t count) {
  PairColumns pair;
  for (std::size_t i = 0; i < count; ++i) {
    pair.numbers[i] = run.form.Column(*kPairFields[i]);
    pair.values[i] = WalkColumn(run.worksheet, pair.numbers[i]);
  }
  pair.N = static_cast<int>(pair.values[0].size());
  return pair;
}

[[noreturn]] void FailForUnequalColumns(Run& run) {
  run.messages.Tell("Unequal number of observations in columns: No analysis");
  throw Failure{};
}

Texts IdsOf(const Run& run, const Field& field, std::size_t n) {
  return TextsOfRows(run.worksheet, run.form.Column(field), n);
}

}  // namespace

Texts WalkColumn(const Worksheet& worksheet, int column) {
  Texts values;
  const int rows = worksheet.DataRowCnt();
  for (int row = 1; row <= rows; ++row) {
    if (worksheet.Text(column, row).empty()) break;
    values.push_back(worksheet.Value(column, row));
  }
  return values;
}

Texts TextsOfRows(const Worksheet& worksheet, int column, std::size_t n) {
  Texts texts(n);
  if (column < 1) return texts;
  for (std::size_t i = 0; i < n; ++i) texts[i] = worksheet.Text(column, static_cast<int>(i) + 1);
  return texts;
}

inline namespace MCregaM3 {

Column ReadColumn(Messages& messages, const Worksheet& worksheet, int column) {
  if (column <= 0 || column > Worksheet::kColumns) {
    messages.Tell("Selected column number should be positive integer =< 30!");
    throw Failure{};
  }
  return {.number = column,
          .header = worksheet.Text(column, 0),
          .values = WalkColumn(worksheet, column)};
}

Column ReadColumn(Run& run, int column) { return ReadColumn(run.messages, run.worksheet, column); }

Column ReadDialogColumn(Run& run) { return ReadColumn(run, run.form.Column(Text1)); }

Column ReadColumnWithId(Run& run) {
  Column column = ReadDialogColumn(run);
  column.ids.resize(column.values.size());
  if (!run.form.Blank(Text2)) column.ids = IdsOf(run, Text2, column.values.size());
  return column;
}

PairColumns ReadPairSingle(Run& run) {
  PairColumns pair = ReadPairColumns(run, 2);
  const std::size_t n = pair.values[0].size();
  pair.ids.resize(n);
  if (!run.form.Blank(Text9)) pair.ids = IdsOf(run, Text9, n);
  if (pair.values[1].size() != n) FailForUnequalColumns(run);
  return pair;
}

PairColumns ReadPairDuplicate(Run& run) {
  PairColumns pair = ReadPairColumns(run, 4);
  const auto& values = pair.values;
  const std::size_t n = values[0].size();
  pair.ids = IdsOf(run, Text9, n);
  if (values[1].size() != n || values[3].size() != values[2].size() || values[2].size() != n)
    FailForUnequalColumns(run);
  return pair;
}

}  // namespace MCregaM3

}  // namespace quorval
