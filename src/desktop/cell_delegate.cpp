#include "desktop/cell_delegate.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QTableView>

#include "desktop/sheet_model.h"

namespace quorval {
namespace {

constexpr int kTextMargin = 4;
constexpr int kLineAlpha = 45;
constexpr int kSelectionAlpha = 70;
constexpr int kMostColumnsRunOver = 40;

Qt::Alignment AlignmentOf(const QModelIndex& index) {
  return index.data(Qt::TextAlignmentRole).value<Qt::Alignment>();
}

QFont FontOf(const QModelIndex& index, const QFont& usual) {
  const QVariant font = index.data(Qt::FontRole);
  return font.isValid() ? font.value<QFont>().resolve(usual) : usual;
}

}  // namespace

CellDelegate::CellDelegate(const SheetModel& model, QTableView& view)
    : QStyledItemDelegate(&view), model_(model), view_(view) {}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  painter->save();
  painter->setClipRect(option.rect);
  const QPalette& palette = view_.palette();
  const QVariant background = index.data(Qt::BackgroundRole);
  painter->fillRect(option.rect, background.isValid() ? background.value<QColor>()
                                                      : palette.color(QPalette::Base));
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  const bool current = index == view_.currentIndex();
  QColor highlight = palette.color(QPalette::Highlight);
  if (selected && !current) {
    highlight.setAlpha(kSelectionAlpha);
    painter->fillRect(option.rect, highlight);
  }

  const QModelIndex source = model_.At(index).Empty() ? OverflowInto(index) : index;
  QColor lines = palette.color(QPalette::Text);
  lines.setAlpha(kLineAlpha);
  painter->setPen(lines);
  painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
  const QModelIndex next = index.siblingAtColumn(index.column() + 1);
  if (!source.isValid() || !next.isValid() || !RunsOver(source, next))
    painter->drawLine(option.rect.topRight(), option.rect.bottomRight());

  if (source.isValid()) {
    painter->setPen(background.isValid() ? QColor(Qt::black) : palette.color(QPalette::Text));
    DrawText(*painter, option.rect, source);
    if (const Picture& picture = model_.At(source).picture)
      DrawPicture(*painter, option.rect, picture);
  }
  if (current) {
    painter->setPen(QPen(palette.color(QPalette::Highlight), 2));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
  }
  painter->restore();
}

bool CellDelegate::eventFilter(QObject* editor, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Up || key == Qt::Key_Down) {
      auto* const widget = qobject_cast<QWidget*>(editor);
      emit commitData(widget);
      emit closeEditor(widget, NoHint);
      QApplication::sendEvent(&view_, event);
      return true;
    }
  }
  return QStyledItemDelegate::eventFilter(editor, event);
}

// The cell to the left whose text runs over this empty one; invalid when there is none.
QModelIndex CellDelegate::OverflowInto(const QModelIndex& index) const {
  const int furthest = std::max(0, index.column() - kMostColumnsRunOver);
  for (int column = index.column() - 1; column >= furthest; --column) {
    const QModelIndex left = index.siblingAtColumn(column);
    if (model_.At(left).Empty()) continue;
    return RunsOver(left, index) ? left : QModelIndex();
  }
  return {};
}

// A text runs over empty neighbours, as in any spreadsheet; only where the next cell is taken does
// it end in "...".  Numbers stay in their cells.
bool CellDelegate::MayRunOver(const QModelIndex& index) const {
  if (model_.At(index).look.overflow) return true;
  const QModelIndex next = index.siblingAtColumn(index.column() + 1);
  return !AlignmentOf(index).testFlag(Qt::AlignRight) && next.isValid() && model_.At(next).Empty();
}

// Whether the text of `source` reaches the empty cell `index` further right.
bool CellDelegate::RunsOver(const QModelIndex& source, const QModelIndex& index) const {
  if (!MayRunOver(source) || !model_.At(index).Empty()) return false;
  if (AlignmentOf(source).testFlag(Qt::AlignRight)) return false;
  const int room =
      view_.columnViewportPosition(index.column()) - view_.columnViewportPosition(source.column());
  return WidthOf(source) > room;
}

int CellDelegate::WidthOf(const QModelIndex& index) const {
  const QFontMetrics metrics(FontOf(index, view_.font()));
  return metrics.horizontalAdvance(index.data().toString()) + 2 * kTextMargin;
}

// The part of a cell's text that lies in the rectangle, which may be one further right.
void CellDelegate::DrawText(QPainter& painter, const QRect& cell, const QModelIndex& index) const {
  QString text = index.data().toString();
  if (text.isEmpty()) return;
  painter.setFont(FontOf(index, view_.font()));
  QRect place = cell.adjusted(kTextMargin, 0, -kTextMargin, 0);
  if (MayRunOver(index)) {
    place.setLeft(view_.columnViewportPosition(index.column()) + kTextMargin);
    place.setWidth(std::max(place.width(), WidthOf(index)));
  } else {
    text = painter.fontMetrics().elidedText(text, Qt::ElideRight, place.width());
  }
  painter.drawText(place, static_cast<int>(AlignmentOf(index)) | Qt::TextSingleLine, text);
}

void CellDelegate::DrawPicture(QPainter& painter, const QRect& cell, const Picture& picture) const {
  QPixmap& pixmap = pixmaps_[picture];
  if (pixmap.isNull())
    pixmap.loadFromData(reinterpret_cast<const uchar*>(picture->data()),
                        static_cast<uint>(picture->size()));
  if (pixmap.isNull()) return;
  painter.drawPixmap(cell.topLeft(),
                     pixmap.scaled(cell.size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

}  // namespace quorval
