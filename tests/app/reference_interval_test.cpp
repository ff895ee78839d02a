// A reference interval on its way through the program: the dialog behind a button, the windows, the
// printed plots.
#include <gmock/gmock.h>

#include "analyses/registry.h"
#include "app/workbench.h"
#include "support/scripted_platform.h"
#include "support/temporary_folder.h"

namespace quorval {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class ReferenceIntervalTest : public testing::Test {
 protected:
  ReferenceIntervalTest() { workbench.ImportExample(*FindExample("Reference Interval Example")); }

  OpenAnalysis& Open(std::string_view procedure = "nonparametric") {
    OpenAnalysis& open = workbench.Open(reference::kReference);
    open.form.Set("procedure", procedure);
    return open;
  }

  test::TemporaryFolder folder;
  test::ScriptedPlatform platform;
  Workbench workbench{platform, folder.path()};
};

TEST_F(ReferenceIntervalTest, KeepsTheNonparametricOptionsForLaterRuns) {
  OpenAnalysis& open = Open();
  open.form.Set("percentile-rule", "bootstrap-n-half");
  open.form.Set("replications", "50");
  open.form.Set("classes", "user");
  EXPECT_EQ(workbench.PressOk(open), Outcome::kDone);
  workbench.Exit(open);

  Form& form = workbench.Open(reference::kReference).form;
  EXPECT_EQ(form.TextOf("percentile-rule"), "bootstrap-n-half");
  EXPECT_EQ(form.TextOf("replications"), "50");
  EXPECT_EQ(form.TextOf("classes"), "default");

  const Field* options = nullptr;
  for (const Field& field : form.dialog().fields)
    if (field.opens != nullptr) options = &field;
  ASSERT_NE(options, nullptr);
  EXPECT_TRUE(form.Holds(options->enabled));
  form.Reset(*options->opens);  // its Cancel
  EXPECT_EQ(form.TextOf("percentile-rule"), "simple-n-half");
  EXPECT_EQ(form.TextOf("replications"), "200");
  form.Set("procedure", "log");
  EXPECT_FALSE(form.Holds(options->enabled));
}

TEST_F(ReferenceIntervalTest, ShowsNoWindowsOfAFailedRun) {
  OpenAnalysis& open = Open("direct");
  open.form.Set("class-count", "ten");
  open.form.Set("classes", "user");
  EXPECT_EQ(workbench.PressOk(open), Outcome::kRefused);
  EXPECT_THAT(platform.boxes, ElementsAre("Error in histogram display", "Error"));
  EXPECT_FALSE(open.results->shown);
  EXPECT_EQ(open.results->sheet.grid().Text(1, 3), "  Project:");  // filled, but not displayed
  EXPECT_TRUE(open.dialog_shown);
  EXPECT_THAT(open.results->plots, IsEmpty());
}

TEST_F(ReferenceIntervalTest, PrintsThePlotsThatAreOpen) {
  const struct {
    const char* procedure;
    std::vector<std::string> pictures;
    std::size_t pages;
  } cases[] = {
      {"nonparametric", {" Chart2D1.bmp"}, 1},
      {"direct", {" Chart2D1.bmp", " Chart2D1Cum.bmp"}, 1},
      {"log", {" Chart2D1.bmp", " Chart2D1Trans.bmp", " Chart2D1CumTrans.bmp"}, 2},
  };
  for (const auto& [procedure, pictures, pages] : cases) {
    OpenAnalysis& open = Open(procedure);
    EXPECT_EQ(workbench.PressOk(open), Outcome::kDone);
    platform.pictures.clear();
    platform.print_jobs.clear();
    workbench.PrintPlots(open);
    std::vector<std::string> names;
    for (const auto& path : platform.pictures) names.push_back(path.filename());
    EXPECT_EQ(names, pictures);
    EXPECT_THAT(platform.print_jobs, SizeIs(pages));
    workbench.PrintResults(open);
    EXPECT_EQ(platform.print_jobs.back().header, "/cReference Interval/rPage #/p/n");
    workbench.Exit(open);
  }
}

}  // namespace
}  // namespace quorval
