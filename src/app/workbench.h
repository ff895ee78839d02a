// The program: the project and all that is open.  Both front ends command it and show what it then
// holds.
#pragma once

#include <filesystem>
#include <list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "app/examples.h"
#include "app/open_analysis.h"
#include "app/project.h"
#include "app/project_files.h"
#include "app/tools/tool.h"
#include "platform/platform.h"

namespace quorval {

class Workbench {
 public:
  Workbench(Platform& platform, const std::filesystem::path& app_folder)
      : platform_(platform), project_(app_folder) {}
  Workbench(const Workbench&) = delete;
  Workbench& operator=(const Workbench&) = delete;

  Platform& platform() { return platform_; }
  Project& project() { return project_; }
  const Project& project() const { return project_; }
  Worksheet& worksheet() { return project_.worksheet(); }

  // --- The project

  // New, Open, Save, Save As, Import and Export.
  ProjectFiles& files() { return files_; }
  // An example in the project's place; false when the user would rather keep the data.
  bool ImportExample(const Example& example);
  // Empties the worksheet without a question; name and note stay.
  void ClearWorksheet();
  void PrintWorksheet();
  // With no header and footer, as the toolbar does.
  void PrintWorksheetAtOnce();

  // The page of the note, with the text that its window holds.
  void PrintNote(std::string_view text);

  // --- An analysis: from its menu entry to its exit

  // Loads and shows its options dialog with the defaults, but for the fields of the dialogs behind
  // its buttons, which keep what was last accepted.  One that is shown already stays as it is, and
  // so do results.
  OpenAnalysis& Open(const Analysis& analysis);
  // Validates the fields and runs.  The only way to a run.  A run that ends takes the place of the
  // analysis' earlier results and plots.  One that is refused leaves them as they are, unless its
  // window closes on a failure.
  Outcome PressOk(OpenAnalysis& open);
  // Closes the dialog with nothing done: results that are shown stay, with the options they had.
  void Cancel(OpenAnalysis& open);
  // Unloads the results and their plots, and shows the dialog with its fields as they were.
  void BackToOptions(OpenAnalysis& open);
  // Unloads the results window, its dialog and its plots.
  void Exit(OpenAnalysis& open);
  // The results window's button "Outlier rejection", which is there while the window has a
  // rejection: asks, and repeats the run without the marked points.  It can be done once.
  void Reanalyse(OpenAnalysis& open);

  // --- A data tool

  // Changes the worksheet as the form says.  The dialog closes when it is done.
  Outcome PressOk(const Tool& tool, const Form& form);

  // --- A results window

  void SaveResults(OpenAnalysis& open);
  void ExportResults(OpenAnalysis& open);
  void PrintResults(OpenAnalysis& open);
  // The jobs of one File entry; the empty entry is the common one.
  void PrintPlots(OpenAnalysis& open, std::string_view entry = {});
  // The picture of one of its plots below the rows of its results sheet.
  void AddPlotToSheet(OpenAnalysis& open, const Plot& plot);

  std::list<OpenAnalysis>& open() { return open_; }

  // --- Help

  void ShowHelp(bool search);
  // A page of the manual, by its file.
  void ShowManual(std::string_view page);
  void ShowTutorial();

 private:
  bool TakeExample(const Example& example);
  // Keeps the fields of the dialogs behind the buttons.
  void Leave(const OpenAnalysis& open);
  ResultsWindow RunProcedure(const OpenAnalysis& open);
  // The picture is part of the run: the run has failed where it cannot be kept.
  Outcome KeepPicture(const Procedure& procedure, Run& run);
  void Tell(std::string_view text);

  Platform& platform_;
  Project project_;
  ProjectFiles files_{platform_, project_};
  std::list<OpenAnalysis> open_;          // a list: views hold on to the elements
  std::map<const Analysis*, Form> left_;  // as their users left them
  int runs_ = 0;
};

}  // namespace quorval
