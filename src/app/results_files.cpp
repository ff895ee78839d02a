#include "app/results_files.h"

#include "app/sheet_files.h"
#include "core/file_name.h"

namespace quorval {
namespace {

std::string ProposedName(const Context& context) { return context.ProjectName + "Results  "; }

// The regressions' windows, whose entry is spelled in another way, bring their own dialog.
FileQuestion SaveQuestion(const Procedure& procedure, const Context& context) {
  const bool regression = procedure.menu.save == FileMenu{}.save;
  return {.title = regression ? "Save as " : "Save As",
          .filters = {"Quorval Results File (.qvl)|*.qvl"},
          .proposed_name = FileNameOf(ProposedName(context)),
          .default_extension = regression ? ".qvl" : ""};
}

}  // namespace

void SaveResults(Platform& platform, ResultsWindow& window, const Context& context) {
  Notices notices;
  SheetEditor editor(window.sheet.grid());
  SaveSheet(platform, editor, kResultsMarkers, notices, [&] {
    const auto path = platform.AskSave(SaveQuestion(*window.procedure, context));
    if (!path) return;
    const auto failure =
        WhyFailed(platform, [&] { WriteProjectFile(*path, window.sheet.grid(), kResultsMarkers); });
    NoteSave(*path, failure, notices);
  });
  platform.ShowNotices(notices);
}

void ExportResults(Platform& platform, const ResultsWindow& window, const Context& context) {
  ExportSheet(platform, window.sheet.grid(), ProposedName(context));
}

}  // namespace quorval
