#pragma once

#include <QMainWindow>

#include "app/workbench.h"

class QMenu;
class QPlainTextEdit;

namespace quorval {

// The window of the project's note.  Only "Save and Exit" keeps an edit.
class NoteView : public QMainWindow {
  Q_OBJECT

 public:
  NoteView(Workbench& workbench, QWidget* parent);

 private:
  void MakeMenus();
  void SaveAndExit();
  std::string Text() const;

  Workbench& workbench_;
  QPlainTextEdit* text_;
};

}  // namespace quorval
