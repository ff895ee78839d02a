#pragma once

#include <QMainWindow>
#include <filesystem>
#include <functional>
#include <map>
#include <span>

#include "app/main_menu.h"
#include "app/workbench.h"
#include "desktop/desk.h"

class QLineEdit;
class QMenu;

namespace quorval {

class SheetView;

// The workbench's main window: the worksheet, the project's name and decimals, the menus.  It is
// open for the whole run; closing it ends the program.
class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  MainWindow(Workbench& workbench, Platform& platform);

  // Shows the window where it stood last, maximised, and the start window before it.
  void Start();
  void PlaceAsStored();

  // A file named on the command line, or dropped on the window: a project is opened, all else
  // imported.
  void TakeFile(const std::filesystem::path& path);

  // In the status bar, until the next command.
  void ShowNotices(const Notices& notices);

  SheetView& sheet() { return *sheet_; }
  // The menu entry of a command; null where the menus have none.
  QAction* ActionOf(Command command) const;

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeHandlers();
  void MakeMenu(QMenu& menu, std::span<const MenuItem> items);
  void AddItem(QMenu& menu, const MenuItem& item);
  void MakeExamplesMenu(QMenu& menu);
  void MakeStatisticsMenu(QMenu& menu);
  void MakeToolbar();
  void MakeStatusBar();
  QWidget* MakeProjectLine();
  void OpenNotePage();
  // It belongs to the project that goes.
  void CloseNotePage();
  // Shows what a command left; columns of a sheet that it brought are as wide as their texts.
  void DoOnProject(const std::function<void()>& command);
  void TakeExample(const Example& example);
  // Shows what the workbench holds.
  void Refresh();
  void StorePlace();

  Workbench& workbench_;
  Platform& platform_;
  Desk desk_;
  SheetView* sheet_;
  QLineEdit* name_ = nullptr;
  bool emptied_ = false;         // by the command that runs
  bool warned_of_loss_ = false;  // that not all could be kept
  // What the commands do; the entries of the others stand disabled.
  std::map<Command, std::function<void()>> handlers_;
  std::map<Command, QAction*> actions_;
};

}  // namespace quorval
