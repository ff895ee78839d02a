// Expected numbers: NIST Statistical Reference Datasets (tests/data), and SciPy for the tables of F
// (tests/independent/polynomial.py).
#include "analyses/registry.h"
#include "analyses/regression/regression_data.h"

namespace quorval::test {
namespace {

using regression::kPolynomial;
using testing::ElementsAre;
using testing::IsEmpty;

Columns PolynomialSet() {
  return {TextsOf(example_data::kPolynomialX), TextsOf(example_data::kPolynomialY)};
}

TEST(Polynomial, HoldsOnTheReferenceDatasets) {
  const struct {
    const char* file;
    const char* degree;
    double ss_regression, ss_residual, residual_sd, F, r_squared;
  } cases[] = {
      // The certified values.
      {"nist_lin_Norris.csv", "1", 4255954.13232369, 26.6173985294224, 0.884796396144373,
       5436385.54079785, 0.999993745883712},
      {"nist_lin_Pontius.csv", "2", 15.6040343244198, 0.155761768796992E-05, 0.205177424076185E-03,
       185330865.995752, 0.999999900178537},
      {"nist_lin_Wampler3.csv", "5", 18814317208116.7, 83554268.0, 2360.14502379268,
       675524.458240122, 0.999995559025820},
      {"nist_lin_Wampler4.csv", "5", 18814317208116.7, 8355426800.0e2, 236014.502379268,
       67.5524458240122, 0.957478440825662},
      {"nist_lin_Wampler5.csv", "5", 18814317208116.7, 0.835542680e16, 23601450.2379268,
       6.7552445824012241E-03, 0.224668921574940E-02},
  };
  for (const auto& [file, degree, ss_regression, ss_residual, residual_sd, F, r_squared] : cases) {
    SCOPED_TRACE(file);
    const Transcript told = RunAnalysis(kPolynomial, ReadDataFile(file), {{"degree", degree}});
    ASSERT_EQ(told.outcome, Outcome::kDone);
    const auto expect = [&](int row, double value) {
      EXPECT_NEAR(told.Value(row, 4) / value, 1, 1e-6) << row;
    };
    expect(15, ss_regression);
    expect(17, ss_residual);
    expect(19, residual_sd);
    expect(23, F);
    expect(29, std::sqrt(r_squared));
  }
}

TEST(Polynomial, WritesItsSheet) {
  Context context;
  context.ProjectName = "Curve";
  const Transcript told = RunAnalysis(
      kPolynomial, PolynomialSet(),
      {{"x-value", "8.5"}, {"show-values", "on"}, {"show-limits", "on"}, {"outlier-limit", "1.1"}},
      context);
  ASSERT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes, IsEmpty());
  ExpectLabels(told, SheetOf("Polynomial, writes its sheet"));
  EXPECT_EQ(told.Text(3, 4), "Curve");
  EXPECT_TRUE(told.sheet.At(1, 25).look.italic);
  for (int row : {16, 18}) EXPECT_EQ(told.Text(row, 5), "D. f.: ");
  EXPECT_EQ(told.Text(16, 6), "2");
  EXPECT_EQ(told.Text(18, 6), "5");
  EXPECT_EQ(told.Text(23, 5), "  P:");
  EXPECT_EQ(told.Text(27, 4), "  P:");
  EXPECT_EQ(told.Text(39, 4), "(Y-Yest)");
  EXPECT_EQ(told.Text(39, 6), "(Yest-t95 SDy.x)");
  EXPECT_EQ(told.Text(39, 7), "(Yest+t95 SDy.x)");
  EXPECT_EQ(told.Text(48, 6), "t95:");
  EXPECT_EQ(told.Value(48, 7), 2.571);
  EXPECT_EQ(told.Value(32, 4), static_cast<double>(1.1F));
  // Expected numbers: tests/independent/polynomial.py.
  ExpectNumbers(told, NumbersOf("polynomial"), 1e-10);
  const int outliers = static_cast<int>(told.Value(31, 4));
  EXPECT_EQ(outliers, 1);
  EXPECT_TRUE(told.sheet.At(4, 47).look.bold);
  EXPECT_FALSE(told.sheet.At(1, 46).look.bold);
  EXPECT_THAT(SizesOf(told.PlotOf("frmPolynRegPlot")), ElementsAre(7, 1, 100, 100, 100));
  EXPECT_THAT(SizesOf(told.PlotOf("frmPolynResPlot")), ElementsAre(7, 1));
}

TEST(Polynomial, SortsAndShowsTheLimitsAlone) {
  const Transcript told =
      RunAnalysis(kPolynomial, {{"4", "1", "3", "2", "5"}, {"4.1", "0.9", "3.2", "2", "4.7"}},
                  {{"degree", "1"}, {"show-limits", "on"}});
  ExpectLabels(told, SheetOf("Polynomial, sorts and shows the limits alone"));
  EXPECT_EQ(told.Text(35, 6), "(Yest-t95 SDy.x)");
  EXPECT_LT(told.Value(36, 6), told.Value(36, 7));
  EXPECT_EQ(told.Text(41, 6), "t95:");
  const Plot& plot = told.PlotOf("frmPolynRegPlot");
  EXPECT_THAT(SizesOf(plot), ElementsAre(5, 100, 100, 100));
  EXPECT_EQ(plot.series[0].points[0].x, 1);
  EXPECT_EQ(plot.series[1].points[99].x, 5);
}

TEST(Polynomial, LeavesOutTheSupplementaryTest) {
  // No general significance.
  const Transcript flat =
      RunAnalysis(kPolynomial, {{"1", "2", "3", "4", "5", "6"}, {"1", "3", "1", "3", "1", "3"}});
  EXPECT_GE(flat.Value(23, 6), 0.05);
  EXPECT_EQ(flat.Text(25, 1), "");
  EXPECT_EQ(flat.Text(27, 1), "");
}

TEST(Polynomial, GoesOnWithoutResiduals) {
  const Transcript told =
      RunAnalysis(kPolynomial, {{"-1", "1", "-1", "1"}, {"-1", "3", "-1", "3"}}, {{"degree", "1"}});
  EXPECT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes,
              ElementsAre("zero residuals variation: no F-test", "Error in outlier evaluation"));
  ExpectLabels(told, SheetOf("Polynomial, goes on without residuals"));
  EXPECT_EQ(told.Text(23, 4), "");
  EXPECT_EQ(told.Text(23, 5), "  P:");
  EXPECT_EQ(told.PlotOf("frmPolynResPlot").series[0].points[0].y, 0);
}

TEST(Polynomial, GoesOnWhereRoundingLeavesNothingToTest) {
  const std::vector<std::string> line{"1", "2", "3", "4", "5", "6", "7", "8"};
  const Transcript told = RunAnalysis(kPolynomial, {line, line});
  EXPECT_EQ(told.outcome, Outcome::kDone);
  EXPECT_THAT(told.boxes,
              ElementsAre("Supplementary F-test for last coefficient can not be performed"));
  ExpectLabels(told, {"25:", "27:", "29:  Correlation coefficient (R):"});
}

}  // namespace
}  // namespace quorval::test
