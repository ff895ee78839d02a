// Expected numbers: tests/independent/regressions.py.
#include <random>

#include "analyses/registry.h"
#include "analyses/regression/fit_deming.h"
#include "analyses/regression/regression_data.h"
#include "core/conversion.h"

namespace quorval::test {
namespace {

using regression::kDeming;
using testing::ElementsAre;

TEST(Deming, ComputesItsNumbers) {
  for (const ComputedCase& computed : {
           ComputedCase{"deming", SingleSet(), {{"xc1", "5"}, {"xc2", "20.1"}}},
           ComputedCase{"deming ratio 1.3", SingleSet(), {{"sd-ratio", "1.3"}}},
           ComputedCase{"deming duplicate", DuplicateSet(), {{"mode", "duplicate"}}},
           ComputedCase{"deming outliers", WithSixOutliers(), {}},
       })
    ExpectComputed(kDeming, computed, 1e-11);
}

TEST(Deming, WritesItsLabels) {
  const Transcript told =
      RunAnalysis(kDeming, SingleSet(),
                  {{"xc1", "5"}, {"xc2", "20"}, {"show-bands", "on"}, {"show-residuals", "on"}});
  ExpectLabels(told, SheetOf("Deming, writes its labels"));
  const Transcript duplicate = RunAnalysis(kDeming, DuplicateSet(), {{"mode", "duplicate"}});
  ExpectLabels(duplicate, {"2:  Results of Deming Regression Analysis (duplicate option)",
                           "10:  y2: Col no.|5", "18:  Estimated SDax/SDay"});
}

TEST(Deming, PlotsDistancesOverThePlacesOnTheLine) {
  const Transcript told = RunAnalysis(kDeming, SingleSet(), {{"plot-bands", "off"}});
  EXPECT_EQ(told.PlotOf("frmXY1s").caption, "XY-plot Deming regression analysis");
  EXPECT_THAT(SizesOf(told.PlotOf("frmXY1s")), ElementsAre(25, 1, 2, 2));
  const Plot& residuals = told.PlotOf("frmRes1s");
  EXPECT_THAT(SizesOf(residuals), ElementsAre(25));
  EXPECT_NEAR(Raw(residuals.series[0].points[6].x), 8.27952527999878, 1e-12);
  EXPECT_NEAR(Raw(residuals.series[0].points[6].y), -0.17180772125720978, 1e-12);
}

TEST(Deming, MarksDistances) {
  const Transcript told = RunAnalysis(kDeming, WithSixOutliers(), {{"outlier-limit", "2"}});
  ExpectLabels(told, SheetOf("Deming, marks distances"));
  EXPECT_THAT(SizesOf(told.PlotOf("frmXY1s")), ElementsAre(34, 6, 2, 2, 11, 11));
  EXPECT_THAT(SizesOf(told.PlotOf("frmRes1s")), ElementsAre(34, 6));
}

TEST(Deming, RunsOnFourPointsAndOnANegativeSlope) {
  EXPECT_EQ(RunAnalysis(kDeming, {{"1", "2", "3", "4"}, {"1", "2", "4", "3"}}).outcome,
            Outcome::kDone);
  const Transcript falling =
      RunAnalysis(kDeming, {{"1", "2", "3", "4", "5"}, {"10", "8.5", "6", "3.5", "2"}});
  EXPECT_EQ(falling.outcome, Outcome::kDone);
  EXPECT_LT(falling.Value(11, 2), -2);
}

// Points symmetrical about y = x, which is their line, and one upon it.
TEST(Deming, KeepsTheSignOfADistanceOfZero) {
  const Transcript told = RunAnalysis(
      kDeming, {{"1", "2", "5", "6", "9"}, {"2", "1", "6", "5", "9"}}, {{"show-residuals", "on"}});
  EXPECT_EQ(told.Value(62, 5), 0);
  EXPECT_FALSE(std::signbit(told.Value(62, 5)));
}

// --- The fits without a row each, against fits of the other rows

regression::SingleMeasurements Without(regression::SingleMeasurements measured, std::size_t row) {
  for (Singles* column : {&measured.x, &measured.y})
    column->erase(column->begin() + static_cast<std::ptrdiff_t>(row));
  return measured;
}

regression::DuplicateMeasurements Without(regression::DuplicateMeasurements measured,
                                          std::size_t row) {
  for (Sample* column : {&measured.x1, &measured.x2, &measured.y1, &measured.y2})
    column->erase(column->begin() + static_cast<std::ptrdiff_t>(row));
  return measured;
}

template <class Measurements>
void ExpectSameBits(const Measurements& measured, std::size_t n) {
  const auto lines = regression::FitDemingWithoutEach(measured);
  ASSERT_TRUE(lines);
  ASSERT_EQ(lines->size(), n);
  for (std::size_t row = 0; row < n; ++row) {
    const auto plain = regression::FitDeming(Without(measured, row));
    EXPECT_EQ((*lines)[row].b, plain->b) << row;
    EXPECT_EQ((*lines)[row].a0, plain->a0) << row;
    EXPECT_EQ((*lines)[row].lambda, plain->lambda) << row;
  }
}

TEST(FitDemingWithoutEach, HasTheBitsOfPlainFits) {
  std::mt19937 random(2024);
  const auto error = [&] { return (static_cast<double>(random() % 2000) - 1000) / 700; };
  for (std::size_t n : {4, 5, 8, 9, 16, 17, 63, 200}) {
    regression::SingleMeasurements single{.x = {}, .y = {}, .lambda = Single(1.69)};
    regression::DuplicateMeasurements twice;
    for (std::size_t i = 0; i < n; ++i) {
      const double truth = static_cast<double>(random() % 100000) / 997;
      single.x.emplace_back(truth + error());
      single.y.emplace_back(truth + error());
      for (Sample* column : {&twice.x1, &twice.x2, &twice.y1, &twice.y2})
        column->push_back(truth + error());
    }
    ExpectSameBits(single, n);
    ExpectSameBits(twice, n);
  }
}

}  // namespace
}  // namespace quorval::test
