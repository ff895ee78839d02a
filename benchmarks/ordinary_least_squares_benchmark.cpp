// From filled columns to the finished sheet and plots.
#include <benchmark/benchmark.h>

#include "analyses/registry.h"
#include "support/transcript.h"

namespace quorval {
namespace {

void OrdinaryLeastSquares(benchmark::State& state) {
  Worksheet worksheet;
  const int n = static_cast<int>(state.range(0));
  for (int row = 1; row <= n; ++row) {
    worksheet.SetValue(2, row, 1 + 0.01 * row);
    worksheet.SetValue(3, row, 1.1 + 0.0101 * row + 0.05 * (row % 7));
  }
  const Context context;
  const Form form(*regression::kOls.dialog);
  for (auto _ : state) {
    test::RecordedMessages messages;
    ResultsSheet sheet(context);
    Run run{form, worksheet, context, messages, sheet};
    benchmark::DoNotOptimize(Execute(ProcedureFor(regression::kOls, form), run));
  }
}
BENCHMARK(OrdinaryLeastSquares)->Arg(100)->Arg(9999)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quorval
