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

  // Loads and shows its options dialog; the one that is loaded already, if there is one.
  OpenAnalysis& Open(const Analysis& analysis);
  // Validates the fields and runs.  The only way to a run.
  Outcome PressOk(OpenAnalysis& open);
  // Unloads the dialog; its fields are back at their defaults when it opens again, but for those of
  // the dialogs behind its buttons.
  void Cancel(OpenAnalysis& open) { Exit(open); }
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
  // The plot's picture below the rows of the results sheet that drew it.
  void AddPlotToSheet(const Plot& plot);

  std::list<OpenAnalysis>& open() { return open_; }
  // The plot windows, one for each name whichever analysis filled it.
  std::vector<Plot>& plots() { return plots_; }

  // --- Help

  void ShowHelp(bool search);
  // A page of the manual, by its file.
  void ShowManual(std::string_view page);
  void ShowTutorial();

 private:
  bool TakeExample(const Example& example);
  void RunProcedure(OpenAnalysis& open);
  // The picture is part of the run: the run has failed where it cannot be kept.
  Outcome KeepPicture(const Procedure& procedure, Run& run);
  void TakePlots(ResultsWindow& window, std::vector<Plot> plots);
  void UnloadResults(OpenAnalysis& open);
  void Tell(std::string_view text);

  Platform& platform_;
  Project project_;
  ProjectFiles files_{platform_, project_};
  std::list<OpenAnalysis> open_;          // a list: views hold on to the elements
  std::map<const Analysis*, Form> left_;  // as their users left them
  std::vector<Plot> plots_;
};

// Whether a plot belongs to the results window of an open analysis.
bool Shows(const OpenAnalysis& open, const Plot& plot);

}  // namespace quorval
