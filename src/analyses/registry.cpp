#include "analyses/registry.h"

#include <algorithm>

namespace quorval {
namespace {

constexpr MenuEntry kMethodEvaluation[] = {
    {"Detection Limit (DL) and LOQ:", &methodeval::kDetectionLimit},
    {"Precision (Single Level):", &methodeval::kPrecision},
    {"Precision Profile:", &methodeval::kPrecisionProfile},
    {"Trueness (Accuracy) Profile:", &methodeval::kTruenessProfile},
    {"Linearity:", &methodeval::kLinearity},
};

constexpr MenuEntry kStatisticsMenu[] = {
    {.caption = "&Method Evaluation", .chooser = kMethodEvaluation},
    {"&Control Chart", &methodeval::kControlChart},
    {"&Difference Plot (Bland-Altman)", &difference::kDifference},
    {"&Ord. Least Squares Regression Analysis", &regression::kOls},
    {"&Weighted  Least Squares Regression Analysis", &regression::kWls},
    {"D&eming Regression Analysis", &regression::kDeming},
    {"Weighted De&ming Regression Analysis", &regression::kWeightedDeming},
    {"Passing-Bablok regression", &regression::kPassingBablok},
    {"Polynomial Regression Analysis", &regression::kPolynomial},
    {"&Reference Interval", &reference::kReference},
    {"D&iagnostic test Evaluation", &diagnostic::kDiagnostic},
    {"&Comparison of Diagnostic tests", &diagnostic::kCompareTests},
    {"&General Statistics: One Sample", &general::kOneSample},
    {"General Statistics: &Two Samples (t-test etc)", &general::kTwoSamples},
    {"General Statistics: Several Samples ", &general::kSeveralSamples},
};

void Collect(std::span<const MenuEntry> menu, std::vector<MenuEntry>& entries) {
  for (const MenuEntry& entry : menu) {
    if (entry.analysis != nullptr) entries.push_back(entry);
    Collect(entry.chooser, entries);
  }
}

}  // namespace

std::span<const MenuEntry> StatisticsMenu() { return kStatisticsMenu; }

std::vector<MenuEntry> Analyses() {
  std::vector<MenuEntry> entries;
  Collect(kStatisticsMenu, entries);
  return entries;
}

const Analysis* FindAnalysis(std::string_view id) {
  for (const MenuEntry& entry : Analyses())
    if (entry.analysis->id == id) return entry.analysis;
  return nullptr;
}

}  // namespace quorval
