// Every analysis at least once, on an example that it can run on.
#pragma once

#include <ostream>
#include <utility>
#include <vector>

namespace quorval::test {

// On its example, with the columns where the fields stand empty or point elsewhere.
struct ExampleRun {
  const char* analysis;
  const char* example;
  std::vector<std::pair<const char*, const char*>> settings{};
};

inline void PrintTo(const ExampleRun& one, std::ostream* out) {
  *out << one.analysis << ", " << one.example;
}

inline const ExampleRun kExampleRuns[] = {
    {"ols", "XY Regression Single", {{"show-residuals", "on"}, {"show-bands", "on"}}},
    {"ols", "XY Regression Duplicate", {{"mode", "duplicate"}}},
    {"wls", "XY Regression Single"},
    {"deming", "XY Regression Single", {{"xc1", "10"}}},
    {"deming", "XY Regression Duplicate", {{"mode", "duplicate"}, {"show-residuals", "on"}}},
    {"weighted-deming", "XY Regression Duplicate", {{"mode", "duplicate"}}},
    {"passing-bablok", "XY Regression Single", {{"show-residuals", "on"}}},
    {"polynomial", "Polynomial regression", {{"degree", "3"}}},
    {"difference", "XY Regression Single", {{"show-data", "on"}}},
    {"difference", "XY Regression Duplicate", {{"mode", "duplicate"}, {"scale", "percent"}}},
    {"reference", "Reference Interval Example"},
    {"reference", "Reference Interval Example", {{"procedure", "power"}}},
    {"diagnostic", "Evaluation of a single diagnostic test", {{"cut-off-by", "max-sum"}}},
    {"diagnostic",
     "Evaluation of a single diagnostic test",
     {{"evaluation", "roc"}, {"area-se", "on"}}},
    {"compare-tests", "Comparison of two diagnostic tests", {{"difference-se", "on"}}},
    {"one-sample",
     "Reference Interval Example",
     {{"percentiles", "on"}, {"percentile1", "25"}, {"percentile1-se", "on"}}},
    {"two-samples", "XY Regression Single"},
    {"two-samples", "XY Regression Single", {{"test", "wilcoxon"}}},
    {"several-samples",
     "Precision profile example",
     {{"start-column", "2"}, {"last-column", "4"}, {"outlier-limit", "1.65"}}},
    {"control-chart", "Control Chart Example"},
    {"detection-limit", "Detection Limit Example", {{"loq", "off"}, {"dl-column", "2"}}},
    {"precision", "Precision profile example", {{"column", "2"}}},
    {"precision-profile",
     "Precision profile example",
     {{"start-column", "2"}, {"last-column", "4"}}},
    {"trueness-profile",
     "Precision profile example",
     {{"start-column", "2"}, {"last-column", "4"}}},
    {"linearity", "Evaluation of linearity example", {{"start-column", "2"}, {"last-column", "5"}}},
};

}  // namespace quorval::test
