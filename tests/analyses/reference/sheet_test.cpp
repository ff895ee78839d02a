// The layout of the sheets: every text at its place, and nothing else.
#include <gtest/gtest.h>

#include "analyses/reference/samples.h"

namespace quorval::reference {
namespace {

using Labels = std::map<int, std::string>;  // by row, of column 1

Labels LabelsOf(const test::Transcript& transcript) {
  Labels labels;
  for (int row = 1; row <= transcript.sheet.DataRowCnt(); ++row)
    if (const std::string text = transcript.Text(row, 1); !text.empty()) labels[row] = text;
  return labels;
}

Labels With(Labels labels, const Labels& others) {
  for (const auto& [row, text] : others) labels[row] = text;
  return labels;
}

const Labels kHead{{2, "  Results of Reference interval estimation"},
                   {3, "  Project:"},
                   {4, "  Analyst: "},
                   {9, "  Number of observations: "},
                   {10, "  Total range: "}};

const Labels kNonparametric = With(kHead, {{11, "  Median: "},
                                           {12, "  Nonparametric reference interval estimates: "},
                                           {13, "  2.5-Percentile:   "},
                                           {14, "  90%-confidence interval:"},
                                           {15, "  97.5-Percentile:   "},
                                           {16, "  90%-confidence interval:"}});

const Labels kParametric = With(kHead, {{15, "  2.5-Percentile:   "},
                                        {16, "  90%-confidence interval:"},
                                        {17, "  97.5-Percentile:   "},
                                        {18, "  90%-confidence interval:"},
                                        {20, "  P "},
                                        {22, "  No outliers  "},
                                        {23, "  Number of SDs as outlier limit: "}});

const Labels kTransformed = With(
    kParametric,
    {{33, "  Total range "}, {39, "  No outliers  "}, {40, "  Number of SDs as outlier limit: "}});

TEST(ReferenceSheet, HasTheTextsOfItsProcedure) {
  const struct {
    const char *procedure, *rule;
    Labels labels;
  } cases[] = {
      {"nonparametric", "simple-n-half",
       With(kNonparametric, {{5, "  Analyte: "},
                             {7, "  Simple nonparametric procedure (default)"},
                             {8, "  Percentiles as (2.5/100)N+0.5 and (97.5/100)N+0.5"}})},
      {"nonparametric", "simple-n-plus-1",
       With(kNonparametric, {{5, " Variable:"},
                             {7, "  Simple nonparametric procedure "},
                             {8, "  Percentiles as (2.5/100)(N+1) and (97.5/100)(N+1)"}})},
      {"nonparametric", "bootstrap-n-half",
       With(kNonparametric, {{5, "  Analyte: "},
                             {7, "  Bootstrap nonparametric procedure "},
                             {8, "  Bootstraps of (2.5/100)N+0.5 and (97.5/100)N+0.5"}})},
      {"nonparametric", "bootstrap-n-plus-1",
       With(kNonparametric, {{5, " Variable:"},
                             {7, "  Bootstrap nonparametric procedure "},
                             {8, "  Bootstraps of (2.5/100)(N+1) and (97.5/100)(N+1)"}})},
      {"direct", "simple-n-half",
       With(kParametric, {{5, " Variable:"},
                          {7, "  Parametric procedure (untransformed values)"},
                          {8, "  Percentiles as mean+/-1.96(1/(1-1/(4(n-1)))) SD"},
                          {11, "  Mean and SD: "},
                          {12, "  Coeff. of skewness: "},
                          {13, "  Coeff. of kurtosis: "},
                          {14, "  Parametric reference interval estimates: "},
                          {19, "  Result of Normality test  (Anderson-Darling): "}})},
      {"log", "simple-n-half",
       With(kTransformed,
            {{5, "  Analyte: "},
             {7, "  Parametric procedure on log-transformed values"},
             {11, "  Geometric mean: "},
             {19, "  Result of Normality test on log-transformed values (Anderson-Darling): "},
             {32, "  Display of measures on log-transformed data "},
             {34, "  Mean of log-values: "},
             {35, "  SD of log-values: "},
             {36, "  Skewness of log-values: "},
             {37, "  Kurtosis of log-values: "}})},
      {"power", "simple-n-half",
       With(kTransformed,
            {{5, " Variable:"},
             {7, "  Parametric procedure on basis of power-transformed values"},
             {11, "  Power exponent: "},
             {19, "  Result of Normality test on power-transformed values (Anderson-Darling): "},
             {32, "  Display of measures on power-transformed data "},
             {34, "  Mean of power-transformed values: "},
             {35, "  SD of power-transformed-values: "},
             {36, "  Skewness of power-transformed-values: "},
             {37, "  Kurtosis of power-transformed-values: "}})},
      {"exponential", "simple-n-half",
       With(kTransformed,
            {{5, "  Analyte: "},
             {7, "  Parametric procedure on basis of exponential-transformed values"},
             {11, "  Exponential transformation constant: "},
             {19,
              "  Result of Normality test on exponential-transformed values (Anderson-Darling): "},
             {32, "  Display of measures on exponential-transformed data "},
             {34, "  Mean of exponential-transformed values: "},
             {35, "  SD of exponential-transformed-values: "},
             {36, "  Skewness of exponential-transformed-values: "},
             {37, "  Kurtosis of exponential-transformed-values: "}})},
      {"power-modulus", "simple-n-half",
       With(kTransformed,
            {{5, " Variable:"},
             {7, "  Parametric procedure on basis of power-modulus-transformed values"},
             {11, "  Power exponent: "},
             {12, "  Modulus exponent: "},
             {19,
              "  Result of Normality test on power-modulus-transformed values "
              "(Anderson-Darling): "},
             {32, "  Display of measures on power-modulus-transformed data "},
             {34, "  Mean of power-modulus-transformed values: "},
             {35, "  SD of power-modulus-transformed-values: "},
             {36, "  Skewness of power-modulus-transformed-values: "},
             {37, "  Kurtosis of power-modulus-transformed-values: "}})},
      {"exponential-modulus", "simple-n-half",
       With(kTransformed,
            {{5, "  Analyte: "},
             {7, "  Parametric procedure on basis of expo-modulus-transformed values"},
             {11, "  Transformation constant: "},
             {12, "  Modulus exponent: "},
             {19,
              "  Result of Normality test on expo-modulus-transformed values "
              "(Anderson-Darling): "},
             {32, "  Display of measures on expo-modulus-transformed data "},
             {34, "  Mean of expo-modulus-transformed values: "},
             {35, "  SD of expo-modulus-transformed-values: "},
             {36, "  Skewness of expo-modulus-transformed-values: "},
             {37, "  Kurtosis of expo-modulus-transformed-values: "}})},
  };
  const Values carbamide = ReadSamples().at("carbamide");
  for (const auto& [procedure, rule, labels] : cases) {
    const test::Transcript transcript =
        RunProcedure(carbamide, procedure, {{"percentile-rule", rule}});
    EXPECT_EQ(LabelsOf(transcript), labels) << procedure << ' ' << rule;
    EXPECT_EQ(transcript.Text(4, 3), "  Date: ");
    EXPECT_EQ(transcript.Text(5, 2), " ");  // the column has no heading
    for (int row : {2, 7}) EXPECT_TRUE(transcript.sheet.At(1, row).look.bold);
    EXPECT_FALSE(transcript.sheet.At(1, 8).look.bold);
  }
}

TEST(ReferenceSheet, QuotesTheProjectAndTheHeadingOfTheColumn) {
  Worksheet worksheet;
  worksheet.SetText(2, 0, "S-Carbamide");
  for (int i = 1; i <= 20; ++i) worksheet.SetValue(2, i, i);
  Context context = WithDecimals("1");
  context.ProjectName = "Health";
  Form form(*kReference.dialog);
  test::RecordedMessages messages;
  ResultsSheet sheet(context);
  quorval::Run run{form, worksheet, context, messages, sheet};
  EXPECT_EQ(Execute(kReference.procedures[0], run), Outcome::kDone);
  EXPECT_EQ(sheet.grid().Text(2, 3), "Health");
  EXPECT_EQ(sheet.grid().Text(2, 5), "S-Carbamide");
  EXPECT_EQ(sheet.grid().Text(2, 9), "20.0");
  EXPECT_EQ(sheet.grid().Text(2, 11), "10.5");
  EXPECT_EQ(sheet.grid().Text(1, 14), "  90%-confidence interval cannot be estimated ");
}

TEST(ReferenceSheet, ListsFiveOutliersAndTellsOfMore) {
  const auto samples = ReadSamples();
  const test::Transcript seven =
      RunProcedure(samples.at("outliers160"), "direct", {{"outlier-limit", "3.5"}});
  EXPECT_EQ(seven.Text(22, 1), "  Number of outlier(s) detected: ");
  EXPECT_EQ(seven.Value(22, 2), 7);
  EXPECT_EQ(seven.Text(23, 1), "");
  EXPECT_EQ(seven.Value(24, 2), 3.5);
  EXPECT_EQ(seven.Text(25, 1), "  Outliers: ");
  EXPECT_EQ(seven.Value(26, 1), -20);  // sorted
  EXPECT_EQ(seven.Value(30, 1), 33);
  EXPECT_EQ(seven.Text(31, 1), "  More than 5 outliers that are not displayed ");

  const test::Transcript five = RunProcedure(samples.at("five155"), "log");
  EXPECT_EQ(five.Value(22, 2), 5);
  EXPECT_EQ(five.Value(30, 1), 34);
  EXPECT_EQ(five.Text(31, 1), "");
  EXPECT_EQ(five.Text(39, 1), "  Number of outlier(s) detected: ");
  EXPECT_EQ(five.Text(40, 1), "  Number of SDs as outlier limit: ");
  EXPECT_EQ(five.Text(41, 1), "  Outliers (transformed): ");
  EXPECT_EQ(five.Value(46, 1), static_cast<float>(std::log(34.0)));
  EXPECT_EQ(five.Text(47, 1), "");
}

}  // namespace
}  // namespace quorval::reference
