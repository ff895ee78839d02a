#include "analyses/diagnostic/diagnostic.h"

#include <algorithm>

namespace quorval::diagnostic {

Range LimitsWithin(const Range& possible, Real estimate, Real margin) {
  return {std::max(estimate - margin, possible.min), std::min(estimate + margin, possible.max)};
}

void WriteNamesAndSizes(ResultsSheet& sheet, const DiagnosticGroups& groups,
                        std::string_view blank) {
  sheet.Row(7, "  Variable name for first group:", NameOr(blank, groups.FirstName));
  sheet.Row(8, kFirstCount(groups.N1()));
  sheet.Row(10, "  Variable name for second group:", NameOr(blank, groups.SecondName));
  sheet.Row(11, kSecondCount(groups.N2()));
}

Plot& AddRocPlot(Plots& plots, const PlotWindow& window) {
  Plot& plot = AddPlot(plots, window);
  plot.header = window.caption;
  plot.aspect = 1;
  return plot;
}

Points RocCurveOf(const CutOffSweep& sweep) {
  Points curve;
  for (std::size_t k = 0; k < sweep.SpecAt.size(); ++k)
    curve.push_back({1 - sweep.SpecAt[k], sweep.SensAt[k]});
  return curve;
}

}  // namespace quorval::diagnostic
