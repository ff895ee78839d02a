// Reading and writing full worksheets, in every format, with the peak of the memory.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <filesystem>
#include <map>
#include <random>

#include "core/worksheet.h"
#include "formats/project_file.h"
#include "formats/worksheet_file.h"

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

void WriteFile(benchmark::State& state, const char* extension) {
  const Worksheet& worksheet = Filled(static_cast<int>(state.range(0)));
  for (auto _ : state) WriteGrid(PathOf(extension), worksheet.grid());
  state.counters["MB"] = PeakMegabytes();
  state.counters["file MB"] =
      static_cast<double>(std::filesystem::file_size(PathOf(extension))) / 1e6;
}

void ReadFile(benchmark::State& state, const char* extension) {
  WriteGrid(PathOf(extension), Filled(static_cast<int>(state.range(0))).grid());
  for (auto _ : state) {
    Worksheet worksheet;
    ReadWorksheet(PathOf(extension), worksheet);
    benchmark::DoNotOptimize(worksheet);
  }
  state.counters["MB"] = PeakMegabytes();
}

BENCHMARK_CAPTURE(WriteFile, xls, ".xls")->Arg(20)->Arg(256)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadFile, xls, ".xls")->Arg(20)->Arg(256)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WriteFile, xlsx, ".xlsx")->Arg(20)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadFile, xlsx, ".xlsx")->Arg(20)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WriteFile, csv, ".csv")->Arg(20)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadFile, csv, ".csv")->Arg(20)->Arg(500)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quorval
