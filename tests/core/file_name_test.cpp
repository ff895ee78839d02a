#include "core/file_name.h"

#include <gtest/gtest.h>

namespace quorval {
namespace {

TEST(FileName, KnowsExtensionsInAnyCase) {
  const struct {
    const char* name;
    const char* extension;
  } cases[] = {{"DATA.CSV", ".csv"}, {"a/b.Xlsx", ".xlsx"}, {"b.qvl", ".qvl"},
               {"Glucose 2.5", ""},  {"Dr. Ames", ""},      {"none", ""},
               {".hidden", ""},      {"two.tar.gz", ".gz"}, {"", ""}};
  for (const auto& [name, extension] : cases) EXPECT_EQ(ExtensionOf(name), extension) << name;
}

TEST(FileName, ProposesNamesThatAFileCanBear) {
  const struct {
    std::string title, name;
  } cases[] = {{"Glucose mg/dL", "Glucose mg-dL"},
               {"a\\b:c*d?e\"f<g>h|i", "a-b-c-d-e-f-g-h-i"},
               {"two\nlines\t", "two-lines-"},
               {"..", "-."},
               {"µmol/L", "µmol-L"},
               {"Project 1 ", "Project 1 "}};
  for (const auto& [title, name] : cases) EXPECT_EQ(FileNameOf(title), name);
  std::string letters;  // of two bytes each, shifted by one so that a cut falls between them
  for (int i = 0; i < 150; ++i) letters += "µ";
  const std::string cut = FileNameOf("n" + letters);
  EXPECT_LE(cut.size(), 200U);
  EXPECT_EQ(cut.size() % 2, 1U);
}

TEST(FileName, TakesTheExtensionOfTheChosenFilter) {
  const std::vector<std::string> filters{
      "Excel file (*.xls)|*.xls", "Comma separated (*.csv)|*.csv", "Tab separated|*.tsv;*.txt"};
  const struct {
    const char* typed;
    std::size_t chosen;
    const char* by_default;
    const char* completed;
  } cases[] = {{"results", 1, "", "results.csv"},     {"results", 2, "", "results.tsv"},
               {"results", 0, "", "results.xls"},     {"results.XLS", 1, "", "results.XLS"},
               {"results.txt", 0, "", "results.txt"}, {"Glucose 2.5", 1, "", "Glucose 2.5.csv"},
               {"a.qvl", 0, ".ss6", "a.qvl"},         {"a", 0, ".ss6", "a.ss6"},
               {"a.odd", 1, "", "a.odd.csv"}};
  for (const auto& [typed, chosen, by_default, completed] : cases)
    EXPECT_EQ(CompletedName(typed, filters, chosen, by_default), completed) << typed;
}

}  // namespace
}  // namespace quorval
