#include "app/project_files.h"

#include <gmock/gmock.h>

#include "analyses/registry.h"
#include "app/examples.h"
#include "app/workbench.h"
#include "core/file_name.h"
#include "formats/worksheet_file.h"
#include "support/scripted_platform.h"
#include "support/temporary_folder.h"

namespace quorval {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kQuestion =
    "Notice that existing project data and results are lost, Still proceed?";

// Also keeps the boxes' titles, and can fail inside a file dialog.
struct FilePlatform : test::ScriptedPlatform {
  std::vector<std::string> titles;
  bool dialog_fails = false;

  Answer Show(const MessageBox& box) override {
    titles.push_back(box.title);
    return ScriptedPlatform::Show(box);
  }
  std::optional<std::filesystem::path> AskOpen(const FileQuestion& question) override {
    if (dialog_fails) throw std::runtime_error("dialog");
    return ScriptedPlatform::AskOpen(question);
  }
  std::optional<std::filesystem::path> AskSave(const FileQuestion& question) override {
    if (dialog_fails) throw std::runtime_error("dialog");
    return ScriptedPlatform::AskSave(question);
  }
};

struct ProjectFilesTest : testing::Test {
  test::TemporaryFolder folder;
  FilePlatform platform;
  Workbench workbench{platform, folder.path()};
  ProjectFiles& files = workbench.files();
  Worksheet& worksheet = workbench.worksheet();

