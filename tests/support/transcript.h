// Runs an analysis on columns as a user would and keeps what the user sees.
#pragma once

#include <initializer_list>
#include <map>
#include <optional>
#include <ostream>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/analysis.h"
#include "core/conversion.h"

namespace quorval {

inline void PrintTo(const Notice& notice, std::ostream* out) {
  *out << notice.kind << " (" << notice.column.value_or(0) << ", " << notice.row.value_or(0)
       << "): " << notice.text;
}

}  // namespace quorval

namespace quorval::test {

struct RecordedMessages : Messages {
  std::vector<std::string> boxes;
  void Tell(std::string_view text) override { boxes.emplace_back(text); }
};

// Columns of a worksheet from column 2 on, as the dialogs expect them; row 1 first.
using Columns = std::vector<std::vector<std::string>>;
using Settings = std::vector<std::pair<std::string, std::string>>;

inline std::vector<std::string> TextsOf(std::span<const double> values) {
  std::vector<std::string> texts;
  for (double value : values) texts.push_back(ShortestText(value));
  return texts;
}

struct Transcript {
  Outcome outcome = Outcome::kRefused;
  std::vector<std::string> boxes;
  Grid sheet{ResultsSheet::kColumns, ResultsSheet::kRows};
  std::vector<Plot> plots;
  Notices notices;

  std::string Text(int row, int column) const { return sheet.Text(column, row); }
  // NaN where the cell holds no number.
  double Value(int row, int column) const {
    return sheet.At(column, row).value.value_or(std::numeric_limits<double>::quiet_NaN());
  }
  const Plot& PlotOf(std::string_view window) const {
    for (const Plot& plot : plots)
      if (plot.window == window) return plot;
    throw std::out_of_range("no plot " + std::string(window));
  }
};

// Presses OK: the dialog's rules first, then the run.
inline Transcript RunOn(const Worksheet& worksheet, const Analysis& analysis,
                        const Settings& settings = {}, const Context& context = {}) {
  Form form(*analysis.dialog);
  for (const auto& [key, text] : settings) form.Set(key, text);

  Transcript transcript;
  if (const auto refusal = form.BrokenRule(transcript.notices); !refusal.empty()) {
    transcript.boxes.emplace_back(refusal);
    return transcript;
  }
  RecordedMessages messages;
  ResultsSheet sheet(context);
  Run run{form, worksheet, context, messages, sheet};
  transcript.outcome = Execute(ProcedureFor(analysis, form), run);
  transcript.boxes = messages.boxes;
  transcript.sheet = sheet.grid();
  transcript.plots = run.plots;
  transcript.notices = run.notices;
  return transcript;
}

inline Transcript RunAnalysis(const Analysis& analysis, const Columns& columns,
                              const Settings& settings = {}, const Context& context = {}) {
  Worksheet worksheet;
  for (std::size_t i = 0; i < columns.size(); ++i)
    for (std::size_t row = 0; row < columns[i].size(); ++row)
      worksheet.SetText(static_cast<int>(i) + 2, static_cast<int>(row) + 1, columns[i][row]);
  return RunOn(worksheet, analysis, settings, context);
}

}  // namespace quorval::test
