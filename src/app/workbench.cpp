#include "app/workbench.h"

#include <algorithm>
#include <utility>

#include "app/note_page.h"
#include "app/results_files.h"
#include "app/wait_pointer.h"
#include "results/picture_file.h"
#include "results/print.h"
#include "results/rejection_notice.h"

namespace quorval {
namespace {

constexpr std::string_view kWorksheetHeader = "/cQuorval - Data/rPage #/p/n";
constexpr std::string_view kHelpFile = "DOCQUORVAL.hlp";
constexpr std::string_view kTutorialFile = "Tutorial.hlp";
constexpr std::string_view kNoHelp =
    "Unable to display Help Contents. There is no Help associated with this project.";

// The boxes of a run.  The wait pointer is taken back before any of them.
class RunMessages : public Messages {
 public:
  explicit RunMessages(Platform& platform) : platform_(platform) {}
  void Tell(std::string_view text) override {
    platform_.ShowWaitPointer(false);
    platform_.Show({.text = std::string(text)});
  }

 private:
  Platform& platform_;
};

std::string JoinLines(std::span<const std::string> lines) {
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

Plot* FindPlot(std::vector<Plot>& plots, std::string_view window) {
  const auto found = std::ranges::find(plots, window, &Plot::window);
  return found == plots.end() ? nullptr : &*found;
}

}  // namespace

void Workbench::Tell(std::string_view text) { platform_.Show({.text = std::string(text)}); }

// --- The project

bool Workbench::ImportExample(const Example& example) {
  bool taken = true;
  project_.Do([&] { taken = TakeExample(example); });
  return taken;
}

bool Workbench::TakeExample(const Example& example) {
  const auto take = [&](const ExampleProject& to) { project_.TakeExample(to.name, to.note); };
  if (example.question == ExampleQuestion::kAfterClearing) {
    take(example.before_clearing);
    worksheet().Clear();
  }
  if (example.question != ExampleQuestion::kNever && !files_.MayReplace()) return false;
  try {
    take(example.project);
    WriteExample(example, worksheet());
    project_.MarkKept();
  } catch (const std::exception&) {
    Tell(example.failure);
  }
  return true;
}

void Workbench::ClearWorksheet() {
  project_.Do([&] { worksheet().Clear(); });
}

void Workbench::PrintWorksheet() {
  const PrintJob job = SheetPage(worksheet().grid(), kWorksheetHeader);
  if (!platform_.Print({&job, 1})) Tell("Error");
}

void Workbench::PrintWorksheetAtOnce() {
  PrintJob job = SheetPage(worksheet().grid(), {});
  job.footer.clear();
  if (!platform_.Print({&job, 1})) Tell("Error");
}

// A cancelled or failed print leaves everything as it is, and tells nothing.
void Workbench::PrintNote(std::string_view text) {
  const PrintJob job = NotePageJob(project_.context(), text);
  platform_.Print({&job, 1});
}

// --- An analysis

OpenAnalysis& Workbench::Open(const Analysis& analysis) {
  const auto found = std::ranges::find(open_, &analysis, &OpenAnalysis::analysis);
  if (found != open_.end()) {
    found->dialog_shown = true;
    return *found;
  }
  OpenAnalysis& open = open_.emplace_back(analysis);
  if (const auto left = left_.find(&analysis); left != left_.end())
    open.form.TakeNested(left->second);
  return open;
}

Outcome Workbench::PressOk(OpenAnalysis& open) {
  const WaitPointer wait(platform_);
  if (const Rule* broken = open.form.BrokenRule()) {
    RunMessages(platform_).Tell(broken->words);
    return Outcome::kRefused;
  }
  RunProcedure(open);
  return open.results->outcome;
}

void Workbench::RunProcedure(OpenAnalysis& open) {
  const Procedure& procedure = ProcedureFor(*open.analysis, open.form);
  ResultsWindow& window = open.results.emplace(ResultsWindow{
      &procedure, procedure.title(open.form), ResultsSheet(project_.context()), open.form});
  RunMessages messages(platform_);
  Run run{open.form, project_.worksheet(), project_.context(), messages, window.sheet};
  window.outcome = Execute(procedure, run);
  if (window.outcome == Outcome::kDone) window.outcome = KeepPicture(procedure, run);
  window.notices = std::move(run.notices);
  platform_.ShowNotices(window.notices);
  window.sheet.PaintHead();
  window.shown =
      window.outcome == Outcome::kDone || procedure.failure.aftermath == Aftermath::kWindowStays;
  open.dialog_shown = !window.shown;
  window.rejection = std::move(run.rejection);
  TakePlots(window, window.shown ? std::move(run.plots) : std::vector<Plot>{});
}

Outcome Workbench::KeepPicture(const Procedure& procedure, Run& run) {
  const KeptPicture& picture = procedure.kept_picture;
  if (picture.file.empty()) return Outcome::kDone;
  const Outcome outcome = Guard(run.messages, procedure.failure, [&] {
    if (platform_.KeepPlot(run.plots.back(), project_.context().AppFolder / picture.file)) return;
    run.messages.Tell(picture.failure);
    throw Failure{};
  });
  if (outcome == Outcome::kRefused) run.plots.clear();
  return outcome;
}

void Workbench::Reanalyse(OpenAnalysis& open) {
  if (!open.results || !open.results->rejection) return;
  ResultsWindow& window = *open.results;
  const Rejection rejection = *window.rejection;
  const std::vector<std::string> notice = NoticeOf(rejection);
  const Answer answer = platform_.Show({.text = "Repeat analysis without identified outliers ?",
                                        .buttons = Buttons::kYesNo,
                                        .beside = JoinLines(notice)});
  if (answer != Answer::kYes) return;
  const auto picture = project_.context().AppFolder / "OutlierRejDEM.svg";
  if (!platform_.KeepPicture(NoticePicture(notice), picture)) return Tell("Error");

  const WaitPointer wait(platform_);
  for (std::string_view key : rejection.read_anew) window.options.Set(key, open.form.TextOf(key));
  RunMessages messages(platform_);
  Run run{window.options, project_.worksheet(), project_.context(),
          messages,       window.sheet,         &rejection};
  window.outcome = Execute(*window.procedure, run);
  window.notices = std::move(run.notices);
  platform_.ShowNotices(window.notices);
  window.sheet.PaintHead();
  TakePlots(window, std::move(run.plots));
  if (window.outcome == Outcome::kRefused) {
    messages.Tell("Error");
  } else {
    window.rejection.reset();
  }
}

// Windows of an earlier run under the same names go; those that the run left empty open empty.
void Workbench::TakePlots(ResultsWindow& window, std::vector<Plot> plots) {
  if (window.shown)
    for (std::string_view name : window.procedure->plot_windows)
      if (FindPlot(plots, name) == nullptr) plots.push_back({.window = std::string(name)});
  window.plot_windows.clear();
  for (Plot& plot : plots) {
    std::erase_if(plots_, [&](const Plot& old) { return old.window == plot.window; });
    window.plot_windows.push_back(plot.window);
    plots_.push_back(std::move(plot));
  }
}

void Workbench::UnloadResults(OpenAnalysis& open) {
  if (!open.results) return;
  std::erase_if(plots_, [&](const Plot& plot) { return Shows(open, plot); });
  open.results.reset();
}

void Workbench::BackToOptions(OpenAnalysis& open) {
  UnloadResults(open);
  open.dialog_shown = true;
}

void Workbench::Exit(OpenAnalysis& open) {
  UnloadResults(open);
  left_.insert_or_assign(open.analysis, open.form);
  open_.remove_if([&](const OpenAnalysis& one) { return &one == &open; });
}

// --- A data tool

Outcome Workbench::PressOk(const Tool& tool, const Form& form) {
  const WaitPointer wait(platform_);
  RunMessages messages(platform_);
  ToolRun run{form, worksheet(), messages};
  Outcome outcome = Outcome::kRefused;
  project_.Do([&] { outcome = Guard(messages, tool.failure, [&] { tool.run(run); }); });
  platform_.ShowNotices(run.notices);
  return outcome;
}

// --- A results window

void Workbench::PrintResults(OpenAnalysis& open) {
  const PrintJob job = SheetPage(open.results->sheet.grid(), open.results->procedure->print_header);
  if (!platform_.Print({&job, 1})) Tell("Error");
}

void Workbench::PrintPlots(OpenAnalysis& open, std::string_view entry) {
  std::vector<const PlotJob*> jobs;
  for (const PlotJob& job : open.results->procedure->plot_jobs)
    if (job.entry == entry) jobs.push_back(&job);
  if (!quorval::PrintPlots(platform_, jobs, plots_, project_.context().AppFolder)) Tell("Error");
}

void Workbench::AddPlotToSheet(const Plot& plot) {
  const auto owner = std::ranges::find_if(
      open_, [&](const OpenAnalysis& open) { return open.results && Shows(open, plot); });
  if (owner == open_.end()) return;
  Picture picture = PictureOf(platform_, plot, project_.context().AppFolder / " Chart2D1Res.bmp");
  if (!picture) return Tell("Error");
  AddPictureBelow(owner->results->sheet.grid(), std::move(picture));
}

bool Shows(const OpenAnalysis& open, const Plot& plot) {
  return open.results && std::ranges::count(open.results->plot_windows, plot.window) > 0;
}

void Workbench::SaveResults(OpenAnalysis& open) {
  quorval::SaveResults(platform_, *open.results, project_.context());
}

void Workbench::ExportResults(OpenAnalysis& open) {
  quorval::ExportResults(platform_, *open.results, project_.context());
}

// --- Help

void Workbench::ShowHelp(bool search) {
  if (!platform_.OpenHelp(kHelpFile, search)) Tell(kNoHelp);
}

void Workbench::ShowManual(std::string_view page) {
  const std::string file = std::string(kHelpFile) + "/" + std::string(page);
  if (!platform_.OpenHelp(file, false)) Tell(kNoHelp);
}

void Workbench::ShowTutorial() {
  if (!platform_.OpenHelp(kTutorialFile, false)) Tell("Error in Tutorial");
}

}  // namespace quorval
