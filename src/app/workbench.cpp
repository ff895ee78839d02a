#include "app/workbench.h"

#include <algorithm>
#include <utility>

#include "app/note_page.h"
#include "app/rejection_notice.h"
#include "app/results_files.h"
#include "app/wait_pointer.h"
#include "results/picture_file.h"
#include "results/print.h"

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

// Takes the plots of a run.  Plot windows that it left empty open empty.
void TakePlots(ResultsWindow& window, Plots plots) {
  window.plots = std::move(plots);
  for (const PlotWindow& one : window.procedure->plot_windows)
    if (one.opens_empty && window.FindPlot(one.window) == nullptr) AddPlot(window.plots, one);
}

}  // namespace

const PlotWindow& ResultsWindow::DeclarationOf(const Plot& plot) const {
  return *std::ranges::find(procedure->plot_windows, plot.window, &PlotWindow::window);
}

Plot* ResultsWindow::FindPlot(std::string_view name) {
  const auto found = std::ranges::find(plots, name, &Plot::window);
  return found == plots.end() ? nullptr : &*found;
}

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
  auto found = std::ranges::find(open_, &analysis, &OpenAnalysis::analysis);
  if (found != open_.end() && found->dialog_shown) return *found;
  if (found == open_.end())
    found = open_.emplace(open_.end(), analysis);
  else
    Leave(*found);
  found->form = Form(*analysis.dialog);
  if (const auto left = left_.find(&analysis); left != left_.end())
    found->form.TakeNested(left->second);
  found->notices.clear();
  found->dialog_shown = true;
  return *found;
}

Outcome Workbench::PressOk(OpenAnalysis& open) {
  const WaitPointer wait(platform_);
  open.notices.clear();
  if (const auto refusal = open.form.BrokenRule(open.notices); !refusal.empty()) {
    RunMessages(platform_).Tell(refusal);
    platform_.ShowNotices(open.notices);
    return Outcome::kRefused;
  }
  ResultsWindow window = RunProcedure(open);
  open.notices = window.notices;
  platform_.ShowNotices(open.notices);
  const Outcome outcome = window.outcome;
  const bool closes = window.procedure->failure.aftermath == Aftermath::kWindowCloses;
  const bool earlier_stays = outcome == Outcome::kRefused && open.ShowsResults() && !closes;
  open.dialog_shown = earlier_stays || !window.shown;
  if (!earlier_stays) open.results.emplace(std::move(window));
  return outcome;
}

ResultsWindow Workbench::RunProcedure(const OpenAnalysis& open) {
  const Procedure& procedure = ProcedureFor(*open.analysis, open.form);
  ResultsWindow window{&procedure, TitleOf(procedure, open.form), ResultsSheet(project_.context()),
                       open.form};
  RunMessages messages(platform_);
  Run run{open.form, project_.worksheet(), project_.context(), messages, window.sheet};
  window.outcome = Execute(procedure, run);
  if (window.outcome == Outcome::kDone) window.outcome = KeepPicture(procedure, run);
  window.sheet.PaintHead();
  window.shown =
      window.outcome == Outcome::kDone || procedure.failure.aftermath == Aftermath::kWindowStays;
  if (window.shown) TakePlots(window, std::move(run.plots));
  window.rejection = std::move(run.rejection);
  window.notices = std::move(run.notices);
  window.run = ++runs_;
  return window;
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

void Workbench::Cancel(OpenAnalysis& open) {
  if (!open.ShowsResults()) return Exit(open);
  Form options = open.results->options;
  options.TakeNested(open.form);
  open.form = std::move(options);
  open.dialog_shown = false;
}

void Workbench::BackToOptions(OpenAnalysis& open) {
  open.results.reset();
  open.dialog_shown = true;
}

void Workbench::Leave(const OpenAnalysis& open) {
  left_.insert_or_assign(open.analysis, open.form);
}

void Workbench::Exit(OpenAnalysis& open) {
  Leave(open);
  open_.remove_if([&](const OpenAnalysis& one) { return &one == &open; });
}

// --- A data tool

Outcome Workbench::PressOk(const Tool& tool, const Form& form) {
  const WaitPointer wait(platform_);
  RunMessages messages(platform_);
  ToolRun run{form, worksheet(), messages};
  Outcome outcome = Outcome::kRefused;
  project_.Do([&] { outcome = Execute(tool, run); });
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
  const std::filesystem::path& folder = project_.context().AppFolder;
  if (!quorval::PrintPlots(platform_, jobs, open.results->plots, folder)) Tell("Error");
}

void Workbench::AddPlotToSheet(OpenAnalysis& open, const Plot& plot) {
  const std::string_view bitmap = open.results->DeclarationOf(plot).bitmap;
  Picture picture = PictureOf(platform_, plot, project_.context().AppFolder / bitmap);
  if (!picture) return Tell("Error");
  AddPictureBelow(open.results->sheet.grid(), std::move(picture));
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
