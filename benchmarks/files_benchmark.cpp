// Reading and writing full worksheets, in every format, with the peak of the memory.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <filesystem>
#include <random>

#include "core/worksheet.h"
#include "formats/project_file.h"

namespace quorval {
namespace {

// Measurements of three decimals, 9999 rows of them below a title.
const Worksheet& Filled(int columns) {
  static std::map<int, Worksheet> made;
  Worksheet& worksheet = made[columns];
  if (worksheet.DataRowCnt() > 0) return worksheet;
  std::mt19937 random(1);
  for (int column = 1; column <= columns; ++column) {
    worksheet.SetText(column, 0, "Column " + std::to_string(column));
    for (int row = 1; row <= Worksheet::kLastRow; ++row)
      worksheet.SetValue(column, row, static_cast<double>(random() % 100000) / 1000);
  }
  return worksheet;
}

double PeakMegabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

std::filesystem::path PathOf(const char* extension) {
  return std::filesystem::temp_directory_path() / (std::string("quorval-benchmark") + extension);
}

void SaveProject(benchmark::State& state) {
  const Worksheet& worksheet = Filled(static_cast<int>(state.range(0)));
  for (auto _ : state) WriteProjectFile(PathOf(".qvl"), worksheet.grid(), {"name", "note"});
  state.counters["MB"] = PeakMegabytes();
  state.counters["file MB"] = static_cast<double>(std::filesystem::file_size(PathOf(".qvl"))) / 1e6;
}
BENCHMARK(SaveProject)->Arg(1)->Arg(20)->Arg(500)->Unit(benchmark::kMillisecond)->UseRealTime();

void OpenProject(benchmark::State& state) {
  WriteProjectFile(PathOf(".qvl"), Filled(static_cast<int>(state.range(0))).grid(), {});
  for (auto _ : state) benchmark::DoNotOptimize(ReadProjectFile(PathOf(".qvl")));
  state.counters["MB"] = PeakMegabytes();
}
BENCHMARK(OpenProject)->Arg(1)->Arg(20)->Arg(500)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace quorval
