// Nothing is lost in files: what a save replaces, what it cannot write, what was not saved, and the
// way back from every command that changes the worksheet.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <memory>
#include <set>

#include "analyses/registry.h"
#include "app/workbench.h"
#include "core/file_name.h"
#include "formats/worksheet_file.h"
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

// What holds during a save and no longer.
using Hold = std::shared_ptr<void>;

// A limit of this process: of the bytes of a file, as on a disk that is full, or of open files.
Hold Limited(__rlimit_resource what, rlim_t most) {
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(what, &before);
  const rlimit limit{most, before.rlim_max};
  setrlimit(what, &limit);
  return {nullptr, [what, before](void*) { setrlimit(what, &before); }};
}

// Root may do all, so the save is another user's.
bool IsRoot() { return geteuid() == 0; }
Hold AsNobody() {
  constexpr uid_t kNobody = 65534;
  if (!IsRoot()) return {};
  static_cast<void>(seteuid(kNobody));
  return {nullptr, [](void*) { static_cast<void>(seteuid(0)); }};
}

// A disk of its own below `folder`; false where this user may mount none.
bool Mount(const fs::path& folder, const char* options) {
  fs::create_directory(folder);
  return mount("none", folder.c_str(), "tmpfs", 0, options) == 0;
}

// A place that cannot be written, made for the name `name`; an empty path where this machine does
// not let it be made.
struct Obstacle {
  const char* what;
  std::string why;
  std::function<fs::path(const fs::path& folder, const std::string& name)> make;
  std::function<Hold()> hold = [] { return Hold{}; };
};

fs::path Precious(const fs::path& at, const std::string& name) {
  test::WriteBytes(at / name, "precious");
  return at / name;
}

fs::path OnDisk(const fs::path& at, const std::string& name, const char* options) {
  return Mount(at / "disk", options) ? Precious(at / "disk", name) : fs::path{};
}

