#include "desktop/dialog_view.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/caption.h"
#include "desktop/field_text.h"
#include "desktop/mnemonics.h"
#include "desktop/notice_strip.h"
#include "painting/cell_text.h"

namespace quorval {
namespace {

constexpr int kEditorWidth = 110;
constexpr int kNoteWidth = 360;
constexpr qsizetype kLineLength = 75;

// Buttons do not break their captions themselves.
QString InLines(QString caption) {
  for (qsizetype at = kLineLength; at < caption.size(); at += kLineLength) {
    const qsizetype blank = caption.lastIndexOf(' ', at);
    if (blank <= at - kLineLength) break;
    caption[at = blank] = '\n';
  }
  return caption;
}

// Labels keep their underlined letter as long as their text stays.
void SetCaption(QLabel& label, std::string_view caption) {
  const QString plain = PlainCaption(caption);
  if (Unmarked(label.text()) != plain) label.setText(plain);
}

bool StandsBeside(const Field& field) { return !field.beside.key.empty(); }

// The name by which tests and style sheets find a field's widget.
QString NameOf(const Field& field, std::string_view word = {}) {
  return ToQt(field.key) + (word.empty() ? QString() : "=" + ToQt(word));
}

}  // namespace

DialogView::DialogView(Form& form, const Dialog& dialog, QWidget* parent, const QLocale& locale)
    : QDialog(parent), form_(form), dialog_(dialog), locale_(locale) {
  setObjectName(ToQt(dialog.window));
  setWindowTitle(ToQt(dialog.title));
  auto* const layout = new QVBoxLayout(this);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addStrut(TitleWidth(*this));
  if (!dialog.heading.empty()) {
    auto* const heading = new QLabel(PlainCaption(dialog.heading));
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    layout->addWidget(heading);
  }
  AddFields(*layout);
  notices_ = new NoticeStrip(this);
  layout->addWidget(notices_);
  AddButtons(*layout);
  OrderTabs();
  Refresh();
}

void DialogView::ShowNotices(const Notices& notices) { notices_->Show(notices); }

void DialogView::Refresh() {
  for (const Row& row : rows_) {
    const Field& field = *row.field;
    const bool shown = form_.Holds(field.shown), enabled = form_.Holds(field.enabled);
    const bool renamed = !field.renamed.key.empty() && form_.Holds(field.renamed);
    if (row.caption != nullptr)
      SetCaption(*row.caption, renamed ? field.other_caption : field.caption);
    for (QWidget* widget : row.widgets) {
      widget->setVisible(shown);
      widget->setEnabled(enabled);
    }
    if (row.show) row.show(form_.Text(field));
  }
  for (QGroupBox* group : groups_) {
    const auto in_group = [&](const Row& row) { return row.widgets.front()->parent() == group; };
    const auto hidden = [](const Row& row) { return row.widgets.front()->isHidden(); };
    group->setHidden(
        std::ranges::all_of(rows_, [&](const Row& row) { return !in_group(row) || hidden(row); }));
  }
  GiveMnemonics(*this);
}

// Fields of one group that follow one another share a frame.
void DialogView::AddFields(QVBoxLayout& layout) {
  QGridLayout* grid = nullptr;
  std::string_view group;
  for (const Field& field : dialog_.fields) {
    if (StandsBeside(field)) continue;
    if (grid == nullptr || field.group != group) {
      group = field.group;
      auto* const box = group.empty() ? new QWidget : new QGroupBox(PlainCaption(group));
      if (auto* const frame = qobject_cast<QGroupBox*>(box)) groups_.push_back(frame);
      layout.addWidget(box);
      grid = new QGridLayout(box);
      grid->setColumnStretch(0, 1);
    }
    AddField(field, *grid);
  }
}

void DialogView::AddField(const Field& field, QGridLayout& grid) {
  std::vector<QWidget*> heading;
  if (!field.heading.empty()) heading.push_back(AddLabel(field.heading, grid, 3));
  Row row = [&] {
    switch (field.kind) {
      case FieldKind::kChoice:
        return ChoiceRow(field, grid);
      case FieldKind::kCheck:
        return CheckRow(field, grid);
      case FieldKind::kNote:
        return NoteRow(field, grid);
      case FieldKind::kButton:
        return ButtonRow(field, grid);
      default:
        return TextRow(field, grid);
    }
  }();
  row.widgets.insert(row.widgets.end(), heading.begin(), heading.end());
  rows_.push_back(std::move(row));
}

QLabel* DialogView::AddLabel(std::string_view text, QGridLayout& grid, int columns) {
  auto* const label = new QLabel(PlainCaption(text));
  grid.addWidget(label, grid.rowCount(), 0, 1, columns);
  return label;
}

QWidget* DialogView::AddEditor(const Field& field, Row& row) {
  auto* const editor = new QLineEdit;
  editor->setObjectName(NameOf(field));
  editor->setFixedWidth(kEditorWidth);
  connect(editor, &QLineEdit::textEdited, this,
          [this, &field](const QString& typed) { Change(field, StoredFieldText(typed, locale_)); });
  row.widgets.push_back(editor);
  row.show = [this, editor](const std::string& text) {
    if (StoredFieldText(editor->text(), locale_) != text) editor->setText(ShownText(text, locale_));
  };
  return editor;
}

DialogView::Row DialogView::TextRow(const Field& field, QGridLayout& grid) {
  Row row{&field, nullptr, {}, {}};
  row.caption = AddLabel(field.caption, grid, 1);
  row.widgets.push_back(row.caption);
  QWidget* const editor = AddEditor(field, row);
  row.caption->setBuddy(editor);
  if (field.caption.empty()) editor->setAccessibleName(ToQt(field.group));
  grid.addWidget(editor, grid.rowCount() - 1, 1, 1, 2);
  return row;
}

DialogView::Row DialogView::ChoiceRow(const Field& field, QGridLayout& grid) {
  Row row{&field, nullptr, {}, {}};
  if (!field.caption.empty()) {
    row.caption = AddLabel(field.caption, grid, 3);
    row.widgets.push_back(row.caption);
  }
  std::vector<std::pair<std::string_view, QRadioButton*>> buttons;
  auto* const group = new QButtonGroup(this);
  for (const Choice& choice : field.choices) {
    if (choice.caption.empty()) continue;
    if (!choice.heading.empty()) row.widgets.push_back(AddLabel(choice.heading, grid, 3));
    auto* const button = new QRadioButton(InLines(PlainCaption(choice.caption)));
    button->setObjectName(NameOf(field, choice.word));
    group->addButton(button);
    buttons.emplace_back(choice.word, button);
    const int line = grid.rowCount();
    grid.addWidget(button, line, 0);
    AddBeside(field, choice, grid, line);
    row.widgets.push_back(button);
    connect(button, &QRadioButton::clicked, this,
            [this, &field, word = choice.word] { Change(field, word); });
  }
  row.show = [group, buttons](const std::string& text) {
    group->setExclusive(false);  // or none could be left unpressed
    for (const auto& [word, button] : buttons) button->setChecked(word == text);
    group->setExclusive(true);
  };
  return row;
}

// The text fields on the line of a choice; each further one stands on a line of its own.
void DialogView::AddBeside(const Field& choices, const Choice& choice, QGridLayout& grid,
                           int line) {
  for (const Field& field : dialog_.fields) {
    if (field.beside.key != choices.key || field.beside.word != choice.word) continue;
    Row row{&field, nullptr, {}, {}};
    QWidget* const editor = AddEditor(field, row);
    editor->setAccessibleName(ToQt(choice.caption));
    if (!field.caption.empty()) {
      row.caption = new QLabel(PlainCaption(field.caption));
      row.caption->setBuddy(editor);
      row.widgets.push_back(row.caption);
      grid.addWidget(row.caption, line, 1);
    }
    grid.addWidget(editor, line++, 2);
    rows_.push_back(std::move(row));
  }
}

DialogView::Row DialogView::CheckRow(const Field& field, QGridLayout& grid) {
  auto* const box = new QCheckBox(PlainCaption(field.caption));
  box->setObjectName(NameOf(field));
  grid.addWidget(box, grid.rowCount(), 0, 1, 3);
  connect(box, &QCheckBox::clicked, this,
          [this, &field](bool on) { Change(field, on ? "on" : "off"); });
  return {
      &field, nullptr, {box}, [box](const std::string& text) { box->setChecked(text == "on"); }};
}

DialogView::Row DialogView::NoteRow(const Field& field, QGridLayout& grid) {
  QLabel* const note = AddLabel(field.caption, grid, 3);
  note->setWordWrap(true);
  note->setMinimumWidth(kNoteWidth);
  return {&field, note, {note}, {}};
}

DialogView::Row DialogView::ButtonRow(const Field& field, QGridLayout& grid) {
  auto* const button = new QPushButton(ToQt(field.caption));
  button->setObjectName(ToQt(field.opens->window));
  button->setAutoDefault(false);
  grid.addWidget(button, grid.rowCount(), 0, 1, 3, Qt::AlignLeft);
  connect(button, &QPushButton::clicked, this, [this, &field] { OpenNested(*field.opens); });
  return {&field, nullptr, {button}, {}};
}

void DialogView::AddButtons(QVBoxLayout& layout) {
  using Box = QDialogButtonBox;
  auto* const box = new Box(Box::Ok | Box::Cancel | Box::Help);
  box->button(Box::Ok)->setText(ToQt(dialog_.ok));
  box->button(Box::Ok)->setObjectName("ok");
  box->button(Box::Ok)->setDefault(true);
  box->button(Box::Cancel)->setText("Cancel");
  box->button(Box::Help)->setText("Help");
  layout.addWidget(box);
  connect(box, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(box, &QDialogButtonBox::helpRequested, this, &DialogView::HelpWanted);
  connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, this,
          &DialogView::HelpWanted);
}

// The tab key follows the fields; the first of them has the focus.
void DialogView::OrderTabs() {
  QWidget* last = nullptr;
  for (const Row& row : rows_)
    for (QWidget* widget : row.widgets) {
      if (!(widget->focusPolicy() & Qt::TabFocus)) continue;
      if (last == nullptr)
        widget->setFocus();
      else
        setTabOrder(last, widget);
      last = widget;
    }
  auto* const ok = findChild<QPushButton*>("ok");
  if (last != nullptr) setTabOrder(last, ok);
}

// OK keeps the fields; Cancel sets those of the nested dialog back to their defaults.
void DialogView::OpenNested(const Dialog& dialog) {
  auto* const nested = new DialogView(form_, dialog, this, locale_);
  nested->setWindowModality(Qt::WindowModal);
  nested->setAttribute(Qt::WA_DeleteOnClose);
  const auto leave = [this, nested] {
    nested->hide();
    nested->deleteLater();
    Refresh();
  };
  connect(nested, &DialogView::OkPressed, this, leave);
  connect(nested, &DialogView::Cancelled, this, [this, leave, &dialog] {
    form_.Reset(dialog);
    leave();
  });
  connect(nested, &DialogView::HelpWanted, this, &DialogView::HelpWanted);
  nested->show();
}

void DialogView::Change(const Field& field, std::string_view text) {
  form_.Set(field.key, text);
  Refresh();
}

}  // namespace quorval
