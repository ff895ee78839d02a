// The repetition of a regression without the outliers that it marked.
#include <cmath>
#include <filesystem>

#include "analyses/registry.h"
#include "analyses/regression/regression_data.h"
#include "app/rejection_notice.h"
#include "app/workbench.h"
#include "support/scripted_platform.h"
#include "support/temporary_folder.h"

namespace quorval::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr std::string_view kQuestion = "Repeat analysis without identified outliers ?";

// A machine with a screen, which keeps the notice's picture.
struct DesktopPlatform : ScriptedPlatform {
  std::vector<std::string> beside, kept;
  Answer Show(const MessageBox& box) override {
    if (!box.beside.empty()) beside.push_back(box.beside);
    return ScriptedPlatform::Show(box);
  }
  bool KeepPicture(std::string_view svg, const std::filesystem::path& path) override {
    kept.push_back(path.filename().string());
    EXPECT_THAT(std::string(svg), StartsWith("<svg"));
    return works;
  }
};

struct Session {
  const TemporaryFolder folder{};
  DesktopPlatform platform{};
  Workbench workbench{platform, folder.path()};
  OpenAnalysis* open = nullptr;

  Session(const Analysis& analysis, const Columns& columns, const Settings& settings) {
    for (std::size_t row = 0; row < columns[0].size(); ++row) {
      const int at = static_cast<int>(row) + 1;
      workbench.worksheet().SetText(1, at, "s" + std::to_string(at));
      for (std::size_t i = 0; i < columns.size(); ++i)
        workbench.worksheet().SetText(static_cast<int>(i) + 2, at, columns[i][row]);
    }
    open = &workbench.Open(analysis);
    for (const auto& [key, text] : settings) open->form.Set(key, text);
    workbench.PressOk(*open);
  }
  ResultsWindow& window() { return *open->results; }
  std::string Text(int row, int column = 1) { return window().sheet.grid().Text(column, row); }
  const Plot& PlotOf(std::string_view name) { return *window().FindPlot(name); }
};

// The columns without the marked points of WithSixOutliers().
Columns Retained(const Columns& columns) {
  Columns retained(columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i)
    for (std::size_t row = 0; row < columns[i].size(); ++row)
      if (row % 7 != 2) retained[i].push_back(columns[i][row]);
  return retained;
}

// With a ratio of the SDs of exactly 1, whichever rows are left out.
Columns Duplicated() {
  Columns columns = WithSixOutliers();
  Columns four{columns[0], columns[0], columns[1], columns[1]};
  for (std::size_t row = 0; row < four[0].size(); ++row) {
    four[1][row] += ".125";
    four[3][row] = ShortestText(ToNumber(four[3][row]) + (row % 3 == 0 ? 0.125 : -0.125));
  }
  return four;
}

struct Method {
  const Analysis* analysis;
  std::string mode;
  int title_row;
  std::vector<std::string> titles;
  int first_row, last_row;  // of the estimates
  int table_row;            // of the residuals
};

class Reanalysis : public testing::TestWithParam<Method> {};

TEST_P(Reanalysis, IsARunOnTheRetainedPoints) {
  const auto& [analysis, mode, title_row, titles, first_row, last_row, table_row] = GetParam();
  const Columns columns = mode == "single" ? WithSixOutliers() : Duplicated();
  Settings settings{{"mode", mode},
                    {"outlier-limit", "2"},
                    {"show-residuals", "on"},
                    {"show-bands", "on"},
                    {"xc2", "20"}};
  if (analysis != &regression::kDeming) settings.emplace_back("weighting-exponent", "0");
  Session session(*analysis, columns, settings);
  ASSERT_TRUE(session.window().rejection);
  session.workbench.Reanalyse(*session.open);
  EXPECT_THAT(session.platform.boxes, ElementsAre(kQuestion));
  EXPECT_THAT(session.platform.kept, ElementsAre("OutlierRejDEM.svg"));
  EXPECT_FALSE(session.window().rejection);
  EXPECT_EQ(session.window().outcome, Outcome::kDone);

  for (std::size_t k = 0; k < titles.size(); ++k) {
    const int row = title_row + static_cast<int>(k);
    EXPECT_EQ(session.Text(row), titles[k]);
    EXPECT_TRUE(session.window().sheet.grid().At(1, row).look.bold);
  }
  const Transcript fresh = RunAnalysis(*analysis, Retained(columns), settings);
  EXPECT_EQ(session.Text(6, 2), "34");
  for (int row = first_row; row <= last_row; ++row)
    for (int column = 1; column <= 3; ++column)
      EXPECT_EQ(session.window().sheet.grid().At(column, row), fresh.sheet.At(column, row)) << row;
  EXPECT_EQ(SizesOf(session.PlotOf("frmXY1s")), SizesOf(fresh.PlotOf("frmXY1s")));
  EXPECT_EQ(session.PlotOf("frmRes1s").series[0].points.size(),
            fresh.PlotOf("frmRes1s").series[0].points.size());
  EXPECT_EQ(session.Text(table_row, 3), analysis == &regression::kWls
                                            ? "Estim. y"
                                            : "  Residual distances at an angle to the line");

  session.workbench.Reanalyse(*session.open);  // rejection is done once
  EXPECT_THAT(session.platform.boxes, ElementsAre(kQuestion));
}

