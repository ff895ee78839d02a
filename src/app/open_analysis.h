#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/analysis.h"

namespace quorval {

// A results window: what its analysis wrote, and how it ended.
struct ResultsWindow {
  const Procedure* procedure;
  std::string title;
  ResultsSheet sheet;
  Form options;                             // as the run read them
  std::vector<std::string> plot_windows{};  // open beside it
  Outcome outcome = Outcome::kRefused;
  bool shown = false;
  // The points that were marked, where the analysis can be repeated without them: the window then
  // has the button "Outlier rejection".
  std::optional<Rejection> rejection{};
  Notices notices{};
};

// An analysis from the opening of its dialog to its exit.  The dialog stays loaded, hidden, while
// its results are shown.
struct OpenAnalysis {
  const Analysis* analysis;
  Form form;
  bool dialog_shown = true;
  std::optional<ResultsWindow> results{};

  explicit OpenAnalysis(const Analysis& which) : analysis(&which), form(*which.dialog) {}
};

}  // namespace quorval
