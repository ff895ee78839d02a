// All analyses, in the order and with the captions of the Statistics menu.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "core/analysis.h"

namespace quorval {

// An entry of the menu, or of the method evaluation chooser that one entry opens.
struct MenuEntry {
  std::string_view caption;
  const Analysis* analysis = nullptr;    // none: the entry is grey
  std::span<const MenuEntry> chooser{};  // one "Enter" button each
};

// The window behind "&Method Evaluation".
inline constexpr std::string_view kChooserWindow = "frmMethodEval";
inline constexpr std::string_view kChooserHead =
    "Method Performance:  Detection Limit (DL), Lower Limit of Quantitation (LOQ), Precision, "
    "Precision Profile, Trueness Profile, and Linearity. ";

std::span<const MenuEntry> StatisticsMenu();

// Every entry that leads to an analysis, in the order of the menu.
std::vector<MenuEntry> Analyses();

// The analysis of this id; null where there is none.
const Analysis* FindAnalysis(std::string_view id);

namespace methodeval {
extern const Analysis kControlChart;
extern const Analysis kDetectionLimit;
extern const Analysis kLinearity;
extern const Analysis kPrecision;
extern const Analysis kPrecisionProfile;
extern const Analysis kTruenessProfile;
}  // namespace methodeval

namespace diagnostic {
extern const Analysis kCompareTests;
extern const Analysis kDiagnostic;
}  // namespace diagnostic

namespace difference {
extern const Analysis kDifference;
}  // namespace difference

namespace regression {
extern const Analysis kOls;
extern const Analysis kWls;
extern const Analysis kDeming;
extern const Analysis kWeightedDeming;
extern const Analysis kPassingBablok;
extern const Analysis kPolynomial;
}  // namespace regression

namespace reference {
extern const Analysis kReference;
}  // namespace reference

namespace general {
extern const Analysis kOneSample;
extern const Analysis kTwoSamples;
extern const Analysis kSeveralSamples;
}  // namespace general

}  // namespace quorval
