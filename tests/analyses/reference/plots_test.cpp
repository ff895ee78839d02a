#include <gmock/gmock.h>

#include "analyses/reference/samples.h"

namespace quorval::reference {
namespace {

using testing::ElementsAre;

std::vector<std::string> WindowsOf(const test::Transcript& transcript) {
  std::vector<std::string> windows;
  for (const Plot& plot : transcript.plots) windows.push_back(plot.window);
  return windows;
}

Real SumOfHeights(const Series& bars) {
  Real sum;
  for (const Point& point : bars.points) sum += point.y;
  return sum;
}

void ExpectAxes(const Plot& plot, std::string_view x, std::string_view y) {
  EXPECT_EQ(plot.x.title, x);
  EXPECT_EQ(plot.y.title, y);
}

TEST(ReferencePlots, StandInTheOrderOfShowing) {
  const Values values = ReadSamples().at("carbamide");
  EXPECT_THAT(WindowsOf(RunReference(values)), ElementsAre("frmRefHisto"));
  for (const char* gaussian : {"on", "off"})
    EXPECT_THAT(WindowsOf(RunProcedure(values, "direct", {{"show-gaussian", gaussian}})),
                ElementsAre("frmRefCum", "frmRefHisto"));
  for (const char* procedure :
       {"log", "power", "exponential", "power-modulus", "exponential-modulus"})
    EXPECT_THAT(WindowsOf(RunProcedure(values, procedure)),
                ElementsAre("frmRefHistoTrans", "frmRefCumTrans", "frmRefHisto"));
}

TEST(ReferencePlots, DrawTheGaussianWhereItIsAskedFor) {
  const Values values = ReadSamples().at("carbamide");
  const auto series = [&](const char* procedure, const char* gaussian, const char* window) {
    return RunProcedure(values, procedure, {{"show-gaussian", gaussian}})
        .PlotOf(window)
        .series.size();
  };
  EXPECT_EQ(series("nonparametric", "on", "frmRefHisto"), 1U);
  EXPECT_EQ(series("direct", "on", "frmRefHisto"), 2U);
  EXPECT_EQ(series("direct", "off", "frmRefHisto"), 1U);
  EXPECT_EQ(series("direct", "on", "frmRefCum"), 2U);
  EXPECT_EQ(series("direct", "off", "frmRefCum"), 0U);
  for (const char* gaussian : {"on", "off"}) {
    EXPECT_EQ(series("log", gaussian, "frmRefHisto"), 1U);
    EXPECT_EQ(series("log", gaussian, "frmRefHistoTrans"), 2U);
    EXPECT_EQ(series("log", gaussian, "frmRefCumTrans"), 2U);
  }
}

// Six classes of 0.85: tests/independent/resampling_and_shape.py.
TEST(ReferencePlots, HoldFrequenciesAndCurvesOnOneScale) {
  const test::Transcript transcript = RunProcedure(ReadSamples().at("carbamide"), "direct");
  const Plot& histogram = transcript.PlotOf("frmRefHisto");
  ExpectAxes(histogram, "Reference value", "Rel. Frequency");
  const Series& bars = histogram.series[0];
  EXPECT_EQ(bars.draw, Draw::kBars);
  ASSERT_EQ(bars.points.size(), 6U);
  EXPECT_NEAR(Raw(bars.points[0].x), 2.925, 1e-6);
  EXPECT_NEAR(Raw(bars.points[0].y), 13 / 158.0, 1e-12);
  EXPECT_NEAR(Raw(SumOfHeights(bars)), 1, 1e-12);

  // Height h / (s sqrt(2 pi)) at the mean, which is 4.72 +/- 0.026 at the nearest of 100 points.
  const Series& curve = histogram.series[1];
  EXPECT_EQ(curve.draw, Draw::kLine);
  ASSERT_EQ(curve.points.size(), 100U);
  Real peak;
  for (const Point& point : curve.points) peak = std::max(peak, point.y);
  const double s = transcript.Value(11, 3);
  EXPECT_NEAR(Raw(peak), 0.85 * 0.39894 / s, 1e-4);

  const Plot& cumulative = transcript.PlotOf("frmRefCum");
  ExpectAxes(cumulative, "Reference value", "Cum. Frequency");
  EXPECT_EQ(cumulative.series[0].draw, Draw::kPoints);
  ASSERT_EQ(cumulative.series[0].points.size(), 158U);
  EXPECT_NEAR(Raw(cumulative.series[0].points[0].y), 1 / 158.0, 1e-15);
  EXPECT_EQ(cumulative.series[1].points.size(), 100U);
}

TEST(ReferencePlots, ShowTransformedValuesOnTheirOwnScale) {
  const test::Transcript transcript = RunProcedure(ReadSamples().at("carbamide"), "log");
  ExpectAxes(transcript.PlotOf("frmRefHistoTrans"), "Transformed reference value",
             "Rel. Frequency");
  const Plot& cumulative = transcript.PlotOf("frmRefCumTrans");
  ExpectAxes(cumulative, "Transformed reference value", "Cum. Frequency");
  EXPECT_NEAR(Raw(cumulative.series[0].points.front().x), std::log(2.5), 1e-7);
  EXPECT_NEAR(Raw(cumulative.series[0].points.back().x), std::log(7.6), 1e-7);
}

TEST(ReferencePlots, TakeTheNumberOfClassesFromTheDialog) {
  const Values values = ReadSamples().at("carbamide");
  const struct {
    const char *choice, *count;
    std::size_t classes;
  } cases[] = {{"default", "3", 6}, {"user", "", 6},   {"user", "3", 3},
               {"user", "0", 1},    {"user", "-5", 1}, {"user", "12", 12}};
  for (const auto& [choice, count, classes] : cases) {
    const auto transcript = RunReference(values, {{"classes", choice}, {"class-count", count}});
    EXPECT_EQ(transcript.PlotOf("frmRefHisto").series[0].points.size(), classes)
        << choice << ' ' << count;
  }
}

}  // namespace
}  // namespace quorval::reference
