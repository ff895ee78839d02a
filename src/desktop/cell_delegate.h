#pragma once

#include <QPixmap>
#include <QStyledItemDelegate>
#include <map>

#include "core/grid.h"

class QTableView;

namespace quorval {

class SheetModel;

// Draws a cell of a sheet with its grid lines: a text that may run over does so as far as the cells
// to its right are empty; a picture fills its cell.
class CellDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  CellDelegate(const SheetModel& model, QTableView& view);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 protected:
  // The up and down keys end the editing as Enter does.
  bool eventFilter(QObject* editor, QEvent* event) override;

 private:
  QModelIndex OverflowInto(const QModelIndex& index) const;
  bool MayRunOver(const QModelIndex& index) const;
  bool RunsOver(const QModelIndex& source, const QModelIndex& index) const;
  int WidthOf(const QModelIndex& index) const;
  void DrawText(QPainter& painter, const QRect& cell, const QModelIndex& index) const;
  void DrawPicture(QPainter& painter, const QRect& cell, const Picture& picture) const;

  const SheetModel& model_;
  QTableView& view_;
  mutable std::map<Picture, QPixmap> pixmaps_;
};

}  // namespace quorval
