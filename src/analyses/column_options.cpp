#include "analyses/column_options.h"

#include <string>

namespace quorval {

int TakeColumn(const Run& run, const Field& field, const ColumnLimit& limit) {
  const int column = run.form.TextAsInt16(field);
  if (column < 1 || column > limit.last) {
    run.form.Note(field, "; this analysis reads the columns 1 to " + std::to_string(limit.last));
    run.Refuse(limit.refusal);
  }
  return column;
}

ColumnSpan TakeColumns(const Run& run, const Field& start, const Field& last,
                       const ColumnLimit& limit) {
  const ColumnSpan span{TakeColumn(run, start, limit), TakeColumn(run, last, limit)};
  if (span.last < span.start) {
    run.form.Note(last, "; the first column is " + std::to_string(span.start));
    run.Refuse(limit.refusal);
  }
  return span;
}

}  // namespace quorval
