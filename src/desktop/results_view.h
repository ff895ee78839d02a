#pragma once

#include <QMainWindow>
#include <QToolBar>

#include "app/workbench.h"

namespace quorval {

class NoticeStrip;
class SheetView;

// Any results window: its sheet, its menus, and above the sheet what its run noted.  Closing it
// ends the analysis.
class ResultsView : public QMainWindow {
  Q_OBJECT

 public:
  ResultsView(Workbench& workbench, OpenAnalysis& open, QWidget* parent);

  // Shows what the analysis now holds.
  void Refresh();
  SheetView& sheet() { return *sheet_; }

 signals:
  // A command has changed what the workbench holds.
  void Commanded();
  // All plot windows are to be shown again.
  void PlotsWanted();
  // This one is to come forward.
  void PlotWanted(const std::string& window, bool maximised);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeFileMenu();
  void MakePlotsMenu();
  void FillPlotsMenu();
  void MakeHelpMenu();
  void MakePlotButton();
  void MakeRejectionBar();
  void PrintPlots(std::string_view entry);

  Workbench& workbench_;
  OpenAnalysis& open_;
  NoticeStrip* notices_;
  SheetView* sheet_;
  QMenu* plots_menu_ = nullptr;
  QToolBar* rejection_bar_ = nullptr;  // there while the marked points can be left out
};

}  // namespace quorval
