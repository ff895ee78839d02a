#include "desktop/sheet_view.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>

#include "app/main_menu.h"
#include "desktop/cell_delegate.h"
#include "desktop/sheet_model.h"
#include "painting/qt_text.h"

namespace quorval {
namespace {

constexpr int kColumnWidth = 84;
constexpr int kWidestColumn = 480;
constexpr int kPadding = 14;
constexpr int kMostCellsMeasured = 200'000;
constexpr int kLeastRowsMeasured = 100;
constexpr std::size_t kShortText = 5;  // bytes that fit any column
constexpr int kPictureHeight = 320;

}  // namespace

SheetView::SheetView(SheetEditor& editor, int first_row, QWidget* parent, const QLocale& locale)
    : SheetView(new SheetModel(editor, first_row, nullptr, locale), parent) {}

SheetView::SheetView(Grid& grid, int first_row, QWidget* parent, const QLocale& locale)
    : SheetView(new SheetModel(grid, first_row, nullptr, locale), parent) {}

SheetView::SheetView(SheetModel* model, QWidget* parent) : QTableView(parent), model_(model) {
  model_->setParent(this);
  setModel(model_);
  setItemDelegate(new CellDelegate(*model_, *this));
  setSelectionMode(ContiguousSelection);
  setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
  setShowGrid(false);
  setWordWrap(false);
  horizontalHeader()->setDefaultSectionSize(kColumnWidth);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
  setCurrentIndex(model_->index(0, 0));
  PlacePictures();
}

void SheetView::Refresh() {
  model_->Refresh();
  PlacePictures();
}

void SheetView::FitColumns() {
  const Grid& grid = model_->grid();
  const QFontMetrics plain(font());
  QFont bold_font = font();
  bold_font.setBold(true);
  const QFontMetrics bold(bold_font);
  const int columns = grid.DataColCnt();
  const int rows = std::min(
      grid.DataRowCnt(), std::max(kLeastRowsMeasured, kMostCellsMeasured / std::max(1, columns)));
  for (int column = 1; column <= columns; ++column) {
    int width = kColumnWidth - kPadding;
    for (int row = 1; row <= rows; ++row) {
      const Cell& cell = grid.At(column, row);
      const bool runs_over = cell.look.overflow && grid.At(column + 1, row).Empty();
      if (cell.Empty() || runs_over) continue;
      const std::string text = cell.Text();
      if (text.size() <= kShortText) continue;
      const QFontMetrics& metrics = cell.look.bold ? bold : plain;
      width = std::max(width, metrics.horizontalAdvance(ToQt(text)));
    }
    setColumnWidth(column - 1, std::min(width + kPadding, kWidestColumn));
  }
}

void SheetView::ResetColumns() {
  for (int column = 0; column < model_->columnCount(); ++column)
    setColumnWidth(column, kColumnWidth);
}

CellRange SheetView::Selection() const {
  const QItemSelection selection = selectionModel()->selection();
  if (selection.isEmpty()) {
    const QModelIndex at = currentIndex();
    return {at.column() + 1, at.row() + 1, at.column() + 1, at.row() + 1};
  }
  const QItemSelectionRange& range = selection.first();
  return {range.left() + 1, range.top() + 1, range.right() + 1, range.bottom() + 1};
}

void SheetView::EndEditing() {
  auto* const editor = viewport()->findChild<QLineEdit*>();
  if (editor == nullptr || editor->isHidden()) return;
  commitData(editor);
  QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
}

void SheetView::Cut() {
  Copy();
  Clear();
}

void SheetView::Copy() { QApplication::clipboard()->setText(model_->TextOf(Selection())); }

void SheetView::Paste() {
  const QString text = QApplication::clipboard()->text();
  if (text.isEmpty()) return;
  const Pasted pasted = model_->Paste(Selection(), text);
  Select(pasted.range);
  if (pasted.lost > 0)
    emit Told(tr("%n cell(s) of the block lay beyond the edge of the sheet and were not pasted.",
                 nullptr, pasted.lost));
}

void SheetView::Clear() {
  model_->Clear(Selection());
  PlacePictures();
}

void SheetView::Undo() {
  if (const auto changed = model_->Undo()) Select(*changed);
  PlacePictures();
  emit Stepped();
}

void SheetView::Redo() {
  if (const auto changed = model_->Redo()) Select(*changed);
  PlacePictures();
  emit Stepped();
}

void SheetView::keyPressEvent(QKeyEvent* event) {
  if (state() == EditingState) return QTableView::keyPressEvent(event);
  using Step = void (SheetView::*)();
  constexpr std::pair<QKeySequence::StandardKey, Step> kSteps[] = {
      {QKeySequence::Cut, &SheetView::Cut},     {QKeySequence::Copy, &SheetView::Copy},
      {QKeySequence::Paste, &SheetView::Paste}, {QKeySequence::Undo, &SheetView::Undo},
      {QKeySequence::Redo, &SheetView::Redo},
  };
  for (const auto& [keys, step] : kSteps)
    if (event->matches(keys)) return (this->*step)();
  const bool back = event->modifiers().testFlag(Qt::ShiftModifier);
  switch (event->key()) {
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
      return Clear();
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return Move(0, back ? -1 : 1);
    default:
      QTableView::keyPressEvent(event);
  }
}

// Enter goes on below and Tab on the right, without opening the next cell for editing.
void SheetView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
  if (hint == QAbstractItemDelegate::SubmitModelCache)
    Move(0, QApplication::keyboardModifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
  if (hint == QAbstractItemDelegate::EditNextItem) Move(1, 0);
  if (hint == QAbstractItemDelegate::EditPreviousItem) Move(-1, 0);
}

void SheetView::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu("Mouse", this);
  for (const MenuItem& item : MouseMenu()) {
    QAction* const action = menu.addAction(ToQt(item.caption));
    if (item.command == Command::kCut) connect(action, &QAction::triggered, this, &SheetView::Cut);
    if (item.command == Command::kCopy)
      connect(action, &QAction::triggered, this, &SheetView::Copy);
    if (item.command == Command::kPaste)
      connect(action, &QAction::triggered, this, &SheetView::Paste);
  }
  menu.exec(event->globalPos());
}

void SheetView::Move(int columns, int rows) {
  const QModelIndex next = model_->index(std::max(0, currentIndex().row() + rows),
                                         std::max(0, currentIndex().column() + columns));
  if (next.isValid()) setCurrentIndex(next);
}

void SheetView::Select(const CellRange& range) {
  const QModelIndex first = model_->index(range.row - 1, range.column - 1);
  const QModelIndex last = model_->index(range.last_row - 1, range.last_column - 1);
  selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
  selectionModel()->select({first, last}, QItemSelectionModel::ClearAndSelect);
}

void SheetView::PlacePictures() {
  clearSpans();
  const Grid& grid = model_->grid();
  const int rows = grid.DataRowCnt(), columns = grid.DataColCnt();
  for (int column = 1; column <= columns; ++column)
    for (int row = 1; row <= rows; ++row) {
      const CellLook& look = grid.At(column, row).look;
      if (look.span_columns <= 1 && look.span_rows <= 1) continue;
      setSpan(row - 1, column - 1, look.span_rows, look.span_columns);
      for (int i = 0; grid.At(column, row).picture && i < look.span_rows; ++i)
        setRowHeight(row - 1 + i, kPictureHeight / look.span_rows);
    }
}

}  // namespace quorval
