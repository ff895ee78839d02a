// The columns that tests/independent/general_statistics.py computes on.
#pragma once

#include "support/analysis_cases.h"

namespace quorval::test {

inline const std::vector<std::string> kGlucose{"5.1", "4.8", "6.2", "5.5", "5.1", "7.9",
                                               "4.4", "5.9", "6.6", "5.1", "5.7", "4.9"};
inline const std::vector<std::string> kAfter{"5.6", "5.3", "6.1", "6.4", "5.9", "8.4",
                                             "5.3", "6.1", "6.6", "6.0", "6.3", "5.2"};

// Runs on columns 2 and 3 with titles.
inline Transcript RunTitled(const Analysis& analysis, const Columns& columns,
                            const Settings& settings) {
  Worksheet worksheet;
  const char* titles[] = {"Glucose", "After"};
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const int column = static_cast<int>(i) + 2;
    worksheet.SetText(column, 0, titles[i]);
    for (std::size_t row = 0; row < columns[i].size(); ++row)
      worksheet.SetText(column, static_cast<int>(row) + 1, columns[i][row]);
  }
  return RunOn(worksheet, analysis, settings);
}

}  // namespace quorval::test
