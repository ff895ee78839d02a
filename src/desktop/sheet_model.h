#pragma once

#include <QAbstractTableModel>
#include <QLocale>
#include <memory>

#include "app/sheet_editor.h"
#include "core/grid.h"

namespace quorval {

// A grid for a table view.  Numbers are shown and typed with the locale's decimal sign.
class SheetModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  // `first_row` is the number that the user sees beside the first row.  The steps are remembered by
  // the editor, whoever does them; those of a grid alone until another hand changes it.
  SheetModel(SheetEditor& editor, int first_row, QObject* parent,
             const QLocale& locale = QLocale());
  SheetModel(Grid& grid, int first_row, QObject* parent, const QLocale& locale = QLocale());

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  const Grid& grid() const { return grid_; }
  Cell At(const QModelIndex& index) const { return grid_.At(index.column() + 1, index.row() + 1); }

  // The used part of a range, as text for other spreadsheet programs.
  QString TextOf(const CellRange& range) const;
  Pasted Paste(const CellRange& selection, const QString& text);
  void Clear(const CellRange& range);
  std::optional<CellRange> Undo() { return Told(editor_.Undo()); }
  std::optional<CellRange> Redo() { return Told(editor_.Redo()); }

  // Another hand changed the grid.
  void Refresh();

 private:
  QString EditText(const Cell& cell) const;
  std::optional<CellRange> Told(std::optional<CellRange> changed);

  std::unique_ptr<SheetEditor> own_editor_;  // of a grid alone
  SheetEditor& editor_;
  const Grid& grid_;
  int first_row_;
  QLocale locale_;
};

}  // namespace quorval
