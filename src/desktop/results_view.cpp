#include "desktop/results_view.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>
#include <QStatusBar>
#include <QVBoxLayout>
#include <vector>

#include "desktop/about_box.h"
#include "desktop/caption.h"
#include "desktop/mnemonics.h"
#include "desktop/notice_strip.h"
#include "desktop/sheet_view.h"

namespace quorval {
namespace {

// The entries of the plot jobs, each once; the common one is empty.
std::vector<std::string_view> EntriesOf(std::span<const PlotJob> jobs) {
  std::vector<std::string_view> entries;
  for (const PlotJob& job : jobs)
    if (std::ranges::count(entries, job.entry) == 0) entries.push_back(job.entry);
  return entries;
}

}  // namespace

ResultsView::ResultsView(Workbench& workbench, OpenAnalysis& open, QWidget* parent)
    : QMainWindow(parent),
      workbench_(workbench),
      open_(open),
      notices_(new NoticeStrip(this)),
      sheet_(new SheetView(open.results->sheet.grid(), 1, this)) {
  setObjectName(ToQt(open.results->procedure->window));
  setWindowFlag(Qt::Window);
  sheet_->setAccessibleName("Results");
  auto* const centre = new QWidget;
  auto* const layout = new QVBoxLayout(centre);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  layout->addWidget(notices_);
  layout->addWidget(sheet_, 1);
  setCentralWidget(centre);
  MakeFileMenu();
  MakePlotsMenu();
  MakeHelpMenu();
  MakePlotButton();
  MakeRejectionBar();
  connect(sheet_, &SheetView::Told, statusBar(),
          [this](const QString& text) { statusBar()->showMessage(text); });
  resize(900, 650);
  Refresh();
  sheet_->FitColumns();
}

void ResultsView::Refresh() {
  setWindowTitle(ToQt(open_.results->title));
  notices_->Show(open_.results->notices);
  sheet_->Refresh();
  FillPlotsMenu();
  rejection_bar_->setVisible(open_.results->rejection.has_value());
  GiveMnemonics(*this);
}

void ResultsView::closeEvent(QCloseEvent* event) {
  event->accept();
  sheet_->EndEditing();
  workbench_.Exit(open_);
  emit Commanded();
}

void ResultsView::MakeFileMenu() {
  const Procedure& procedure = *open_.results->procedure;
  const FileMenu& captions = procedure.menu;
  QMenu* const menu = menuBar()->addMenu("&File");
  if (!captions.back.empty())
    menu->addAction(ToQt(captions.back), this, [this] {
      sheet_->EndEditing();
      workbench_.BackToOptions(open_);
      emit Commanded();
    });
  QAction* const print = menu->addAction(ToQt(captions.print), this, [this] {
    sheet_->EndEditing();
    workbench_.PrintResults(open_);
    emit PlotsWanted();
  });
  print->setShortcut(QKeySequence::Print);
  menu->addAction(ToQt(captions.save), this, [this] {
    sheet_->EndEditing();
    workbench_.SaveResults(open_);
    Refresh();
  });
  menu->addAction(ToQt(captions.export_results), this, [this] {
    sheet_->EndEditing();
    workbench_.ExportResults(open_);
  });
  for (std::string_view entry : EntriesOf(procedure.plot_jobs))
    menu->addAction(ToQt(entry.empty() ? captions.print_plots : entry), this,
                    [this, entry] { PrintPlots(entry); });
  menu->addAction(ToQt(captions.exit), this, &QWidget::close);
}

// A plot window that was closed comes back by its caption here.
void ResultsView::MakePlotsMenu() { plots_menu_ = menuBar()->addMenu("&Plots"); }

void ResultsView::FillPlotsMenu() {
  plots_menu_->clear();
  for (const Plot& plot : open_.results->plots)
    if (plot.shown)
      plots_menu_->addAction(ToQt(plot.caption), this,
                             [this, window = plot.window] { emit PlotWanted(window, false); });
  plots_menu_->menuAction()->setVisible(!plots_menu_->isEmpty());
  if (plots_menu_->isEmpty()) return;
  plots_menu_->addSeparator();
  plots_menu_->addAction("Show &all", this, &ResultsView::PlotsWanted);
}

void ResultsView::MakeHelpMenu() {
  QMenu* const menu = menuBar()->addMenu("&Help");
  menu->addAction("&Help Topics", this, [this] { workbench_.ShowHelp(false); });
  connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, this,
          [this] { workbench_.ShowManual(open_.analysis->manual); });
  menu->addAction("&About", this, [this] { ShowAboutBox(this); });
  if (open_.results->procedure->offers_tutorial)
    menu->addAction("&Tutorial", this, [this] { workbench_.ShowTutorial(); });
}

void ResultsView::MakePlotButton() {
  const PlotButton& wanted = open_.results->procedure->plot_button;
  if (wanted.caption.empty()) return;
  auto* const button = new QPushButton(PlainCaption(wanted.caption));
  connect(button, &QPushButton::clicked, this,
          [this, &wanted] { emit PlotWanted(std::string(wanted.plot_window), true); });
  QToolBar* const bar = addToolBar("Plots");
  bar->setMovable(false);
  bar->addWidget(button);
}

void ResultsView::MakeRejectionBar() {
  auto* const button = new QPushButton("Outlier rejection");
  button->setObjectName("outlier-rejection");
  connect(button, &QPushButton::clicked, this, [this] {
    sheet_->EndEditing();
    workbench_.Reanalyse(open_);
    Refresh();
    emit Commanded();
  });
  rejection_bar_ = addToolBar("Outlier rejection");
  rejection_bar_->setMovable(false);
  rejection_bar_->addWidget(new QLabel(" Regression estimates  "));
  rejection_bar_->addWidget(button);
}

void ResultsView::PrintPlots(std::string_view entry) {
  workbench_.PrintPlots(open_, entry);
  emit PlotsWanted();
}

}  // namespace quorval
