#pragma once

#include <QLocale>
#include <QTableView>

#include "app/sheet_editor.h"

namespace quorval {

class SheetModel;

// A sheet as users of spreadsheet programs know it: type to edit, Enter moves down, Tab right,
// Delete clears, a block is cut, copied and pasted as text, and the last steps can be taken back.
class SheetView : public QTableView {
  Q_OBJECT

 public:
  // As SheetModel's constructors.
  SheetView(SheetEditor& editor, int first_row, QWidget* parent, const QLocale& locale = QLocale());
  SheetView(Grid& grid, int first_row, QWidget* parent, const QLocale& locale = QLocale());

  // Another hand changed the grid.
  void Refresh();
  // Makes each used column as wide as its widest text that does not run over.
  void FitColumns();
  // All as wide as at first.
  void ResetColumns();
  CellRange Selection() const;
  // Takes over what is being typed into a cell.
  void EndEditing();

 public slots:
  void Cut();
  void Copy();
  void Paste();
  void Clear();
  void Undo();
  void Redo();

 signals:
  // Something for the status bar.
  void Told(const QString& text);
  // A step was taken back, or again.
  void Stepped();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  SheetView(SheetModel* model, QWidget* parent);
  void Move(int columns, int rows);
  void Select(const CellRange& range);
  // Joins the cells of pictures and makes their rows high enough.
  void PlacePictures();

  SheetModel* model_;
};

}  // namespace quorval
