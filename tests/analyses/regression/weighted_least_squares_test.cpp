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
  ExpectLabels(told, SheetOf("Wls, writes its labels"));
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
  ExpectLabels(told, SheetOf("Wls, marks weighted residuals"));
  EXPECT_THAT(SizesOf(told.PlotOf("frmXY1s")), ElementsAre(37, 3, 2, 2, 11, 11));
  EXPECT_EQ(told.PlotOf("frmXY1s").caption, "X-Y plot Weighted least-squares reg. analysis");
  EXPECT_THAT(SizesOf(told.PlotOf("frmRes1s")), ElementsAre(37, 3));

  const Transcript more =
      RunAnalysis(kWls, WithSixOutliers(), {{"outlier-limit", "1.3"}, {"weighting-exponent", "0"}});
  ExpectLabels(more, SheetOf("Wls, marks weighted residuals (2)"));
}

}  // namespace
}  // namespace quorval::test
