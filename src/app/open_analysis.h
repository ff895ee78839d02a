#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/analysis.h"

namespace quorval {

// A results window and its plot windows: what one run wrote and drew, and how it ended.  Nothing
// else writes to them, prints or closes them.
struct ResultsWindow {
  const Procedure* procedure;
  std::string title;
  ResultsSheet sheet;
  Form options;   // as the run read them
  Plots plots{};  // one for each plot window
  Outcome outcome = Outcome::kRefused;
  bool shown = false;
  // The points that were marked, where the analysis can be repeated without them: the window then
  // has the button "Outlier rejection".
  std::optional<Rejection> rejection{};
  Notices notices{};
  int run = 0;  // counts the runs of the program: a window of another number is another window

  // The plot of this window; null where there is none.
  Plot* FindPlot(std::string_view window);
  // What the analysis declares of its window.
  const PlotWindow& DeclarationOf(const Plot& plot) const;
};

// An analysis from the opening of its dialog to its exit.  The dialog stays loaded, hidden, while
// its results are shown; the menu entry opens it again beside them.
struct OpenAnalysis {
  const Analysis* analysis;
  Form form;
  bool dialog_shown = true;
  Notices notices{};  // of the last press of OK
  // Of the last run that ended, or of one that was refused where there are no others.
  std::optional<ResultsWindow> results{};

  explicit OpenAnalysis(const Analysis& which) : analysis(&which), form(*which.dialog) {}

  bool ShowsResults() const { return results && results->shown; }
};

}  // namespace quorval
