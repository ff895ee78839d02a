#include "analyses/diagnostic/diagnostic.h"

#include <algorithm>

namespace quorval::diagnostic {

Range LimitsWithin(const Range& possible, Real estimate, Real margin) {
  return {std::max(estimate - margin, possible.min), std::min(estimate + margin, possible.max)};
}

void WriteNamesAndSizes(ResultsSheet& sheet, const TwoGroups& groups, std::string_view blank) {
  sheet.Row(7, "  Variable name for first group:", NameOr(blank, groups.FirstName));
  sheet.Row(8, "  Number of observations for first group: ", groups.N1());
  sheet.Row(10, "  Variable name for second group:", NameOr(blank, groups.SecondName));
  sheet.Row(11, "  Number of observations for second group: ", groups.N2());
}

}  // namespace quorval::diagnostic
