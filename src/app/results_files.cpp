#include "app/results_files.h"

#include "app/sheet_files.h"

namespace quorval {
namespace {

std::string ProposedName(const Context& context) { return context.ProjectName + "Results  "; }

// The regressions' windows, whose entry is spelled in another way, bring their own dialog.
FileQuestion SaveQuestion(const Procedure& procedure, const Context& context) {
  const bool regression = procedure.menu.save == FileMenu{}.save;
  return {.title = regression ? "Save as " : "Save As",
          .filters = {"Quorval Results File (.qvl)|*.qvl"},
          .proposed_name = ProposedName(context),
          .default_extension = regression ? ".qvl" : ""};
}

}  // namespace

void SaveResults(Platform& platform, ResultsWindow& window, const Context& context) {
  SaveSheet(platform, window.sheet.grid(), kResultsMarkers, [&] {
    // No name, of which no file comes, is what a cancelled dialog reports.
    return platform.AskSave(SaveQuestion(*window.procedure, context))
        .value_or(std::filesystem::path{});
  });
}

void ExportResults(Platform& platform, const ResultsWindow& window, const Context& context) {
  ExportSheet(platform, window.sheet.grid(), ProposedName(context));
}

}  // namespace quorval