INSTANTIATE_TEST_SUITE_P(
    Methods, Reanalysis,
    testing::Values(
        Method{
            &regression::kWls,
            "single",
            2,
            {"  Results of Weighted Least-Squares Regression Analysis (Re-analysis after outlier "
             "rejection)"},
            6,
            62,
            64},
        Method{
            &regression::kWls,
            "duplicate",
            2,
            {"  Results of Weighted Least-Squares Regression Analysis (Re-analysis after outlier "
             "rejection)"},
            6,
            62,
            64},
        Method{&regression::kDeming,
               "single",
               2,
               {"  Results of Deming Regression Analysis (re-analysis after outlier rejection)"},
               6,
               43,
               57},
        Method{&regression::kDeming,
               "duplicate",
               2,
               {"  Re-analysis Deming Regression Analysis (duplicate option) after outlier "
                "rejection"},
               6,
               43,
               57},
        Method{&regression::kWeightedDeming,
               "single",
               1,
               {"  Results of Weighted Deming Regression Analysis",
                "  Re-analysis after outlier rejection"},
               5,
               43,
               57},
        Method{&regression::kWeightedDeming,
               "duplicate",
               1,
               {"  Results of Weighted Deming Regression Analysis", "  after outlier rejection"},
               5,
               43,
               57}));

// The rejected points differ in the ratio of their duplicates, so that a ratio estimated anew would
// be another one.  Expected numbers: tests/independent/regressions.py.
TEST(ReanalysisOfDuplicates, KeepsTheRatioOfTheFirstRun) {
  const struct {
    const Analysis* analysis;
    std::string computed;
    Settings settings;
  } methods[] = {{&regression::kDeming, "deming outliers duplicate", {}},
                 {&regression::kWeightedDeming,
                  "weighted-deming outliers duplicate",
                  {{"weighting-exponent", "1"}, {"truncation-limit", "3"}}}};
  for (const auto& [analysis, computed, settings] : methods) {
    SCOPED_TRACE(computed);
    Settings duplicate = settings;
    duplicate.insert(duplicate.end(), {{"mode", "duplicate"}, {"outlier-limit", "2"}});
    ExpectComputed(*analysis, {computed, DuplicatesWithOutliers(), duplicate}, 1e-8);
    Session session(*analysis, DuplicatesWithOutliers(), duplicate);
    session.workbench.Reanalyse(*session.open);
    EXPECT_EQ(session.Text(6, 2), "34");
    const std::vector<Number> expected = NumbersOf(computed + " repeated");
    EXPECT_GE(expected.size(), 12U);
    for (const auto& [row, column, value] : expected)
      EXPECT_NEAR(session.window().sheet.grid().At(column, row).value.value_or(NAN), value, 1e-8)
          << row << ", " << column;
  }
}

TEST(ReanalysisOfDeming, ShowsShortTables) {
  Session session(regression::kDeming, WithSixOutliers(),
                  {{"outlier-limit", "2"}, {"show-residuals", "on"}, {"show-bands", "on"}});
  session.workbench.Reanalyse(*session.open);
  EXPECT_EQ(session.Text(44, 1), "x value");
  EXPECT_EQ(session.Text(44, 2), "Lower 95%-conf. limit");
  EXPECT_EQ(session.Text(44, 3), "Upper 95%-conf. limit");
  EXPECT_EQ(session.Text(44, 4), "");
  EXPECT_EQ(session.Text(57, 4), "");
  EXPECT_EQ(session.Text(58, 1), "1.0000");
}

