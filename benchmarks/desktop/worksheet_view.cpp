// The worksheet on the screen: opening a full sheet, and scrolling it from end to end.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QScrollBar>

#include "core/worksheet.h"
#include "desktop/sheet_view.h"

namespace quorval {
namespace {

void Fill(Worksheet& worksheet) {
  for (int column = 1; column <= Worksheet::kColumns; ++column)
    for (int row = 1; row <= Worksheet::kLastRow; ++row)
      worksheet.SetValue(column, row, 0.01 * row + column);
}

Worksheet& FullWorksheet() {
  static Worksheet worksheet;
  if (worksheet.DataRowCnt() == 0) Fill(worksheet);
  return worksheet;
}

void OpenFullWorksheet(benchmark::State& state) {
  Worksheet& worksheet = FullWorksheet();
  for (auto _ : state) {
    SheetView view(worksheet.grid(), 0, nullptr);
    view.resize(1200, 800);
    view.show();
    QApplication::processEvents();
    benchmark::DoNotOptimize(view.grab());
  }
}
BENCHMARK(OpenFullWorksheet)->Unit(benchmark::kMillisecond);

void ScrollFullWorksheet(benchmark::State& state) {
  SheetView view(FullWorksheet().grid(), 0, nullptr);
  view.resize(1200, 800);
  view.show();
  for (auto _ : state) {
    for (int tenth = 0; tenth <= 10; ++tenth) {
      view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum() * tenth / 10);
      view.horizontalScrollBar()->setValue(view.horizontalScrollBar()->maximum() * tenth / 10);
      benchmark::DoNotOptimize(view.grab());
    }
  }
}
BENCHMARK(ScrollFullWorksheet)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quorval

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
