#include "analyses/difference/single.h"

namespace quorval::difference {

void RunSingle(Run& run) {
  const Options options = ReadOptions(run.form);
  const std::optional<UserLimits> limits = ReadUserLimits(run.form);
  const PairedData data = ReadSingle(run, options.scale);
  if (limits) {
    RunUserLimits(run, data, *limits, options);
  } else {
    RunEstimated(run, data, options);
  }
}

void WriteSingleHead(ResultsSheet& sheet, std::string_view title, const PairedData& data) {
  sheet.Frame(title, DateBeside::kAnalyst);
  sheet.Row(6, "  Number of (x, y) data points", data.Count());
  sheet.Row(7, "  x: Col no.", data.columns[0]);
  sheet.Row(8, "  y: Col no.", data.columns[1]);
}

}  // namespace quorval::difference
