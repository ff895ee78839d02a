#include "desktop/desk.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <memory>

#include "desktop/chooser_view.h"
#include "desktop/dialog_view.h"
#include "desktop/plot_view.h"
#include "desktop/results_view.h"
#include "desktop/sheet_view.h"
#include "painting/qt_text.h"

namespace quorval {
namespace {

// A view may be the sender of the command that ends it: it goes once the command is through.
void Drop(QWidget* view) {
  if (view == nullptr) return;
  view->hide();
  view->disconnect();
  view->deleteLater();
}

// Places for plot windows: the right half of the screen, two above each other, then overlapping.
QRect PlotPlace(int index) {
  constexpr int kCascade = 30, kFrame = 40;
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  const QSize size(screen.width() * 9 / 20, screen.height() / 2 - 2 * kFrame);
  const int shift = kCascade * (index / 2);
  const int left = screen.right() - size.width() - kFrame / 2 - shift;
  const int top = screen.top() + kFrame + kCascade + (index % 2) * (size.height() + kFrame) + shift;
  return {QPoint(left, top), size};
}

}  // namespace

Desk::Desk(Workbench& workbench, QWidget& main_window)
    : workbench_(workbench), main_window_(main_window) {}

Desk::~Desk() = default;

void Desk::Open(const Analysis& analysis) {
  OpenAnalysis& open = workbench_.Open(analysis);
  Reconcile();
  const auto views = std::ranges::find(views_, &open, &Views::open);
  views->dialog->raise();
  views->dialog->activateWindow();
}

void Desk::OpenChooser(const MenuEntry& entry) {
  if (auto* const open = main_window_.findChild<ChooserView*>()) return open->activateWindow();
  auto* const chooser = new ChooserView(entry, &main_window_);
  connect(chooser, &ChooserView::Chosen, this,
          [this](const Analysis* analysis) { Open(*analysis); });
  chooser->show();
}

void Desk::OpenTool(const Tool& tool) {
  if (QWidget* const open = main_window_.findChild<DialogView*>(ToQt(tool.dialog->window))) {
    open->raise();
    return open->activateWindow();
  }
  const auto form = std::make_shared<Form>(*tool.dialog);
  auto* const view = new DialogView(*form, *tool.dialog, &main_window_);
  const auto leave = [view] {
    view->setObjectName({});
    Drop(view);
  };
  connect(view, &DialogView::OkPressed, this, [this, form, leave, &tool] {
    const Outcome outcome = workbench_.PressOk(tool, *form);
    emit WorksheetChanged();
    if (outcome == Outcome::kDone) leave();
  });
  connect(view, &DialogView::Cancelled, this, leave);
  connect(view, &DialogView::HelpWanted, this,
          [this, &tool] { workbench_.ShowManual(tool.manual); });
  view->show();
}

void Desk::Reconcile() {
  auto& open = workbench_.open();
  std::erase_if(views_, [&](Views& views) {
    const bool ended =
        std::ranges::none_of(open, [&](const OpenAnalysis& one) { return &one == views.open; });
    if (ended) {
      Drop(views.dialog);
      Drop(views.results);
    }
    return ended;
  });
  for (OpenAnalysis& one : open)
    if (std::ranges::count(views_, &one, &Views::open) == 0) views_.push_back({&one});
  for (Views& views : views_) {
    MatchResults(views);
    MatchDialog(views);
  }
  MatchPlots();
}

void Desk::CloseAll() {
  for (const Views& views : views_)
    if (views.results) views.results->sheet().EndEditing();
  while (!workbench_.open().empty()) {
    workbench_.Exit(workbench_.open().back());
    Reconcile();
  }
}

void Desk::MatchDialog(Views& views) {
  OpenAnalysis& open = *views.open;
  if (!views.dialog) {
    views.dialog = new DialogView(open.form, *open.analysis->dialog, &main_window_);
    connect(views.dialog, &DialogView::OkPressed, this, [this, &views] { PressOk(views); });
    connect(views.dialog, &DialogView::Cancelled, this, [this, &open] {
      workbench_.Cancel(open);
      Reconcile();
    });
    connect(views.dialog, &DialogView::HelpWanted, this,
            [this, &open] { workbench_.ShowManual(open.analysis->manual); });
  }
  if (views.dialog->isVisible() == open.dialog_shown) return;
  views.dialog->Refresh();
  views.dialog->setVisible(open.dialog_shown);
}

void Desk::PressOk(Views& views) {
  workbench_.PressOk(*views.open);
  if (!views.open->dialog_shown) {  // a new run has windows of its own
    Drop(views.results);
    views.results.clear();
  }
  Reconcile();
}

void Desk::MatchResults(Views& views) {
  OpenAnalysis& open = *views.open;
  if (!open.results || !open.results->shown) {
    Drop(views.results);
    return views.results.clear();
  }
  if (views.results) return views.results->Refresh();
  views.results = new ResultsView(workbench_, open, &main_window_);
  connect(views.results, &ResultsView::Commanded, this, &Desk::Reconcile);
  connect(views.results, &ResultsView::Printed, this, [this, &open] { ShowPlotsAgain(open); });
  connect(views.results, &ResultsView::PlotWanted, this, &Desk::BringForward);
  views.results->showMaximized();
}

void Desk::MatchPlots() {
  const auto& plots = workbench_.plots();
  std::erase_if(plots_, [&](auto& entry) {
    const auto plot = std::ranges::find(plots, entry.first, &Plot::window);
    const bool stays = plot != plots.end() && plot->shown && entry.second.view &&
                       entry.second.owner == OwnerOf(*plot);
    if (!stays) Drop(entry.second.view);
    return !stays;
  });
  for (const Plot& plot : plots)
    if (ResultsView* const owner = OwnerOf(plot); owner != nullptr && plot.shown)
      ShowPlot(plot, *owner);
}

void Desk::ShowPlot(const Plot& plot, ResultsView& owner) {
  PlotWindow& window = plots_[plot.window];
  if (window.view) return window.view->Refresh();
  window = {new PlotView(workbench_, plot.window, &owner), &owner};
  connect(window.view, &PlotView::AddedToSheet, this, &Desk::Reconcile);
  window.view->setAttribute(Qt::WA_ShowWithoutActivating);  // the keys stay with the results
  window.view->setGeometry(PlotPlace(static_cast<int>(plots_.size()) - 1));
  window.view->show();
}

void Desk::ShowPlotsAgain(const OpenAnalysis& open) {
  for (const Plot& plot : workbench_.plots()) {
    const auto window = plots_.find(plot.window);
    if (window == plots_.end() || !window->second.view || !Shows(open, plot)) continue;
    window->second.view->show();
    window->second.view->raise();
  }
}

void Desk::BringForward(const std::string& window) {
  const auto found = plots_.find(window);
  if (found == plots_.end() || !found->second.view) return;
  found->second.view->showMaximized();
  found->second.view->raise();
  found->second.view->activateWindow();
}

ResultsView* Desk::OwnerOf(const Plot& plot) const {
  // The last to fill a window that analyses share.
  const auto owner = std::find_if(views_.rbegin(), views_.rend(), [&](const Views& views) {
    return views.results && Shows(*views.open, plot);
  });
  return owner == views_.rend() ? nullptr : owner->results.data();
}

}  // namespace quorval
