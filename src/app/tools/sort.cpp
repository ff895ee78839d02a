// Sorts one column in ascending order, or two columns together by the first of them.
#include <array>
#include <numeric>

#include "app/tools/tool.h"
#include "core/conversion.h"
#include "core/intake.h"

namespace quorval {
namespace {

constexpr Choice kModes[] = {{"single", "Sort single column (asc.); Col no.:"},
                             {"paired", "Sort paired data:"}};
constexpr When kSingle{"mode", "single"};
constexpr When kPaired{"mode", "paired"};

constexpr Field kMode{
    .key = "mode", .kind = FieldKind::kChoice, .initial = "single", .choices = kModes};
constexpr Field kColumn{.key = "column", .enabled = {kSingle}, .beside = kSingle};
constexpr Field kKeyColumn{
    .key = "key-column", .caption = "Sort key (asc.)col no.:", .enabled = {kPaired}};
constexpr Field kSecondColumn{
    .key = "second-column", .caption = "Sec. col no.:", .enabled = {kPaired}};
constexpr Field kFields[] = {kMode, kColumn, kKeyColumn, kSecondColumn};

constexpr Dialog frmSort{.window = "frmSort", .title = "Sort", .fields = kFields};
static_assert(WellFormed(frmSort));

// The places of the elements in ascending order; equal elements stay in theirs.
std::vector<std::size_t> Order(const Sample& keys) {
  std::vector<std::size_t> order(keys.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, {}, [&](std::size_t i) { return keys[i]; });
  return order;
}

// By text: a number cell keeps its format.
void WriteInOrder(ToolRun& run, int column, const Sample& values,
                  const std::vector<std::size_t>& order) {
  for (int row = 1; std::size_t i : order)
    run.worksheet.SetText(column, row++, ShortestText(values[i]));
}

void RefuseTooFew(const ToolRun& run, std::size_t N) {
  if (N < 2) run.Refuse(" Sample size < 2: No analysis ");
}

void SortSingle(ToolRun& run) {
  const int column = ColumnOf(run, kColumn);
  const Column cells = WalkColumn(run.notices, run.worksheet, column);
  RefuseTooFew(run, cells.values.size());
  const Sample values = cells.Numbers(run.notices);
  WriteInOrder(run, column, values, Order(values));
}

void SortPaired(ToolRun& run) {
  const int key_column = ColumnOf(run, kKeyColumn);
  const int second_column = ColumnOf(run, kSecondColumn);
  const Column key_cells = WalkColumn(run.notices, run.worksheet, key_column);
  const Column second_cells = WalkColumn(run.notices, run.worksheet, second_column);
  NoteLengths(run.notices, LengthsOf(std::array{key_cells, second_cells}));
  if (key_cells.values.size() != second_cells.values.size())
    run.Refuse("Unequal numbers of observations in paired cols: no sorting");
  RefuseTooFew(run, key_cells.values.size());
  const Sample keys = key_cells.Numbers(run.notices);
  const Sample seconds = second_cells.Numbers(run.notices);
  const std::vector<std::size_t> order = Order(keys);
  WriteInOrder(run, key_column, keys, order);
  WriteInOrder(run, second_column, seconds, order);
}

void RunSort(ToolRun& run) {
  if (run.form.Holds(kSingle)) {
    SortSingle(run);
  } else {
    SortPaired(run);
  }
}

}  // namespace

constinit const Tool kSortTool{
    .id = "sort",
    .command = Command::kSort,
    .dialog = &frmSort,
    .failure = {.fault = "Error occurred in sorting"},
    .run = RunSort,
    .manual = "data-tools.md",
};

}  // namespace quorval
