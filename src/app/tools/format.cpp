// Turns the cells of one column into number cells with so many decimals.
#include "app/tools/tool.h"
#include "core/conversion.h"
#include "core/intake.h"

namespace quorval {
namespace {

constexpr Field kColumn{.key = "column", .caption = "Select col no.:"};
constexpr Field kDecimals{.key = "decimals", .caption = "Number of decimal places:"};
constexpr Field kFields[] = {kColumn, kDecimals};

constexpr Dialog frmFormat{.window = "frmFormat", .title = "Format numbers", .fields = kFields};
static_assert(WellFormed(frmFormat));

// Row by row: a word ends it, and the rows above the word stay formatted.
void RunFormat(ToolRun& run) {
  const std::string& decimals = run.form.Text(kDecimals);
  static_cast<void>(run.form.TextAsInt16(kDecimals));
  const int column = ColumnOf(run, kColumn);
  const Column cells = WalkColumn(run.notices, run.worksheet, column);
  for (std::size_t i = 0; i < cells.values.size(); ++i)
    run.worksheet.SetNumber(column, static_cast<int>(i) + 1, cells.Number(run.notices, i),
                            ToDecimals(decimals));
}

}  // namespace

constinit const Tool kFormatTool{
    .id = "format",
    .command = Command::kFormat,
    .dialog = &frmFormat,
    .failure = {.fault = "Error occurred"},
    .run = RunFormat,
    .manual = "data-tools.md",
};

}  // namespace quorval
