#include "desktop/sheet_model.h"

#include <QColor>
#include <QFont>

#include "painting/cell_text.h"
#include "painting/qt_text.h"

namespace quorval {
namespace {

QVariant FontOf(const CellLook& look) {
  if (!look.bold && !look.italic) return {};
  QFont font;
  font.setBold(look.bold);
  font.setItalic(look.italic);
  return font;
}

}  // namespace

SheetModel::SheetModel(SheetEditor& editor, int first_row, QObject* parent, const QLocale& locale)
    : QAbstractTableModel(parent),
      editor_(editor),
      grid_(editor.grid()),
      first_row_(first_row),
      locale_(locale) {}

SheetModel::SheetModel(Grid& grid, int first_row, QObject* parent, const QLocale& locale)
    : QAbstractTableModel(parent),
      own_editor_(std::make_unique<SheetEditor>(grid)),
      editor_(*own_editor_),
      grid_(grid),
      first_row_(first_row),
      locale_(locale) {}

int SheetModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : grid_.Rows();
}

int SheetModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : grid_.Columns();
}

QVariant SheetModel::data(const QModelIndex& index, int role) const {
  const Cell& cell = At(index);
  switch (role) {
    case Qt::DisplayRole:
      return ShownText(cell, locale_);
    case Qt::EditRole:
      return EditText(cell);
    case Qt::FontRole:
      return FontOf(cell.look);
    case Qt::BackgroundRole:
      return cell.look.colour == kWhite ? QVariant() : QColor(QRgb{cell.look.colour});
    case Qt::TextAlignmentRole:
      return QVariant(Qt::AlignVCenter | (ShowsNumber(cell) ? Qt::AlignRight : Qt::AlignLeft));
    default:
      return {};
  }
}

bool SheetModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::EditRole) return false;
  const QString typed = value.toString();
  if (typed == EditText(At(index))) return true;
  editor_.Type(index.column() + 1, index.row() + 1, FromQt(StoredText(typed, locale_)));
  emit dataChanged(index, index);
  return true;
}

QVariant SheetModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return QAbstractTableModel::headerData(section, orientation, role);
  return orientation == Qt::Horizontal ? section + 1 : section + first_row_;
}

Qt::ItemFlags SheetModel::flags(const QModelIndex& index) const {
  return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

QString SheetModel::TextOf(const CellRange& range) const {
  const CellRange used = editor_.Used(range);
  TextBlock block;
  for (int row = used.row; row <= used.last_row; ++row) {
    auto& texts = block.emplace_back();
    for (int column = used.column; column <= used.last_column; ++column)
      texts.push_back(FromQt(ShownText(grid_.At(column, row), locale_)));
  }
  return ToQt(WriteTextBlock(block));
}

Pasted SheetModel::Paste(const CellRange& selection, const QString& text) {
  TextBlock block = ReadTextBlock(FromQt(text));
  for (auto& row : block)
    for (std::string& cell : row) cell = FromQt(StoredText(ToQt(cell), locale_));
  const Pasted pasted = editor_.Paste(selection, block);
  Told(pasted.range);
  return pasted;
}

void SheetModel::Clear(const CellRange& range) {
  editor_.Clear(range);
  Told(range);
}

void SheetModel::Refresh() {
  if (own_editor_) own_editor_->Forget();
  emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

QString SheetModel::EditText(const Cell& cell) const { return ShownText(cell.Value(), locale_); }

std::optional<CellRange> SheetModel::Told(std::optional<CellRange> changed) {
  if (changed)
    emit dataChanged(index(changed->row - 1, changed->column - 1),
                     index(changed->last_row - 1, changed->last_column - 1));
  return changed;
}

}  // namespace quorval
