// Every analysis on a worksheet that all of them can read, so that one of its cells can be spoilt:
// tests/data/notices.txt.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "analyses/registry.h"
#include "support/data_table.h"

namespace quorval::test {

struct NoticeCase {
  std::string analysis;
  Settings settings{};
  std::vector<int> columns{};  // of the data, as the analysis reads them
  Words failure{};             // the boxes of a word among them
  std::string blank, caption;  // a field that must not be empty, what it is called,
  Words refusal{};             // and the boxes where it is
  Words unequal{};             // those of a last column that is shorter; none: it may be
  int labels = 0;              // a column that is taken by position
};

inline void PrintTo(const NoticeCase& one, std::ostream* out) { *out << one.analysis; }

inline constexpr int kRows = 24;  // of each column

// Five columns from column 2 on that grow with their number and their row, and scatter.
inline Worksheet SoundWorksheet() {
  Worksheet worksheet;
  for (int row = 1; row <= kRows; ++row) {
    worksheet.SetText(1, row, "s" + std::to_string(row));
    for (int column = 2; column <= 6; ++column)
      worksheet.SetText(column, row,
                        ShortestText(Real(10) * column + row + 0.375 * (row * column * 7 % 5)));
  }
  return worksheet;
}

inline std::vector<NoticeCase> NoticeCases() {
  std::vector<NoticeCase> cases;
  for (const TableLine& line : ReadTable("notices.txt")) {
    NoticeCase& one = cases.emplace_back(NoticeCase{.analysis = line.name,
                                                    .settings = SettingsOf(line[0]),
                                                    .failure = line[2],
                                                    .blank = line[3][0],
                                                    .caption = line[3][1],
                                                    .refusal = line[4],
                                                    .unequal = line[5]});
    for (const std::string& column : line[1]) one.columns.push_back(std::stoi(column));
    if (!line[6].empty()) one.labels = std::stoi(line[6][0]);
  }
  return cases;
}

// --- One fault each

constexpr int kGap = 22, kWord = 19;

// The columns end three rows early, with two numbers below the gap.
inline Worksheet WithGaps(const NoticeCase& one) {
  Worksheet worksheet = SoundWorksheet();
  for (int column : one.columns) worksheet.SetText(column, kGap, "");
  return worksheet;
}

inline Worksheet WithWord(int column) {
  Worksheet worksheet = SoundWorksheet();
  worksheet.SetText(column, kWord, "<0.5");
  return worksheet;
}

inline Worksheet WithShorterColumn(const NoticeCase& one) {
  Worksheet worksheet = SoundWorksheet();
  worksheet.SetText(one.columns.back(), kRows, "");
  return worksheet;
}

inline Settings WithBlank(const NoticeCase& one) {
  Settings settings = one.settings;
  settings.emplace_back(one.blank, "");
  return settings;
}

}  // namespace quorval::test
