#pragma once

#include <string_view>

#include "analyses/difference/options.h"
#include "analyses/difference/paired_data.h"
#include "core/results_sheet.h"

namespace quorval::difference {

// Where the listing of all pairs stands, and how it calls the relative differences.
struct ListingLayout {
  int heading;
  int column_heads;
  int first_pair;
  std::string_view percent_heading = "Display of x, y, diffs and perc. diffs";
  std::string_view percent_column = "Perc. Y-X";
};

// x, y, y - x and the relative difference of every pair.
void WriteListing(ResultsSheet& sheet, const ListingLayout& layout, const PairedData& data,
                  const Scale& scale);

}  // namespace quorval::difference
