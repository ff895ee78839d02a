// The declaration of an analysis: a record with a routine in it.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "core/dialog.h"
#include "core/run.h"

namespace quorval {

// What becomes of the results window when a run fails.
enum class Aftermath {
  kWindowStays,     // open, with the rows written so far
  kWindowCloses,    // the dialog is shown again
  kWindowNotShown,  // the dialog stays
};

// What the user sees of a failed run.
struct FailurePolicy {
  std::string_view fault{};   // the words for a Fault that no routine has claimed
  std::string_view second{};  // the box after a routine's own; empty: none
  Aftermath aftermath = Aftermath::kWindowStays;
};

// A print job of plots, one below the other on a page.  Jobs without an entry of their own are
// printed one after the other by the window's common entry.
struct PlotJob {
  std::span<const PlotWindow> pictures;
  std::string_view entry{};
};

// A picture of the run's one plot that is left in the program folder, by the file's extension.
struct KeptPicture {
  std::string_view file{};     // empty: none is left
  std::string_view failure{};  // the words where it cannot be written, which fails the run
};

// The File menu of a results window.
struct FileMenu {
  std::string_view back{};  // goes back to the options; empty: there is no such entry
  std::string_view print = "&Print Results";
  std::string_view save = "&Save as";
  std::string_view export_results = "&Export";
  std::string_view print_plots = "P&rint Plots";
  std::string_view exit = "&Exit";
};

// A button of a results window that brings one of its plot windows forward, maximised.
struct PlotButton {
  std::string_view caption{};  // empty: there is no button
  std::string_view plot_window{};
};

// One way in which an analysis runs: its results window and the routine that fills it.
struct Procedure {
  When when{};  // of an analysis' procedures the first runs whose condition holds
  std::string_view window;
  std::string_view title;
  std::string_view (*title_end)(const Form&) = nullptr;  // what follows the title, by the form
  FileMenu menu{};
  std::string_view print_header{};
  std::span<const PlotJob> plot_jobs{};
  std::span<const PlotWindow> plot_windows{};
  PlotButton plot_button{};
  KeptPicture kept_picture{};
  bool offers_tutorial = false;  // "&Tutorial" in the Help menu
  FailurePolicy failure{};
  void (*run)(Run&);
};

// The same window, filled another way where the dialog says so.
constexpr Procedure ForChoice(Procedure window, When when, void (*run)(Run&)) {
  window.when = when;
  window.run = run;
  return window;
}

// The title of the window that a run by this form shows.
std::string TitleOf(const Procedure& procedure, const Form& form);

struct Analysis {
  std::string_view id;  // what the batch program calls it
  const Dialog* dialog;
  std::span<const Procedure> procedures;
  std::span<const Quantity> quantities{};  // that its sheets can show, each name once
  std::span<const NamedTable> tables{};
  std::string_view manual;  // its page of the manual
};

// The procedure that a form chooses.
const Procedure& ProcedureFor(const Analysis& analysis, const Form& form);

enum class Outcome { kDone, kRefused };

// Runs `work` to its end or to the boxes of its failure.
template <class Work>
Outcome Guard(Messages& messages, const FailurePolicy& failure, Work&& work) {
  try {
    work();
    return Outcome::kDone;
  } catch (const Fault&) {
    messages.Tell(failure.fault);
  } catch (const Failure&) {
    if (!failure.second.empty()) messages.Tell(failure.second);
  } catch (const Refusal&) {
    // All has been said.
  }
  return Outcome::kRefused;
}

// The one place where a run is started, guarded and ended.
Outcome Execute(const Procedure& procedure, Run& run);

}  // namespace quorval
