#pragma once

#include <QObject>
#include <QPointer>
#include <list>
#include <map>
#include <string>
#include <string_view>

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
  struct PlotPlace {
    QPointer<PlotView> view{};
    int place = 0;
  };
  // Of one analysis.
  struct Views {
    OpenAnalysis* open;
    QPointer<DialogView> dialog{};
    QPointer<ResultsView> results{};
    std::map<std::string, PlotPlace, std::less<>> plots{};
    int run = 0;  // which results and plots show
  };

  void PressOk(Views& views);
  void MatchDialog(Views& views);
  void MatchResults(Views& views);
  void MatchPlots(Views& views);
  void DropResults(Views& views);
  void AddPlot(Views& views, const Plot& plot);
  // The first place where no plot window stands.
  int FreePlace() const;
  void ShowPlots(Views& views);
  void ShowPlot(Views& views, std::string_view window, bool maximised);

  Workbench& workbench_;
  QWidget& main_window_;
  std::list<Views> views_;  // a list: slots hold on to the elements
};

}  // namespace quorval
