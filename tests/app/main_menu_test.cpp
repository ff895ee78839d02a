#include "app/main_menu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "analyses/registry.h"
#include "app/examples.h"

namespace quorval {
namespace {

// A menu as one text: entries by "|", submenus in brackets.
std::string Outline(std::span<const MenuItem> items) {
  std::string outline;
  for (const MenuItem& item : items) {
    outline += "|" + std::string(item.caption);
    if (!item.items.empty()) outline += "[" + Outline(item.items) + "]";
  }
  return outline;
}

TEST(MainMenu, HasEveryEntryInOrder) {
  EXPECT_EQ(Outline(MainMenu()),
            "|&File[|&New Project|&Open Project|&Save Project|Save &As Project||"
            "Import File[|Excel file]|Import &Demo Data|Export File[|Export Excel file]||"
            "&Print...|Notepage||E&xit]"
            "|&Edit[|Cu&t|&Copy|&Paste]"
            "|&View[|&Toolbar|Status &Bar]"
            "|&Data[|&Sort|&Transform|&Format|Clear &Worksheet]"
            "|&Statistics"
            "|&Help[|&Contents|&Search For Help On...|&Tutorial||&About ]");
  EXPECT_EQ(Outline(MouseMenu()), "|Cut|Copy|Paste");
  EXPECT_EQ(Outline(ToolbarButtons()), "|New|Open|Save|Print|Cut|Copy|Paste");
}

TEST(StatisticsMenu, HasEveryEntryInOrder) {
  std::string outline;
  for (const MenuEntry& entry : StatisticsMenu()) {
    outline += "|" + std::string(entry.caption);
    for (const MenuEntry& inner : entry.chooser) outline += "/" + std::string(inner.caption);
  }
  EXPECT_EQ(outline,
            "|&Method Evaluation/Detection Limit (DL) and LOQ:/Precision (Single Level):"
            "/Precision Profile:/Trueness (Accuracy) Profile:/Linearity:"
            "|&Control Chart|&Difference Plot (Bland-Altman)"
            "|&Ord. Least Squares Regression Analysis"
            "|&Weighted  Least Squares Regression Analysis|D&eming Regression Analysis"
            "|Weighted De&ming Regression Analysis|Passing-Bablok regression"
            "|Polynomial Regression Analysis|&Reference Interval|D&iagnostic test Evaluation"
            "|&Comparison of Diagnostic tests|&General Statistics: One Sample"
            "|General Statistics: &Two Samples (t-test etc)"
            "|General Statistics: Several Samples ");
}

TEST(Analyses, HaveIdsOfTheirOwnAndWellFormedDialogs) {
  std::set<std::string_view> ids;
  for (const MenuEntry& entry : Analyses()) {
    EXPECT_TRUE(ids.insert(entry.analysis->id).second) << entry.analysis->id;
    EXPECT_EQ(FindAnalysis(entry.analysis->id), entry.analysis);
    EXPECT_TRUE(WellFormed(*entry.analysis->dialog)) << entry.analysis->id;
    EXPECT_FALSE(entry.analysis->manual.empty()) << entry.analysis->id;
  }
  EXPECT_EQ(FindAnalysis("none"), nullptr);
}

TEST(Examples, AreNamedAsInTheMenu) {
  std::string names;
  for (const Example& example : Examples()) names += "|" + std::string(example.menu);
  EXPECT_EQ(names,
            "|Detection Limit Example|Precision profile example|Evaluation of linearity example"
            "|Control Chart Example|XY Regression Single|XY Regression Duplicate"
            "|Polynomial regression|Reference Interval Example"
            "|Evaluation of a single diagnostic test|Comparison of two diagnostic tests");
}

}  // namespace
}  // namespace quorval
