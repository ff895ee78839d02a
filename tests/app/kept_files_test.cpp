// Nothing is lost in files: what a save replaces, what it cannot write, what was not saved, and the
// way back from every command that changes the worksheet.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <functional>
#include <set>

#include "analyses/registry.h"
#include "app/workbench.h"
#include "core/file_name.h"
#include "formats/worksheet_file.h"
#include "support/data_table.h"
#include "support/obstacles.h"
#include "support/scripted_platform.h"
#include "support/temporary_folder.h"

namespace quorval {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

struct LookingPlatform : test::ScriptedPlatform {
  std::function<void()> at_dialog = [] {};
  std::optional<fs::path> AskOpen(const FileQuestion& question) override {
    at_dialog();
    return ScriptedPlatform::AskOpen(question);
  }
};

class KeptFilesTest : public testing::Test {
 protected:
  void Fill(std::string_view text = "old") {
    for (int row = 0; row <= 9; ++row) worksheet.SetText(3, row, text);
  }
  void SaveAs(const fs::path& path) {
    platform.paths = {path};
    files.SaveAs();
  }
  // The kinds of the last command's notices.
  std::vector<std::string> Kinds() const {
    std::vector<std::string> kinds;
    for (const Notice& notice : platform.notices.back()) kinds.emplace_back(notice.kind);
    return kinds;
  }
  std::string LastText() const {
    return platform.notices.back().empty() ? "" : platform.notices.back().front().text;
  }

