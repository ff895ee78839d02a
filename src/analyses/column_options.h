// Options that name a column of the worksheet, or adjacent columns.
#pragma once

#include <string_view>

#include "core/run.h"

namespace quorval {

inline constexpr std::string_view kOptionRefused = "Incompatible option value(s)";
inline constexpr std::string_view kWorksheetColumnRefused = "Selected column no. < 1 or > 500!";

inline constexpr Demand kWorksheetColumn{.reading = Reading::kTextAsInt16,
                                         .least = 1,
                                         .most = Worksheet::kColumns,
                                         .refusal = kWorksheetColumnRefused};
// A limit in SDs.
inline constexpr Demand kPositiveLimit{
    .reading = Reading::kTextAsNumber32, .above = 0, .refusal = kOptionRefused};

// The columns that a run accepts: 1 to `last`.
struct ColumnLimit {
  int last;
  std::string_view refusal;
};
inline constexpr ColumnLimit kThirtyColumns{30, " Selected column no. < 1 or > 30: No analysis "};
inline constexpr ColumnLimit kAllColumns{Worksheet::kColumns,
                                         " Selected column no. < 1 or > 500: No analysis "};

// The column that a field names; refused outside the limit.
int TakeColumn(const Run& run, const Field& field, const ColumnLimit& limit = kThirtyColumns);

struct ColumnSpan {
  int start, last;
};

// Adjacent columns; refused outside the limit, and in reverse order.
ColumnSpan TakeColumns(const Run& run, const Field& start, const Field& last,
                       const ColumnLimit& limit = kThirtyColumns);

}  // namespace quorval