  const Context& context() const { return workbench.project().context(); }
  const std::string& title() const { return workbench.project().title(); }
  void Fill() {
    for (int row = 0; row <= 9; ++row) worksheet.SetText(3, row, "row " + std::to_string(row));
  }
};

TEST_F(ProjectFilesTest, NewAsksOnlyWhereThereAreData) {
  worksheet.SetText(2, 0, "title");
  workbench.project().SetNote("note");
  platform.answers = {Answer::kNo};
  files.New();
  EXPECT_THAT(platform.boxes, ElementsAre(kQuestion));
  EXPECT_EQ(worksheet.Text(2, 0), "title");

  files.New();
  EXPECT_EQ(worksheet.DataRowCnt(), 0);
  EXPECT_EQ(worksheet.grid().At(2, 1).look.colour, kGrey);
  EXPECT_EQ(context().ProjectName, "Project 1 ");
  EXPECT_EQ(context().ProjectNote, "");
  EXPECT_EQ(context().ProjectFile, folder / "Project 1");
  EXPECT_EQ(title(), "Project 1   Quorval5  Main Menu    ");
  files.New();
  EXPECT_EQ(platform.boxes.size(), 2u);
}

TEST_F(ProjectFilesTest, SaveIsEnabledBySaveAsAndDisabledByNew) {
  EXPECT_FALSE(files.CanSave());
  Fill();
  platform.paths = {folder / "a.qvl", folder / "a.qvl"};
  files.SaveAs();
  EXPECT_TRUE(files.CanSave());
  files.Open();
  EXPECT_TRUE(files.CanSave());
  files.New();
  EXPECT_FALSE(files.CanSave());
}

TEST_F(ProjectFilesTest, ComesBackWithItsNameAndNote) {
  Fill();
  workbench.project().Rename("Glucose");
  for (const char* note : {"", "two\nlines"}) {
    workbench.project().SetNote(note);
    const Grid before = worksheet.grid();
    platform.paths = {folder / "a.qvl", folder / "a.qvl"};
    files.SaveAs();
    EXPECT_EQ(worksheet.grid(), before);
    files.Open();
    EXPECT_EQ(worksheet.grid(), before);
    EXPECT_EQ(worksheet.DataRowCnt(), 10);
    EXPECT_EQ(context().ProjectName, "Glucose");
    EXPECT_EQ(context().ProjectNote, note);
    EXPECT_EQ(context().ProjectFile, folder / "a.qvl");
    EXPECT_EQ(title(), "Glucose  Quorval5  Main Window    ");
  }
  const FileQuestion& save = platform.file_questions[0];
  EXPECT_EQ(save.title, "Quorval  Project file ");
  EXPECT_THAT(save.filters, ElementsAre("Quorval Project File (.qvl)|*.qvl"));
  EXPECT_EQ(save.default_extension, ".ss6");
  EXPECT_EQ(save.proposed_name, "Glucose");
  const FileQuestion& open = platform.file_questions[1];
  EXPECT_EQ(open.title, "Open");
  EXPECT_THAT(open.filters, ElementsAre("Quorval project files (*.qvl *.ss6)|*.qvl;*.ss6",
                                        "Quorval project file (*.qvl)|*.qvl", "All files (*)|*"));
}

TEST_F(ProjectFilesTest, SaveWritesToTheProjectsFile) {
  Fill();
  platform.paths = {folder / "a.qvl"};
  files.SaveAs();
  worksheet.SetText(3, 0, "changed");
  workbench.project().Rename("New name");
  files.Save();
  EXPECT_THAT(platform.boxes, IsEmpty());
  files.OpenFile(folder / "a.qvl");
  EXPECT_EQ(worksheet.Text(3, 0), "changed");
  EXPECT_EQ(context().ProjectName, "New name");
}

TEST_F(ProjectFilesTest, AFullSheetComesBackWhole) {
  worksheet.SetText(1, Worksheet::kLastRow, "last");
  workbench.project().Rename("Full");
  platform.paths = {folder / "a.qvl"};
  files.SaveAs();
  files.OpenFile(folder / "a.qvl");
  EXPECT_EQ(worksheet.Text(1, Worksheet::kLastRow), "last");
  EXPECT_EQ(worksheet.DataRowCnt(), 10000);
  EXPECT_EQ(context().ProjectName, "Full");
}

// Of no more than two rows the two cells below the data stay data.
TEST_F(ProjectFilesTest, AnEmptyProjectComesBackAsTwoRows) {
  workbench.project().SetNote("note");
  platform.paths = {folder / "a.qvl"};
  files.SaveAs();
  files.OpenFile(folder / "a.qvl");
  EXPECT_EQ(worksheet.Text(1, 0), "Project 1");
  EXPECT_EQ(worksheet.Text(1, 1), "note");
  EXPECT_EQ(context().ProjectName, "Project 1 ");
  EXPECT_EQ(context().ProjectNote, "");
}

TEST_F(ProjectFilesTest, ACancelledSaveLeavesTheTwoCells) {
  Fill();
  workbench.project().SetNote("note");
  files.SaveAs();
  EXPECT_THAT(platform.boxes, ElementsAre("Cancelled file save"));
  EXPECT_EQ(worksheet.Text(1, 10), "Project 1");
  EXPECT_EQ(worksheet.Text(1, 11), "note");
  EXPECT_FALSE(files.CanSave());
}

TEST_F(ProjectFilesTest, ACancelledOpenLeavesAnEmptyProject) {
  Fill();
  files.Open();
  EXPECT_THAT(platform.boxes, ElementsAre(kQuestion));
  EXPECT_EQ(worksheet.DataRowCnt(), 0);
  EXPECT_EQ(context().ProjectName, "Project 1 ");
}

TEST_F(ProjectFilesTest, ARefusedSaveOrLoadIsNotNoticed) {
  Fill();
  platform.paths = {folder / "none/a.qvl", folder / "none/a.qvl"};
  files.SaveAs();
  EXPECT_THAT(platform.boxes, IsEmpty());
  EXPECT_EQ(worksheet.DataRowCnt(), 10);
  files.Open();
  EXPECT_THAT(platform.boxes, ElementsAre(kQuestion));
  EXPECT_EQ(worksheet.DataRowCnt(), 0);
  EXPECT_EQ(context().ProjectFile, folder / "none/a.qvl");
}

TEST_F(ProjectFilesTest, FailuresAreToldInTheWordsOfTheirCommands) {
  Fill();
  platform.dialog_fails = true;
  files.SaveAs();
  files.Export();
  files.Open();
  files.Import();
  EXPECT_THAT(platform.boxes, ElementsAre("Cancelled file save", "Error in file export", kQuestion,
                                          "Error", "Error in Excel file import"));
}

// --- Excel

TEST_F(ProjectFilesTest, ExportAndImport) {
  WriteExample(*FindExample("Control Chart Example"), worksheet);
  const Grid before = worksheet.grid();
  for (const char* name : {"a.xls", "a.xlsx", "a.csv", "no extension"}) {
    platform.boxes.clear();
    platform.titles.clear();
    platform.paths = {folder / name, folder / name};
    files.Export();
    files.Import();
    EXPECT_THAT(platform.boxes, ElementsAre("Export complete.", kQuestion, "File is an Excel file.",
                                            "Got sheet list.", "Import complete."));
    EXPECT_THAT(platform.titles, ElementsAre("Result", "", "File Type", "Status", "Result"));
    for (int row = 1; row <= 10; ++row)
      for (int column = 1; column <= 7; ++column)
        EXPECT_EQ(worksheet.grid().Text(column, row), before.Text(column, row));
    EXPECT_EQ(worksheet.grid().At(400, 1).look.colour, kGrey);
    EXPECT_EQ(title(), "Project 1   Quorval5  Main Menu    ");
  }
  EXPECT_EQ(platform.file_questions[0].title, "Open");
  EXPECT_EQ(platform.file_questions[0].filters.front(), "Excel file (*.xls)|*.xls");
  EXPECT_EQ(platform.file_questions[0].proposed_name, "Project 1");
  EXPECT_EQ(FilterFrom(platform.file_questions[1].filters[0]).patterns,
            "*.xls;*.xlsx;*.ods;*.csv;*.tsv");
  EXPECT_EQ(platform.file_questions[1].filters[1], "Import file (*.xls)|*.xls");
}

TEST_F(ProjectFilesTest, AnExportBeyondTheFormatLeavesNoFile) {
  worksheet.SetText(257, 1, "too far");
  platform.paths = {folder / "a.xls"};
  files.Export();
  EXPECT_THAT(platform.boxes, ElementsAre("Export did not succeed."));
  EXPECT_EQ(folder.Count(), 0u);
}

TEST_F(ProjectFilesTest, AnImportOfNoWorkbook) {
  test::WriteBytes(folder / "a.xls", "text");
  platform.paths = {folder / "a.xls", folder / "none.xls"};
  files.Import();
  files.Import();
  EXPECT_THAT(platform.boxes,
              testing::Each("File is not an Excel file or is locked and cannot be imported."));
  EXPECT_THAT(platform.titles, testing::Each("Invalid File Type or Locked"));
  EXPECT_EQ(platform.boxes.size(), 2u);
}

TEST_F(ProjectFilesTest, AnImportOfADamagedWorkbook) {
  Fill();
  platform.paths = {folder / "a.xls"};
  files.Export();
  std::string bytes = test::BytesOf(folder / "a.xls");
  bytes.replace(512, bytes.size() - 512, bytes.size() - 512, '\xFF');
  test::WriteBytes(folder / "a.xls", bytes);
  platform.boxes.clear();
  platform.titles.clear();
  platform.paths = {folder / "a.xls"};
  files.Import();
  EXPECT_THAT(platform.boxes,
              ElementsAre(kQuestion, "File is an Excel file.",
                          "Cannot return information for Excel file.", "Import did not succeed."));
  EXPECT_THAT(platform.titles, ElementsAre("", "File Type", "Result", "Result"));
  EXPECT_EQ(worksheet.DataRowCnt(), 0);
}

// --- Results

struct ResultsFilesTest : ProjectFilesTest {
  ResultsFilesTest() {
    workbench.ImportExample(*FindExample("XY Regression Single"));
    workbench.PressOk(open);
  }
  OpenAnalysis& open = workbench.Open(regression::kOls);
};

TEST_F(ResultsFilesTest, OpenAsAProjectNamedResults) {
  const Grid before = open.results->sheet.grid();
  platform.paths = {folder / "a.qvl"};
  workbench.SaveResults(open);
  EXPECT_EQ(open.results->sheet.grid(), before);
  EXPECT_EQ(platform.file_questions[0].title, "Save as ");
  EXPECT_THAT(platform.file_questions[0].filters, ElementsAre("Quorval Results File (.qvl)|*.qvl"));
  EXPECT_EQ(platform.file_questions[0].proposed_name,
            "Demo XY Regression Project (single)Results  ");
  files.OpenFile(folder / "a.qvl");
  EXPECT_EQ(context().ProjectName, "Results");
  EXPECT_EQ(context().ProjectNote, "Results");
  for (int row = 1; row <= before.DataRowCnt(); ++row)
    for (int column = 1; column <= 6; ++column) {
      EXPECT_EQ(worksheet.grid().Text(column, row), before.Text(column, row));
      EXPECT_EQ(worksheet.grid().Value(column, row), before.Value(column, row));
    }
  EXPECT_EQ(worksheet.DataRowCnt(), before.DataRowCnt());
}

TEST_F(ResultsFilesTest, AreNotSavedByACancelledDialog) {
  const Grid before = open.results->sheet.grid();
  workbench.SaveResults(open);
  EXPECT_THAT(platform.boxes, IsEmpty());
  EXPECT_EQ(open.results->sheet.grid(), before);
  EXPECT_EQ(folder.Count(), 0u);

  platform.dialog_fails = true;
  workbench.SaveResults(open);
  workbench.ExportResults(open);
  EXPECT_THAT(platform.boxes, ElementsAre("Cancelled file save", "Error in file export"));
  EXPECT_EQ(open.results->sheet.grid().DataRowCnt(), before.DataRowCnt() + 2);
}

TEST_F(ResultsFilesTest, AreExportedWithAllDigits) {
  platform.paths = {folder / "a.xls"};
  workbench.ExportResults(open);
  EXPECT_THAT(platform.boxes, ElementsAre("Export complete."));
  Worksheet exported;
  EXPECT_FALSE(ReadWorksheet(folder / "a.xls", exported));
  EXPECT_EQ(exported.Value(2, 10), open.results->sheet.grid().Value(2, 11));
  EXPECT_EQ(platform.file_questions[0].proposed_name,
            "Demo XY Regression Project (single)Results  ");
}

}  // namespace
}  // namespace quorval
