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
QRect GeometryOf(int place) {
  constexpr int kCascade = 30, kFrame = 40;
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  const QSize size(screen.width() * 9 / 20, screen.height() / 2 - 2 * kFrame);
  const int shift = kCascade * (place / 2);
  const int left = screen.right() - size.width() - kFrame / 2 - shift;
  const int top = screen.top() + kFrame + kCascade + (place % 2) * (size.height() + kFrame) + shift;
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
      DropResults(views);
    }
    return ended;
  });
  for (OpenAnalysis& one : open)
    if (std::ranges::count(views_, &one, &Views::open) == 0) views_.push_back({&one});
  for (Views& views : views_) {
    MatchResults(views);
    MatchPlots(views);
    MatchDialog(views);
  }
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
  views.dialog->ShowNotices(open.notices);
  if (views.dialog->isVisible() == open.dialog_shown) return;
  views.dialog->Refresh();
  views.dialog->setVisible(open.dialog_shown);
}

void Desk::PressOk(Views& views) {
  workbench_.PressOk(*views.open);
  Reconcile();
}

void Desk::MatchResults(Views& views) {
  OpenAnalysis& open = *views.open;
  if (!open.ShowsResults()) return DropResults(views);
  if (views.results && views.run == open.results->run) return views.results->Refresh();
  DropResults(views);  // a new run has windows of its own
  views.run = open.results->run;
  views.results = new ResultsView(workbench_, open, &main_window_);
  connect(views.results, &ResultsView::Commanded, this, &Desk::Reconcile);
  connect(views.results, &ResultsView::PlotsWanted, this, [this, &views] { ShowPlots(views); });
  connect(views.results, &ResultsView::PlotWanted, this,
          [this, &views](const std::string& window, bool maximised) {
            ShowPlot(views, window, maximised);
          });
  views.results->showMaximized();
  views.results->raise();
}

void Desk::DropResults(Views& views) {
  for (auto& [window, plot] : views.plots) Drop(plot.view);
  views.plots.clear();
  Drop(views.results);
  views.results.clear();
}

void Desk::MatchPlots(Views& views) {
  if (!views.results) return;
  for (const Plot& plot : views.open->results->plots) {
    const auto found = views.plots.find(plot.window);
    if (found != views.plots.end() && plot.shown) {
      found->second.view->Refresh();
    } else if (found != views.plots.end()) {
      Drop(found->second.view);
      views.plots.erase(found);
    } else if (plot.shown) {
      AddPlot(views, plot);
    }
  }
}

void Desk::AddPlot(Views& views, const Plot& plot) {
  const int place = FreePlace();
  auto* const view = new PlotView(workbench_, *views.open, plot.window, views.results);
  views.plots[plot.window] = {view, place};
  connect(view, &PlotView::AddedToSheet, this, &Desk::Reconcile);
  view->setAttribute(Qt::WA_ShowWithoutActivating);  // the keys stay with the results
  view->setGeometry(GeometryOf(place));
  view->show();
  view->raise();
}

int Desk::FreePlace() const {
  const auto taken = [&](int place) {
    return std::ranges::any_of(views_, [&](const Views& views) {
      return std::ranges::any_of(views.plots, [&](const auto& entry) {
        return entry.second.place == place && entry.second.view->isVisible();
      });
    });
  };
  int place = 0;
  while (taken(place)) ++place;
  return place;
}

void Desk::ShowPlots(Views& views) {
  for (auto& [window, plot] : views.plots) {
    plot.view->show();
    plot.view->raise();
  }
}

void Desk::ShowPlot(Views& views, std::string_view window, bool maximised) {
  const auto found = views.plots.find(window);
  if (found == views.plots.end()) return;
  PlotView& view = *found->second.view;
  if (maximised)
    view.showMaximized();
  else
    view.show();
  view.raise();
  view.activateWindow();
}

}  // namespace quorval
