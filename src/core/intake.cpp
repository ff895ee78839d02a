#include "core/intake.h"

#include <algorithm>
#include <utility>

#include "core/conversion.h"

namespace quorval {
namespace {

constexpr std::array<const Field*, 4> kPairFields{&Text10, &Text11, &Text12, &Text13};

std::string Named(int column) { return "column " + std::to_string(column); }

int RowOf(std::size_t index) { return static_cast<int>(index) + 1; }

// --- Where a column ends

struct CellsBelow {
  std::size_t numbers = 0, words = 0;

  std::size_t Count() const { return numbers + words; }
  std::string Text() const {
    std::string text;
    if (numbers > 0) text = Counted(numbers, "number");
    if (words > 0) text += (numbers > 0 ? " and " : "") + Counted(words, "word");
    return text + " below " + (Count() == 1 ? "was" : "were") + " not read";
  }
};

CellsBelow CountFrom(const Worksheet& worksheet, int column, int first_row) {
  CellsBelow below;
  const int rows = worksheet.DataRowCnt();
  for (int row = first_row; row < rows; ++row) {
    const std::string text = worksheet.Text(column, row);
    if (!text.empty()) ++(IsNumber(text) ? below.numbers : below.words);
  }
  return below;
}

void NoteBeyondGrid(Notices& notices, int column) {
  Note(notices, {"empty",
                 "the worksheet ends at " + Named(Worksheet::kColumns) + ": " + Named(column) +
                     " reads as empty",
                 column});
}

void NoteEnd(Notices& notices, const Worksheet& worksheet, const Column& column) {
  if (column.number > Worksheet::kColumns) return NoteBeyondGrid(notices, column.number);
  const int row = RowOf(column.values.size());
  const CellsBelow below = CountFrom(worksheet, column.number, row + 1);
  if (below.Count() > 0) {
    Note(notices, {"gap",
                   Named(column.number) + " ends at row " + std::to_string(row) +
                       ", its first empty cell; " + below.Text(),
                   column.number, row});
  } else if (column.values.empty()) {
    Note(notices, {"empty", Named(column.number) + " is empty", column.number});
  }
}

// Data without titles lose their first row.  One notice is enough: titles may be numbers, such as
// the levels of a series.
void NoteTitle(Notices& notices, const Column& column) {
  if (!IsNumber(column.header) || column.values.empty()) return;
  if (std::ranges::find(notices, "title", &Notice::kind) != notices.end()) return;
  Note(notices, {"title",
                 "row 0 of " + Named(column.number) + " holds \"" + column.header +
                     "\": it is the column's title and was not read as a number",
                 column.number, 0});
}

// --- Numbers

void NoteCell(Notices& notices, const Column& column, std::size_t at) {
  const auto is_word = [](const std::string& text) { return !IsNumber(text); };
  const std::string& text = column.values[at];
  const auto further = std::count_if(column.values.begin() + static_cast<std::ptrdiff_t>(at) + 1,
                                     column.values.end(), is_word);
  std::string told = "row " + std::to_string(RowOf(at)) + " of " + Named(column.number);
  if (text.empty()) {
    told += " is empty";
  } else if (is_word(text)) {
    told += " holds \"" + text + "\", which is no number";
    if (further > 0)
      told += "; " + Counted(static_cast<std::size_t>(further), "more word") + " stand" +
              (further == 1 ? "s" : "") + " below";
  } else {
    told += " holds \"" + text + "\", which is too large a number";
  }
  Note(notices, {"word", std::move(told), column.number, RowOf(at)});
}

// The value of this index by `convert`.
template <class Convert>
auto Converted(Notices& notices, const Column& column, std::size_t at, Convert&& convert) {
  try {
    return convert(column.values[at]);
  } catch (const Fault& fault) {
    NoteCell(notices, column, at);
    throw Fault{fault.kind, true};
  }
}

template <class Convert>
Sample ConvertAll(Notices& notices, const Column& column, Convert&& convert) {
  Sample numbers;
  numbers.reserve(column.values.size());
  while (numbers.size() < column.values.size())
    numbers.push_back(Converted(notices, column, numbers.size(), convert));
  return numbers;
}

// --- Labels

// Labels are taken by position: rows of the data may lack theirs, and there may be labels to spare.
void NoteLabels(Run& run, int column, const Texts& labels, std::string_view noun) {
  const auto missing = static_cast<std::size_t>(std::ranges::count(labels, std::string()));
  const std::size_t spare = CountFrom(run.worksheet, column, RowOf(labels.size())).Count();
  if (missing == labels.size() && spare == 0) {
    Note(run.notices, {"empty", Named(column) + " is empty", column});
    return;
  }
  if (missing > 0) {
    const auto first = std::ranges::find(labels, std::string()) - labels.begin();
    const int row = RowOf(static_cast<std::size_t>(first));
    Note(run.notices, {"gap",
                       Named(column) + " holds no " + std::string(noun) + " in " +
                           std::to_string(missing) + " of " + Counted(labels.size(), "row") +
                           " with data, the first of them row " + std::to_string(row),
                       column, row});
  }
  if (spare > 0)
    Note(run.notices, {"length",
                       Named(column) + " holds " + Counted(spare, noun) + " below row " +
                           std::to_string(labels.size()) + ", where the data end",
                       column, RowOf(labels.size())});
}

// --- Pairs

PairColumns ReadPairColumns(Run& run, std::size_t count) {
  PairColumns pair;
  for (std::size_t i = 0; i < count; ++i) {
    const int number = run.form.TextAsInt16(*kPairFields[i]);
    pair.columns[i] = WalkColumn(run.notices, run.worksheet, number);
  }
  return pair;
}

[[noreturn]] void FailForUnequalColumns(Run& run, std::span<const Column> columns) {
  NoteLengths(run.notices, LengthsOf(columns));
  Fail(run.messages, "Unequal number of observations in columns: No analysis");
}

}  // namespace

Real Column::Number(Notices& notices, std::size_t index) const {
  return Converted(notices, *this, index, ToNumber);
}

Sample Column::Numbers(Notices& notices) const { return ConvertAll(notices, *this, ToNumber); }

Sample Column::Numbers32(Notices& notices) const {
  return ConvertAll(notices, *this, [](const std::string& text) { return Single(ToNumber(text)); });
}

std::array<int, 4> PairColumns::ColumnNumbers() const {
  return {columns[0].number, columns[1].number, columns[2].number, columns[3].number};
}

Texts WalkColumn(const Worksheet& worksheet, int column) {
  Texts values;
  const int rows = worksheet.DataRowCnt();
  for (int row = 1; row <= rows; ++row) {
    if (worksheet.Text(column, row).empty()) break;
    values.push_back(worksheet.Value(column, row));
  }
  return values;
}

Column WalkColumn(Notices& notices, const Worksheet& worksheet, int column) {
  Column walked{.number = column,
                .header = worksheet.Text(column, 0),
                .values = WalkColumn(worksheet, column)};
  NoteTitle(notices, walked);
  NoteEnd(notices, worksheet, walked);
  return walked;
}

void NoteLengths(Notices& notices, const std::vector<ColumnLength>& lengths) {
  const ColumnLength longest = *std::ranges::max_element(lengths, {}, &ColumnLength::values);
  for (const auto& [column, values] : lengths)
    if (values < longest.values)
      Note(notices,
           {"length",
            Named(column) + " holds " + Counted(values, "value") + ", " +
                std::to_string(longest.values - values) + " fewer than " + Named(longest.column),
            column, RowOf(values)});
}

std::vector<ColumnLength> LengthsOf(std::span<const Column> columns) {
  std::vector<ColumnLength> lengths;
  for (const Column& column : columns) lengths.push_back({column.number, column.values.size()});
  return lengths;
}

Texts ReadLabels(Run& run, const Field& field, std::size_t n, std::string_view noun) {
  Texts labels(n);
  const int column = run.form.TextAsInt16(field);
  if (column < 1) return labels;
  for (std::size_t i = 0; i < n; ++i) labels[i] = run.worksheet.Text(column, RowOf(i));
  if (column > Worksheet::kColumns) {
    NoteBeyondGrid(run.notices, column);
  } else if (run.form.Text(field) != field.initial || !WalkColumn(run.worksheet, column).empty()) {
    // An empty column that nobody asked for means that there are no labels.
    NoteLabels(run, column, labels, noun);
  }
  return labels;
}

Real FirstNumber(Run& run, int column) {
  const Column first{.number = column, .values = {run.worksheet.Value(column, 1)}};
  return first.Number(run.notices, 0);
}

inline namespace MCregaM3 {

Column ReadColumn(Messages& messages, Notices& notices, const Worksheet& worksheet, int column) {
  if (column <= 0 || column > Worksheet::kColumns)
    Fail(messages, "Selected column number should be positive integer =< 30!");
  return WalkColumn(notices, worksheet, column);
}

Column ReadColumn(Run& run, int column) {
  return ReadColumn(run.messages, run.notices, run.worksheet, column);
}

Column ReadColumn(Run& run, const Field& field) {
  const int column = run.form.TextAsInt16(field);
  if (column <= 0 || column > Worksheet::kColumns)
    run.form.Note(field, "; the worksheet has the columns 1 to 500");
  return ReadColumn(run, column);
}

Column ReadDialogColumn(Run& run) { return ReadColumn(run, Text1); }

Column ReadColumnWithId(Run& run) {
  Column column = ReadDialogColumn(run);
  column.ids.resize(column.values.size());
  if (!run.form.Blank(Text2)) column.ids = ReadLabels(run, Text2, column.values.size(), "ID");
  return column;
}

PairColumns ReadPairSingle(Run& run) {
  PairColumns pair = ReadPairColumns(run, 2);
  const auto columns = std::span(pair.columns).first(2);
  const std::size_t n = columns[0].values.size();
  pair.ids.resize(n);
  if (!run.form.Blank(Text9)) pair.ids = ReadLabels(run, Text9, n, "ID");
  if (columns[1].values.size() != n) FailForUnequalColumns(run, columns);
  return pair;
}

PairColumns ReadPairDuplicate(Run& run) {
  PairColumns pair = ReadPairColumns(run, 4);
  const std::size_t n = pair.columns[0].values.size();
  pair.ids = ReadLabels(run, Text9, n, "ID");
  const auto unequal = [&](const Column& column) { return column.values.size() != n; };
  if (std::ranges::any_of(pair.columns, unequal)) FailForUnequalColumns(run, pair.columns);
  return pair;
}

}  // namespace MCregaM3

}  // namespace quorval
