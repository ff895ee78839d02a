#pragma once

#include <QMainWindow>
#include <QToolBar>

#include "app/workbench.h"

namespace quorval {

class SheetView;

// Any results window: its sheet and its menus.  Closing it ends the analysis.
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
  // The plots are to be shown again.
  void Printed();
  // This plot window is to come forward.
  void PlotWanted(const std::string& window);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeFileMenu();
  void MakeHelpMenu();
  void MakePlotButton();
  void MakeRejectionBar();
  void PrintPlots(std::string_view entry);

  Workbench& workbench_;
  OpenAnalysis& open_;
  SheetView* sheet_;
  QToolBar* rejection_bar_ = nullptr;  // there while the marked points can be left out
};

}  // namespace quorval
