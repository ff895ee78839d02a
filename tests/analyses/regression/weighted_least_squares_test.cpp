// Expected numbers: tests/independent/regressions.py.
#include "analyses/registry.h"
#include "analyses/regression/regression_data.h"

namespace quorval::test {
namespace {

using regression::kWls;
using testing::ElementsAre;

TEST(Wls, ComputesItsNumbers) {
  const Columns single = SingleSet();
  for (const ComputedCase& computed : {
           ComputedCase{"wls", single, {{"xc1", "5"}, {"xc2", "20.1"}}},
           ComputedCase{"wls power 1 truncated",
                        single,
                        {{"weighting-exponent", "1"}, {"truncation-limit", "7"}}},
           ComputedCase{"wls power 1.5", single, {{"weighting-exponent", "1.5"}}},
           ComputedCase{"wls duplicate", DuplicateSet(), {{"mode", "duplicate"}}},
           ComputedCase{"wls outliers", WithSixOutliers(), {{"weighting-exponent", "1"}}},
       })
    ExpectComputed(kWls, computed, 1e-11);
}

TEST(Wls, WritesItsLabels) {
  const Transcript told = RunAnalysis(kWls, SingleSet(), {{"xc1", "5"}, {"xc2", "20"}});
  ExpectLabels(told, {{2, "  Results of Weighted Least-Squares Regression Analysis"},
                      {8, "  y: Col no.", "3"},
                      {11, "  Display of weighting parameters"},
                      {12, "  Weighting exponent = ", "2.0000", "  (proportional relationship)"},
                      {13, ""},
                      {14, "  Slope b"},
                      {15, "  SE b"},
                      {16, "  95%-Conf. Int."},
                      {17, "  Test for slope deviation from 1"},
                      {18, "  t  and  P", "0.3315", " n.s."},
                      {19, "  Weighted correlation coefficient", "0.9803", " P < 0.001 "},
                      {20, "  SDy.x prop. factor"},
                      {21, "  Test for dev. from linearity", " n.s. "},
                      {22, ""},
                      {23, "  Intercept  a0"},
                      {24, "  SE a0"},
                      {25, "  95%-Conf. Int."},
                      {26, "  Test for intercept deviation from 0"},
                      {27, "  t  and  P", "0.3461", " n.s."},
                      {28, ""},
                      {29, "  Critical value Xc1"},
                      {30, "  Difference Yc1 - Xc1 with SE"},
                      {31, "  Critical value Xc2"},
                      {32, "  Difference Yc2 - Xc2 with SE"},
                      {33, ""},
                      {34, "  No outliers identified"},
                      {35, "  Outlier limit: No. of SDs", "4.0000"}});
  EXPECT_EQ(told.sheet.DataRowCnt(), 35);
}

TEST(Wls, TellsOfTheWeighting) {
  const struct {
    std::string exponent, limit;
    std::string_view relationship, truncation;
  } cases[] = {
      {"1", "0", "  (square root relationship)", ""},
      {"1.5", "0.5", "", "  Truncation of weighting at lower limit = "},
      {"0", "0", "", ""},
  };
  for (const auto& [exponent, limit, relationship, truncation] : cases) {
    const Transcript told = RunAnalysis(
        kWls, SingleSet(), {{"weighting-exponent", exponent}, {"truncation-limit", limit}});
    EXPECT_EQ(told.Text(12, 3), relationship) << exponent;
    EXPECT_EQ(told.Text(13, 1), truncation) << exponent;
  }
}

// Where all weights are 1, or all the same, the line is the ordinary one.
TEST(Wls, EqualsOrdinaryLeastSquaresWithEqualWeights) {
  const Transcript ols = RunAnalysis(regression::kOls, SingleSet());
  const Transcript ones = RunAnalysis(kWls, SingleSet(), {{"weighting-exponent", "0"}});
  const Transcript same = RunAnalysis(kWls, SingleSet(), {{"truncation-limit", "32"}});
  for (const auto& [ols_row, row] : {std::pair{11, 14}, {12, 15}, {13, 16}, {19, 23}, {20, 24}}) {
    EXPECT_EQ(ones.Value(row, 2), ols.Value(ols_row, 2));
    EXPECT_NEAR(same.Value(row, 2), ols.Value(ols_row, 2), 1e-6);  // 32 bits of Sxx
  }
  EXPECT_NEAR(same.Value(20, 2), ols.Value(17, 2) / 32, 1e-12);
}

TEST(Wls, MarksWeightedResiduals) {
  const Transcript told =
      RunAnalysis(kWls, WithSixOutliers(),
                  {{"outlier-limit", "2"}, {"weighting-exponent", "1"}, {"show-bands", "on"}});
  ExpectLabels(told, {{34, "  Number of outliers identified", "3"},
                      {35, "  Outlier limit: No. of SDs", "2.0000"},
                      {38, ""},
                      {39, "  No.", "3"},
                      {40, "  Outlier (x, y)", "3.0000", "11.1250"},
                      {41, "  No.", "10"},
                      {43, "  No.", "17"},
                      {45, ""},
                      {52, "x value", "Estim. y value", "Lower 95%-conf. limit"}});
  EXPECT_THAT(SizesOf(told.PlotOf("frmXY1s")), ElementsAre(37, 3, 2, 2, 11, 11));
  EXPECT_EQ(told.PlotOf("frmXY1s").caption, "X-Y plot Weighted least-squares reg. analysis");
  EXPECT_THAT(SizesOf(told.PlotOf("frmRes1s")), ElementsAre(37, 3));

  const Transcript more =
      RunAnalysis(kWls, WithSixOutliers(), {{"outlier-limit", "1.3"}, {"weighting-exponent", "0"}});
  ExpectLabels(more, {{47, "  No.", "31"},
                      {48, "  Outlier (x, y)", "31.0000", "39.2500"},
                      {49, ""},
                      {50, "More than 5 outlier pairs which are not displayed "}});
}

}  // namespace
}  // namespace quorval::test
