#pragma once

#include <QObject>
#include <QPointer>
#include <list>
#include <map>
#include <string>

#include "analyses/registry.h"
#include "app/workbench.h"

class QWidget;

namespace quorval {

class DialogView;
class PlotView;
class ResultsView;

// The windows beside the main window: a view of each dialog, results window and plot that the
// workbench holds, no more and no fewer.
class Desk : public QObject {
  Q_OBJECT

 public:
  Desk(Workbench& workbench, QWidget& main_window);
  ~Desk() override;

  void Open(const Analysis& analysis);
  void OpenChooser(const MenuEntry& entry);
  void OpenTool(const Tool& tool);
  // Makes, refreshes and destroys views until they match; to be called after every command.
  void Reconcile();
  // Ends all analyses, the last one first.
  void CloseAll();

 signals:
  // By a data tool.
  void WorksheetChanged();

 private:
  struct Views {
    OpenAnalysis* open;
    QPointer<DialogView> dialog{};
    QPointer<ResultsView> results{};
  };
  struct PlotWindow {
    QPointer<PlotView> view{};
    QPointer<QWidget> owner{};
  };

  void PressOk(Views& views);
  void MatchDialog(Views& views);
  void MatchResults(Views& views);
  void MatchPlots();
  void ShowPlot(const Plot& plot, ResultsView& owner);
  void ShowPlotsAgain(const OpenAnalysis& open);
  // One plot window, maximised.
  void BringForward(const std::string& window);
  ResultsView* OwnerOf(const Plot& plot) const;

  Workbench& workbench_;
  QWidget& main_window_;
  std::list<Views> views_;
  std::map<std::string, PlotWindow> plots_;
};

}  // namespace quorval
