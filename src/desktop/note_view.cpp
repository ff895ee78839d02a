#include "desktop/note_view.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "app/note_page.h"
#include "desktop/mnemonics.h"
#include "painting/qt_text.h"

namespace quorval {
namespace {

QLineEdit* ReadOnly(const QString& text) {
  auto* const field = new QLineEdit(text);
  field->setReadOnly(true);
  field->setCursorPosition(0);
  return field;
}

}  // namespace

NoteView::NoteView(Workbench& workbench, QWidget* parent)
    : QMainWindow(parent), workbench_(workbench), text_(new QPlainTextEdit) {
  const Context& context = workbench.project().context();
  setObjectName("frmNote");
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(ToQt(kNotePageTitle));
  MakeMenus();
  auto* const centre = new QWidget;
  auto* const layout = new QVBoxLayout(centre);
  auto* const fields = new QFormLayout;
  fields->addRow(ToQt(kNoteNameLabel), ReadOnly(ToQt(context.ProjectName)));
  fields->addRow(ToQt(kNoteFileLabel), ReadOnly(ToQt(context.ProjectFile.string())));
  layout->addLayout(fields);
  auto* const label = new QLabel(ToQt(kNoteTextLabel));
  label->setBuddy(text_);
  layout->addWidget(label);
  layout->addWidget(text_, 1);
  layout->addWidget(new QLabel(ToQt(kNoteHint)));
  setCentralWidget(centre);
  text_->setObjectName("note");
  text_->setLineWrapMode(QPlainTextEdit::NoWrap);  // as it is printed
  text_->setPlainText(ToQt(context.ProjectNote));
  text_->setFocus();
  resize(640, 480);
  GiveMnemonics(*this);
}

void NoteView::MakeMenus() {
  QMenu* const file = menuBar()->addMenu("&File");
  QAction* const print =
      file->addAction("&Print Note Page", this, [this] { workbench_.PrintNote(Text()); });
  print->setShortcut(QKeySequence::Print);
  file->addAction("Save and &Exit", this, &NoteView::SaveAndExit);
  QMenu* const edit = menuBar()->addMenu("&Edit");
  edit->addAction("Cu&t", text_, &QPlainTextEdit::cut);
  edit->addAction("&Copy", text_, &QPlainTextEdit::copy);
  edit->addAction("&Paste", text_, &QPlainTextEdit::paste);
  edit->addAction("Clear &Text", text_, &QPlainTextEdit::clear);
}

void NoteView::SaveAndExit() {
  workbench_.project().SetNote(Text());
  close();
}

std::string NoteView::Text() const { return FromQt(text_->toPlainText()); }

}  // namespace quorval
