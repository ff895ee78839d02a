#include "analyses/column_options.h"

namespace quorval {
namespace {

bool Accepts(const ColumnLimit& limit, int column) { return column >= 1 && column <= limit.last; }

}  // namespace

bool OutsideWorksheet(const Form& form, const Field& column) {
  return !Accepts(kAllColumns, form.Column(column));
}

int TakeColumn(const Run& run, const Field& field, const ColumnLimit& limit) {
  const int column = run.form.Column(field);
  if (!Accepts(limit, column)) run.Refuse(limit.refusal);
  return column;
}

ColumnSpan TakeColumns(const Run& run, const Field& start, const Field& last,
                       const ColumnLimit& limit) {
  const ColumnSpan span{TakeColumn(run, start, limit), TakeColumn(run, last, limit)};
  if (span.last < span.start) run.Refuse(limit.refusal);
  return span;
}

}  // namespace quorval
