// General statistics on their way through the program: the picture that is left, and the entries
// that print.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "analyses/registry.h"
#include "app/workbench.h"
#include "support/scripted_platform.h"
#include "support/temporary_folder.h"

namespace quorval {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct KeepingPlatform : test::ScriptedPlatform {
  std::vector<std::filesystem::path> kept;
  bool KeepPlot(const Plot& plot, const std::filesystem::path& path) override {
    EXPECT_THAT(plot.series, SizeIs(4));
    kept.push_back(path);
    return works;
  }
};

class GeneralStatistics : public testing::Test {
 protected:
  GeneralStatistics() {
    for (int row = 1; row <= 5; ++row)
      for (int column : {2, 3})
        workbench.worksheet().SetText(column, row, std::to_string(row * row + column));
  }

  const test::TemporaryFolder folder_;
  const std::filesystem::path folder = folder_.path();
  KeepingPlatform platform;
  Workbench workbench{platform, folder};
};

TEST_F(GeneralStatistics, LeaveThePictureOfTwoSamples) {
  OpenAnalysis& open = workbench.Open(general::kTwoSamples);
  EXPECT_EQ(workbench.PressOk(open), Outcome::kDone);
  EXPECT_THAT(platform.kept, ElementsAre(folder / "PlotGenD.svg"));
  EXPECT_THAT(open.results->plots, SizeIs(1));
}

TEST_F(GeneralStatistics, FailWhereThePictureCannotBeLeft) {
  platform.works = false;
  OpenAnalysis& open = workbench.Open(general::kTwoSamples);
  EXPECT_EQ(workbench.PressOk(open), Outcome::kRefused);
  EXPECT_THAT(platform.boxes, ElementsAre("Error in t-test plot routine", "Error"));
  EXPECT_FALSE(open.results->shown);
  EXPECT_TRUE(open.dialog_shown);
  EXPECT_THAT(open.results->plots, IsEmpty());
}

TEST_F(GeneralStatistics, PrintEachPlotOfOneSampleByAnEntryOfItsOwn) {
  OpenAnalysis& open = workbench.Open(general::kOneSample);
  ASSERT_EQ(workbench.PressOk(open), Outcome::kDone);
  EXPECT_THAT(platform.kept, IsEmpty());
  for (const PlotJob& job : open.results->procedure->plot_jobs) {
    platform.pictures.clear();
    platform.print_jobs.clear();
    workbench.PrintPlots(open, job.entry);
    EXPECT_THAT(platform.pictures, ElementsAre(folder / " Chart2D1.bmp")) << job.entry;
    EXPECT_THAT(platform.print_jobs, SizeIs(1)) << job.entry;
  }
}

}  // namespace
}  // namespace quorval