TEST(ReanalysisOfDeming, ShowsTheNoticeAndLeavesAllOnNo) {
  Session session(regression::kDeming, WithSixOutliers(), {{"outlier-limit", "2"}});
  session.platform.answers = {Answer::kNo};
  session.workbench.Reanalyse(*session.open);
  ASSERT_EQ(session.platform.beside.size(), 1U);
  EXPECT_THAT(
      session.platform.beside[0],
      StartsWith("   Rejected outliers in regression analysis\n   Outlier limit:    2   SD\n"
                 "\ns3   3   11.125\ns10   10   1.875\n"));
  EXPECT_THAT(session.platform.kept, IsEmpty());
  EXPECT_TRUE(session.window().rejection);
  EXPECT_EQ(session.Text(2), "  Results of Deming Regression Analysis (single option)");
}

TEST(ReanalysisOfDeming, ReadsTheCriticalValuesAnew) {
  Session session(regression::kDeming, WithSixOutliers(), {{"outlier-limit", "2"}});
  session.open->form.Set("xc1", "7");
  session.open->form.Set("outlier-limit", "9");
  session.workbench.Reanalyse(*session.open);
  EXPECT_EQ(session.Text(25, 2), "7.0000");
  EXPECT_EQ(session.Text(30, 2), "2.0000");
}

TEST(ReanalysisOfDeming, KeepsTheFirstSheetWhereTooFewPointsAreLeft) {
  Session session(regression::kDeming, {{"1", "2", "3", "4"}, {"1", "2.1", "2.9", "9"}},
                  {{"outlier-limit", "1.2"}});
  ASSERT_TRUE(session.window().rejection);
  session.workbench.Reanalyse(*session.open);
  EXPECT_THAT(session.platform.boxes,
              ElementsAre(kQuestion, " n < 4: No regression analysis", "Error"));
  EXPECT_EQ(session.Text(2), "  Results of Deming Regression Analysis (single option)");
  EXPECT_EQ(session.Text(6, 2), "4");
  EXPECT_THAT(session.PlotOf("frmXY1s").series, IsEmpty());
  EXPECT_THAT(session.PlotOf("frmRes1s").series, IsEmpty());
  EXPECT_EQ(session.window().outcome, Outcome::kRefused);
}

TEST(ReanalysisOfDeming, EndsWhereThePictureCannotBeKept) {
  Session session(regression::kDeming, WithSixOutliers(), {{"outlier-limit", "2"}});
  session.platform.works = false;
  session.workbench.Reanalyse(*session.open);
  EXPECT_THAT(session.platform.boxes, ElementsAre(kQuestion, "Error"));
}

TEST(ReanalysisOfDeming, IsNotOfferedWithoutOutliers) {
  Session session(regression::kDeming, WithSixOutliers(), {});
  EXPECT_FALSE(session.window().rejection);
  session.workbench.Reanalyse(*session.open);
  EXPECT_THAT(session.platform.boxes, IsEmpty());
}

TEST(Notice, ListsTenPoints) {
  Rejection rejection{
      .limit = Single(2.3), .rejected = {}, .retained_ids = {}, .retained = {}, .read_anew = {}};
  for (int i = 1; i <= 10; ++i) rejection.rejected.push_back({"<s>", i, 2 * i});
  EXPECT_EQ(NoticeOf(rejection).size(), 13U);
  rejection.rejected.push_back({"s11", 11, 22});
  const std::vector<std::string> lines = NoticeOf(rejection);
  ASSERT_EQ(lines.size(), 14U);
  EXPECT_EQ(lines[1], "   Outlier limit:    2.3   SD");
  EXPECT_EQ(lines[12], "<s>   10   20");
  EXPECT_EQ(lines[13], "   More than 10 outliers that are not shown");
  EXPECT_THAT(NoticePicture(lines), HasSubstr("&lt;s&gt;   10   20"));
}

}  // namespace
}  // namespace quorval::test