const Obstacle kObstacles[] = {
    {"a folder that is gone", "no such file or folder",
     [](const fs::path& at, const std::string& name) { return at / "gone" / name; }},
    {"a folder of that name", "folder",
     [](const fs::path& at, const std::string& name) {
       fs::create_directory(at / name);
       return at / name;
     }},
    {"a protected file", "read-only",
     [](const fs::path& at, const std::string& name) {
       test::WriteBytes(at / name, "precious");
       chmod((at / name).c_str(), 0444);
       return at / name;
     }},
    {"a pipe", "pipe or a device",
     [](const fs::path& at, const std::string& name) {
       mkfifo((at / name).c_str(), 0600);
       return at / name;
     }},
    {"a device", "pipe or a device",
     [](const fs::path& at, const std::string& name) {
       fs::create_symlink("/dev/null", at / name);
       return at / name;
     }},
    {"a link in a circle", "circle",
     [](const fs::path& at, const std::string& name) {
       fs::create_symlink(name, at / name);
       return at / name;
     }},
    {"a link into a folder that is gone", "no such file or folder",
     [](const fs::path& at, const std::string& name) {
       fs::create_symlink("gone/" + name, at / name);
       return at / name;
     }},
    {"a name too long", "too long",
     [](const fs::path& at, const std::string& name) {
       return at / (std::string(252, 'n') + name);
     }},
    {"a path through a file", "no folder",
     [](const fs::path& at, const std::string& name) {
       test::WriteBytes(at / "file", "precious");
       return at / "file" / name;
     }},
    {"a folder of that name that is not empty", "folder",
     [](const fs::path& at, const std::string& name) {
       fs::create_directory(at / name);
       Precious(at / name, "file");
       return at / name;
     }},
    {"a link to a folder", "folder",
     [](const fs::path& at, const std::string& name) {
       fs::create_directory(at / "folder");
       fs::create_symlink("folder", at / name);
       return at / name;
     }},
    {"a link to a protected file", "read-only",
     [](const fs::path& at, const std::string& name) {
       chmod(Precious(at, "file").c_str(), 0444);
       fs::create_symlink("file", at / name);
       return at / name;
     }},
    {"a link to a link in a circle", "circle",
     [](const fs::path& at, const std::string& name) {
       fs::create_symlink("one", at / "two");
       fs::create_symlink("two", at / "one");
       fs::create_symlink("one", at / name);
       return at / name;
     }},
    {"a socket", "pipe or a device",
     [](const fs::path& at, const std::string& name) {
       mknod((at / name).c_str(), S_IFSOCK | 0600, 0);
       return at / name;
     }},
    {"a folder within a folder that is gone", "no such file or folder",
     [](const fs::path& at, const std::string& name) { return at / "gone" / ".." / "x" / name; }},
    {"a path too long", "too long",
     [](const fs::path& at, const std::string& name) {
       fs::path path = at;
       for (int i = 0; i < 50; ++i) path /= std::string(100, 'f');
       return path / name;
     }},
    {"a folder of the system", "",
     [](const fs::path&, const std::string& name) { return fs::path("/proc") / name; }},
    {"too many open files", "too many files", Precious, [] { return Limited(RLIMIT_NOFILE, 3); }},
    {"a folder that is protected", "permission",
     [](const fs::path& at, const std::string& name) {
       chmod(at.c_str(), 0555);
       return at / name;
     },
     AsNobody},
    {"a file in a folder that is protected", "",
     [](const fs::path& at, const std::string& name) {
       chmod(Precious(at, name).c_str(), 0666);
       chmod(at.c_str(), 0555);
       return at / name;
     },
     AsNobody},
    {"a folder that may not be entered", "permission",
     [](const fs::path& at, const std::string& name) {
       fs::create_directory(at / "closed");
       chmod(at.c_str(), 0755);
       chmod((at / "closed").c_str(), 0600);
       return at / "closed" / name;
     },
     AsNobody},
    {"a file of another user", "read-only",
     [](const fs::path& at, const std::string& name) {
       if (!IsRoot()) return fs::path{};
       chmod(Precious(at, name).c_str(), 0644);
       chmod(at.c_str(), 0777);
       return at / name;
     },
     AsNobody},
    {"another user's file in a folder for all", "",
     [](const fs::path& at, const std::string& name) {
       if (!IsRoot()) return fs::path{};
       chmod(Precious(at, name).c_str(), 0666);
       chmod(at.c_str(), 01777);
       return at / name;
     },
     AsNobody},
    {"a name that is a step up", "folder",
     [](const fs::path& at, const std::string&) { return at / ".."; }},
    {"a name that is a folder's", "",
     [](const fs::path& at, const std::string&) { return at / ""; }},
    {"a disk without room for a second file", "disk is full",
     [](const fs::path& at, const std::string& name) {
       const fs::path path = OnDisk(at, name, "size=8k");
       if (!path.empty()) test::WriteBytes(path.parent_path() / "big", std::string(4096, 'x'));
       return path;
     }},
    {"a disk that is read-only", "read-only",
     [](const fs::path& at, const std::string& name) {
       const fs::path path = OnDisk(at, name, "size=1m");
       if (!path.empty())
         mount("none", path.parent_path().c_str(), nullptr, MS_REMOUNT | MS_RDONLY, "");
       return path;
     }},
    {"a disk without room for another name", "disk is full",
     [](const fs::path& at, const std::string& name) { return OnDisk(at, name, "nr_inodes=2"); }},
    {"a disk that is full", "disk is full",
     [](const fs::path& at, const std::string& name) {
       const fs::path path = OnDisk(at, name, "size=64k");
       if (!path.empty()) test::WriteBytes(path.parent_path() / "big", std::string(1 << 17, 'x'));
       return path;
     }},
    {"no room for a byte", "full|larger", Precious, [] { return Limited(RLIMIT_FSIZE, 0); }},
    {"room for a byte", "full|larger", Precious, [] { return Limited(RLIMIT_FSIZE, 1); }},
    {"room for 100 bytes", "full|larger", Precious, [] { return Limited(RLIMIT_FSIZE, 100); }},
    {"room for 200 bytes", "full|larger", Precious, [] { return Limited(RLIMIT_FSIZE, 200); }},
    {"no room for a new file", "full|larger",
     [](const fs::path& at, const std::string& name) { return at / name; },
     [] { return Limited(RLIMIT_FSIZE, 50); }},
};

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
      {"results.qvl",
       [&](const fs::path& path) {
         platform.paths = {path};
         workbench.SaveResults(open);
       }},
      {"results.csv",
       [&](const fs::path& path) {
         platform.paths = {path};
         workbench.ExportResults(open);
       }},
      {"a.xls",
       [&](const fs::path& path) {
         platform.paths = {path};
         files.Export();
       }},
      {"a.xlsx",
       [&](const fs::path& path) {
         platform.paths = {path};
         files.Export();
       }},
      {"a.tsv",
       [&](const fs::path& path) {
         platform.paths = {path};
         files.Export();
       }},
  };
  for (const Obstacle& obstacle : kObstacles)
    for (const auto& [name, save] : commands) {
      SCOPED_TRACE(std::string(obstacle.what) + ", " + name);
      const test::TemporaryFolder place;
      const fs::path path = obstacle.make(place.path(), name);
      if (path.empty()) continue;
      const std::set<std::string> before = Listing(place.path());
      platform.boxes.clear();
      platform.notices.clear();
      {
        const Hold held = obstacle.hold();
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
  for (auto command : {&ProjectFiles::Open, &ProjectFiles::Import}) {
    Fill();
    int looked = 0;
    files.WhenEmptied([&] { ++looked; });
    platform.at_dialog = [&] { EXPECT_EQ(looked, 1); };
    (files.*command)();
    EXPECT_EQ(looked, 1);
    EXPECT_FALSE(workbench.project().HasData());
  }
}

// --- The way back

TEST_F(KeptFilesTest, EveryCommandThatChangesTheSheetIsOneStepOfItsUndo) {
  const auto tool = [&](std::string_view id,
                        std::initializer_list<std::array<const char*, 2>> set) {
    const Tool& one = *FindTool(id);
    Form form(*one.dialog);
    for (const auto& [key, value] : set) form.Set(key, value);
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
      {"sort",
       [&] {
         tool("sort", {{"column", "2"}});
       }},
      {"paired sort",
       [&] {
         tool("sort", {{"mode", "paired"}, {"key-column", "3"}, {"second-column", "2"}});
       }},
      {"transform",
       [&] {
         tool("transform", {{"column", "2"}});
       }},
      {"format",
       [&] {
         tool("format", {{"column", "2"}, {"decimals", "1"}});
       }},
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
