#include "analyses/difference/listing.h"

namespace quorval::difference {

void WriteListing(ResultsSheet& sheet, const ListingLayout& layout, const PairedData& data,
                  const Scale& scale) {
  sheet.Row(layout.heading,
            scale.Word("Display of x, y, diffs and rel. diffs", layout.percent_heading));
  sheet.Row(layout.column_heads, "X", "Y", "Y-X", scale.Word("Rel. Y-X", layout.percent_column));
  int row = layout.first_pair;
  for (std::size_t i = 0; i < data.x.size(); ++i)
    sheet.Row(row++, data.x[i], data.y[i], data.difference[i], (*data.relative)[i]);
}

}  // namespace quorval::difference
