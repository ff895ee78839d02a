// Every analysis on a worksheet that all of them can read, so that one of its cells can be spoilt.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "analyses/registry.h"
#include "support/transcript.h"

namespace quorval::test {

struct NoticeCase {
  std::string analysis;
  Settings settings;
  std::vector<int> columns;          // of the data, as the analysis reads them
  std::vector<std::string> failure;  // the boxes of a word among them
  std::string blank;                 // a field that must not be empty,
  std::string caption;               // what it is called,
  std::vector<std::string> refusal;  // and the boxes where it is
  std::vector<std::string>
      unequal{};   // the boxes of a last column that is shorter; none: it may be
  int labels = 0;  // a column that is taken by position
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
  const std::vector<std::string> unequal{"Unequal number of observations in columns: No analysis",
                                         "Error occurred"};
  const std::vector<std::string> error{"Error occurred"};
  const std::vector<std::string> option{"Incompatible option value(s)"};
  const std::vector<std::string> thirty{"Selected column no. < 1 or > 30!"};
  const std::string difference_failure = "Error occurred in Difference Plot analysis";
  const Settings duplicate{{"mode", "duplicate"}};
  const std::vector<int> two{2, 3}, four{2, 3, 4, 5};
  const std::string limit = "Specify number of standard deviations as outlier rejection limit:";
  const auto span = [](Settings settings) {
    settings.insert(settings.end(), {{"start-column", "2"}, {"last-column", "4"}});
    return settings;
  };
  return {
      {"ols",
       {},
       two,
       error,
       "outlier-limit",
       limit,
       {"Negative value for Outlier limit not allowed!"},
       unequal,
       1},
      {"ols",
       duplicate,
       four,
       error,
       "third-column",
       "y1:",
       {"Selected column no. not allowed!"},
       unequal,
       1},
      {"wls", {}, two, error, "outlier-limit", limit, option, unequal, 1},
      {"deming",
       {},
       two,
       error,
       "sd-ratio",
       "Enter x/y analytical standard deviation ratio (lSDax/SDay):",
       option,
       unequal,
       1},
      {"weighted-deming", duplicate, four, error, "outlier-limit", limit, option, unequal, 1},
      {"passing-bablok",
       {},
       two,
       error,
       "second-column",
       "y:",
       {"Selected column no. not allowed!"},
       unequal,
       1},
      {"polynomial",
       {},
       two,
       {"Error"},
       "outlier-limit",
       "No. of SD units for outlier:",
       {"Error"},
       {" Unequal numbers of x and y values: No analysis"}},
      {"difference",
       {},
       two,
       {difference_failure},
       "outlier-limit",
       "Specify number of standard deviations as outlier limit:",
       option,
       {"Unequal number of observations in columns: No analysis", " n < 3: No analysis "},
       1},
      {"difference",
       duplicate,
       four,
       {difference_failure},
       "id",
       "ID:",
       {difference_failure},
       {"Unequal number of observations in columns: No analysis"},
       1},
      {"reference",
       {{"procedure", "direct"}},
       {2},
       {"Error"},
       "outlier-limit",
       "Outlier detection limit (SD)",
       {"Outlier detection limit should be a positive number of SD\u00B4s"}},
      {"diagnostic",
       {},
       two,
       {"Error"},
       "cut-off-percentile",
       "Cut off as percentile of first sample:",
       {"Error in Specificity/Sensitivity routine", "Error"}},
      {"compare-tests",
       {{"difference-se", "on"}},
       four,
       {"Error"},
       "fourth-column",
       "Diagnostic test 2: Second Sample (diseased): Col. No.:",
       {"Error"},
       {"Paired ROC-Curve comparison can not be performed because of unequal sample sizes",
        "Error"}},
      {"one-sample",
       {},
       {2},
       {"Error"},
       "outlier-limit",
       "Outlier limit (SD)  (assuming normality)",
       {"Error"}},
      {"two-samples",
       {{"test", "paired-t"}},
       two,
       {"Error"},
       "second-column",
       "Second Sample: No.:",
       {"Error"},
       {"Unequal size of groups 1 and 2: No paired analysis", "Error"}},
      {"several-samples",
       span({}),
       {2, 3, 4},
       error,
       "outlier-limit",
       "No. of SD units as outlier rejection limit:",
       option},
      {"control-chart",
       {{"mean-column", "3"}, {"sd-column", "2"}, {"date-column", "4"}},
       {5},
       {"Error occurred in control chart analysis"},
       "sd-column",
       "Assigned SD of control from col no. (row 1):",
       {"Selected column no. < 1 or > 500!"},
       {},
       4},
      {"detection-limit",
       {{"dl-column", "2"}, {"loq-column", "3"}},
       two,
       {"Error occurred in DL/LOQ analysis"},
       "loq-column",
       "Lower Limit of Quantitation (LOQ): Compute SD from Data Column No.:",
       {"No column no. was selected for LOQ analysis!"}},
      {"detection-limit",
       {{"procedure", "b"}, {"blank-column", "2"}, {"start-column", "3"}, {"last-column", "4"}},
       {2, 3, 4},
       {"Error occurred in DL/LOQ analysis"},
       "start-column",
       "Data Column No. (start):",
       {"No column start no. was selected for low sample measurements!"}},
      {"precision",
       {},
       {2},
       {"Error occurred in Precision analysis"},
       "outlier-limit",
       "Single run: No. of SD units as outlier rejection limit:",
       option},
      {"precision",
       span({{"mode", "several"}}),
       {2, 3, 4},
       {"Error occurred in Precision analysis"},
       "last-column",
       "Data Column No. (last):",
       thirty},
      {"precision-profile",
       span({}),
       {2, 3, 4},
       {"Error occurred in Precision Profile analysis"},
       "start-column",
       "Compute means and SD from       Data Column No.(start):",
       thirty},
      {"precision-profile",
       {{"mode", "pairs"}, {"level-column", "2"}, {"sd-column", "3"}},
       two,
       {"Error occurred in Precision Profile analysis"},
       "sd-column",
       "SD values from Data Column No.:",
       thirty,
       {"Error occurred in Precision Profile analysis"}},
      {"trueness-profile",
       span({}),
       {2, 3, 4},
       {"Error occurred in Trueness Profile analysis"},
       "outlier-limit",
       "No. of SD units as outlier rejection limit:",
       option},
      {"trueness-profile",
       {{"mode", "pairs"}, {"true-column", "2"}, {"mean-column", "3"}, {"sem-column", "4"}},
       {2, 3, 4},
       {"Error occurred in trueness Profile analysis"},
       "mean-column",
       "Measured means from Data Column No.:",
       thirty,
       {"Error occurred in trueness Profile analysis"}},
      {"linearity",
       span({{"procedure", "wls"}}),
       {2, 3, 4},
       {"Error occurred in Linearity analysis"},
       "weighting-exponent",
       "Weighting exponent (0 - 2; 2 corr. to proportional weighting)",
       {"Error occurred in Linearity analysis"}},
  };
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