  test::TemporaryFolder folder, app_folder;
  LookingPlatform platform;
  Workbench workbench{platform, app_folder.path()};
  ProjectFiles& files = workbench.files();
  Worksheet& worksheet = workbench.worksheet();
};

// --- What a save replaces

TEST_F(KeptFilesTest, ASaveOverItsOwnFileLeavesNoCopy) {
  Fill();
  SaveAs(folder / "a.qvl");
  EXPECT_THAT(Kinds(), ElementsAre("saved"));
  EXPECT_EQ(LastText(), "Saved to " + (folder / "a.qvl").string());
  files.Save();
  files.OpenFile(folder / "a.qvl");
  files.Save();
  EXPECT_THAT(Kinds(), ElementsAre("saved"));
  EXPECT_EQ(folder.Count(), 1U);
}

TEST_F(KeptFilesTest, ASaveOverAnotherFileKeepsItBeside) {
  const struct {
    const char* what;
    std::function<void()> then;
  } cases[] = {
      {"an example takes the project's place",
       [&] { workbench.ImportExample(*FindExample("XY Regression Single")); }},
      {"a file that is no project does not load", [&] { files.OpenFile(folder / "b.qvl"); }},
      {"a spreadsheet is imported", [&] { files.Take(folder / "c.csv"); }},
      {"another file is chosen", [&] {}},
  };
  for (const auto& [what, then] : cases) {
    SCOPED_TRACE(what);
    for (const auto& entry : fs::directory_iterator(folder.path())) fs::remove(entry.path());
    test::WriteBytes(folder / "b.qvl", "precious");
    test::WriteBytes(folder / "c.csv", "1,2\n");
    Fill();
    SaveAs(folder / "a.qvl");
    then();
    Fill("new");
    const bool another = std::string_view(what).starts_with("another");
    const fs::path target = another ? folder / "b.qvl" : workbench.project().context().ProjectFile;
    const std::string before = test::BytesOf(target);
    if (another)
      SaveAs(target);
    else
      files.Save();
    if (before.empty()) continue;  // the project has no file of its own: nothing was replaced
    EXPECT_THAT(Kinds(), ElementsAre("saved", "kept"));
    EXPECT_EQ(test::BytesOf(target.string() + "~"), before);
    files.Save();
    EXPECT_THAT(Kinds(), ElementsAre("saved"));
  }
}

TEST_F(KeptFilesTest, AFileThatAnotherProgramChangedIsKeptToo) {
  Fill();
  SaveAs(folder / "a.qvl");
  LookingPlatform other_platform;
  Workbench other(other_platform, app_folder.path());
  other.files().OpenFile(folder / "a.qvl");
  other.worksheet().SetText(5, 5, "of the other");
  other.files().Save();
  const std::string theirs = test::BytesOf(folder / "a.qvl");
  files.Save();
  EXPECT_THAT(Kinds(), ElementsAre("saved", "changed", "kept"));
  EXPECT_EQ(test::BytesOf(folder / "a.qvl~"), theirs);
  other.files().Save();
  EXPECT_TRUE(fs::exists(folder / "a.qvl~2"));
}

// --- What a save cannot write

// All that stands in a folder, with its bytes.
std::set<std::string> Listing(const fs::path& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    names.insert(entry.path().string() +
                 (fs::is_regular_file(entry.symlink_status()) ? test::BytesOf(entry.path()) : ""));
  return names;
}

TEST_F(KeptFilesTest, EveryKindOfSaveThatFailsSaysWhyAndLeavesWhatStood) {
  workbench.ImportExample(*FindExample("XY Regression Single"));
  OpenAnalysis& open = workbench.Open(*FindAnalysis("ols"));
  workbench.PressOk(open);
  const struct {
    const char* name;
    std::function<void(const fs::path&)> save;
  } commands[] = {
      {"as.qvl", [&](const fs::path& path) { SaveAs(path); }},
      {"save.qvl",
       [&](const fs::path& path) {
         workbench.project().SetFile(path);
         files.Save();
       }},
      {"results.qvl", [&](const fs::path&) { workbench.SaveResults(open); }},
      {"results.csv", [&](const fs::path&) { workbench.ExportResults(open); }},
      {"a.xls", [&](const fs::path&) { files.Export(); }},
      {"a.xlsx", [&](const fs::path&) { files.Export(); }},
      {"a.tsv", [&](const fs::path&) { files.Export(); }},
  };
  for (const test::Obstacle& obstacle : test::kObstacles)
    for (const auto& [name, save] : commands) {
      SCOPED_TRACE(std::string(obstacle.what) + ", " + name);
      const test::TemporaryFolder place;
      const fs::path path = obstacle.make(place.path(), name);
      if (path.empty()) continue;
      const std::set<std::string> before = Listing(place.path());
      platform.boxes.clear();
      platform.notices.clear();
      platform.paths = {path};
      {
        const test::Hold held = obstacle.hold();
        save(path);
      }
      EXPECT_EQ(Listing(place.path()), before);
      umount((place / "disk").c_str());
      for (const fs::path& closed : {place.path(), place / "closed"}) chmod(closed.c_str(), 0700);
      if (platform.notices.empty()) {
        ADD_FAILURE() << "no notice";
        continue;
      }
      EXPECT_THAT(Kinds(), ElementsAre("not-saved"));
      EXPECT_THAT(LastText(),
                  AllOf(HasSubstr("Not saved: "), testing::ContainsRegex(obstacle.why)));
      const bool exports = ExtensionOf(fs::path(name)) != ".qvl";
      EXPECT_EQ(platform.boxes.size(), exports ? 1U : 0U);
      EXPECT_FALSE(files.CanSave());
    }
}

TEST_F(KeptFilesTest, ASaveAsThatWroteNothingLeavesTheProjectWithoutAFile) {
  Fill();
  const fs::path before = workbench.project().context().ProjectFile;
  SaveAs(folder / "gone" / "a.qvl");
  EXPECT_FALSE(files.CanSave());
  EXPECT_EQ(workbench.project().context().ProjectFile, before);
  workbench.project().Rename("Glucose mg/dL");
  files.SaveAs();  // cancelled
  EXPECT_EQ(platform.file_questions.back().proposed_name, "Glucose mg-dL");
  EXPECT_EQ(worksheet.Text(1, 10), "Glucose mg/dL");
  workbench.project().editor().Undo();
  EXPECT_EQ(worksheet.Text(1, 10), "");
  EXPECT_EQ(worksheet.DataRowCnt(), 10);
}

TEST_F(KeptFilesTest, AFileThatIsNotOpenedSaysWhy) {
  Fill();
  SaveAs(folder / "a.qvl");
  std::string bytes = test::BytesOf(folder / "a.qvl");
  test::WriteBytes(folder / "short.qvl", bytes.substr(0, bytes.size() / 2));
  bytes[60 + 3] = 9;  // the user version in the header of the database
  test::WriteBytes(folder / "version.qvl", bytes);
  test::WriteBytes(folder / "text.qvl", "a text");
  const struct {
    const char* name;
    const char* why;
  } cases[] = {{"short.qvl", "damaged"},
               {"version.qvl", "another version"},
               {"text.qvl", "not a project"},
               {"none.qvl", "no such file"},
               {"", "folder"}};
  for (const auto& [name, why] : cases) {
    files.OpenFile(folder / name);
    EXPECT_THAT(Kinds(), ElementsAre("not-opened")) << name;
    EXPECT_THAT(LastText(), AllOf(HasSubstr("Not opened: "), HasSubstr(why))) << name;
  }
}

// --- Files that come in

TEST_F(KeptFilesTest, ASpreadsheetThatIsDroppedIsImported) {
  Fill();
  ASSERT_FALSE(WriteGrid(folder / "DATA.XLSX", worksheet.grid(), {}));
  const fs::path before = workbench.project().context().ProjectFile;
  files.Take(folder / "DATA.XLSX");
  EXPECT_THAT(platform.boxes, Contains("Import complete."));
  EXPECT_EQ(worksheet.Text(3, 9), "old");
  EXPECT_EQ(workbench.project().context().ProjectFile, before);

  SaveAs(folder / "project.ss6");
  fs::rename(folder / "project.ss6", folder / "misnamed.csv");
  platform.boxes.clear();
  files.Take(folder / "misnamed.csv");
  EXPECT_EQ(platform.boxes.size(), 1U);  // the question
  EXPECT_EQ(workbench.project().context().ProjectFile, folder / "misnamed.csv");
}

TEST_F(KeptFilesTest, TheSheetOnTheScreenIsEmptyBeforeTheFileDialogOpens) {
  int looked = 0;
  files.WhenEmptied([&] { ++looked; });
  platform.at_dialog = [&] { EXPECT_EQ(looked, 1); };
  const auto looks_once = [&](const std::function<void()>& command) {
    Fill();
    looked = 0;
    command();
    EXPECT_EQ(looked, 1);
    EXPECT_FALSE(workbench.project().HasData());
  };
  looks_once([&] { files.Open(); });
  looks_once([&] { files.Import(); });
}

// --- The way back

TEST_F(KeptFilesTest, EveryCommandThatChangesTheSheetIsOneStepOfItsUndo) {
  const auto tool = [&](std::string_view id, const std::string& settings) {
    const Tool& one = *FindTool(id);
    Form form(*one.dialog);
    for (const auto& [key, value] : test::SettingsOf(test::WordsOf(settings))) form.Set(key, value);
    EXPECT_EQ(workbench.PressOk(one, form), Outcome::kDone) << id;
  };
  const struct {
    const char* what;
    std::function<void()> run;
  } commands[] = {
      {"clear", [&] { workbench.ClearWorksheet(); }},
      {"example", [&] { workbench.ImportExample(*FindExample("Detection Limit Example")); }},
      {"diagnostic example",
       [&] { workbench.ImportExample(*FindExample("Evaluation of a single diagnostic test")); }},
      {"sort", [&] { tool("sort", "column=2"); }},
      {"paired sort", [&] { tool("sort", "mode=paired key-column=3 second-column=2"); }},
      {"transform", [&] { tool("transform", "column=2"); }},
      {"format", [&] { tool("format", "column=2 decimals=1"); }},
      {"new", [&] { files.New(); }},
  };
  for (const auto& [what, run] : commands) {
    SCOPED_TRACE(what);
    workbench.ImportExample(*FindExample("XY Regression Single"));
    workbench.project().SetNote("mine");
    const Grid before = worksheet.grid();
    const std::string name = workbench.project().context().ProjectName;
    run();
    const Grid after = worksheet.grid();
    const std::string name_after = workbench.project().context().ProjectName;
    EXPECT_FALSE(after == before);
    ASSERT_TRUE(workbench.project().editor().Undo());
    EXPECT_EQ(worksheet.grid(), before);
    EXPECT_EQ(workbench.project().context().ProjectName, name);
    EXPECT_EQ(workbench.project().context().ProjectNote, "mine");
    ASSERT_TRUE(workbench.project().editor().Redo());
    EXPECT_EQ(worksheet.grid(), after);
    EXPECT_EQ(workbench.project().context().ProjectName, name_after);
  }
}

// --- Work that was not saved

TEST_F(KeptFilesTest, UnsavedWorkIsOfferedAtTheNextStart) {
  workbench.ImportExample(*FindExample("XY Regression Single"));
  worksheet.SetText(2, 1, "99");
  workbench.project().SetNote("note");
  EXPECT_TRUE(files.KeepUnsaved());

  Workbench next(platform, app_folder.path());
  const std::vector<fs::path> kept = next.files().Kept();
  ASSERT_EQ(kept.size(), 1U);
  next.files().Recover(kept[0]);
  EXPECT_EQ(next.worksheet().grid(), worksheet.grid());
  EXPECT_EQ(next.project().context().ProjectNote, "note");
  EXPECT_EQ(next.project().context().ProjectName, "Demo XY Regression Project (single)");
  EXPECT_NE(next.project().context().ProjectFile, kept[0]);
  EXPECT_FALSE(next.files().CanSave());
  EXPECT_FALSE(fs::exists(kept[0]));
  EXPECT_TRUE(next.files().KeepUnsaved());  // what was taken and not saved is kept again
  ASSERT_EQ(next.files().Kept().size(), 1U);
  next.files().Decline(next.files().Kept()[0]);
  EXPECT_THAT(next.files().Kept(), IsEmpty());
  EXPECT_EQ(app_folder.Count(), 0U);
}

TEST_F(KeptFilesTest, WhatStandsElsewhereIsNotKept) {
  const std::function<void()> states[] = {
      [] {},
      [&] { workbench.ImportExample(*FindExample("XY Regression Single")); },
      [&] {
        Fill();
        SaveAs(folder / "a.qvl");
      },
      [&] { files.OpenFile(folder / "a.qvl"); },
      [&] { files.New(); },
  };
  for (const auto& reach : states) {
    reach();
    EXPECT_TRUE(files.KeepUnsaved());
    EXPECT_THAT(files.Kept(), IsEmpty());
  }
  Fill("changed");
  EXPECT_TRUE(files.KeepUnsaved());
  EXPECT_EQ(files.Kept().size(), 1U);
}

TEST_F(KeptFilesTest, ACopyThatCannotBeKeptSaysSo) {
  const test::TemporaryFolder place;
  test::WriteBytes(place / "file", "");
  Workbench other(platform, place / "file");
  other.worksheet().SetText(1, 1, "work");
  EXPECT_FALSE(other.files().KeepUnsaved());
  EXPECT_THAT(Kinds(), ElementsAre("not-kept"));
}

}  // namespace
}  // namespace quorval
