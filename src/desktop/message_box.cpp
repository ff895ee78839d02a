#include "desktop/message_box.h"

#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>

#include "desktop/caption.h"
#include "painting/qt_text.h"

namespace quorval {
namespace {

BoxHelp* box_help = nullptr;

void AddHelp(QMessageBox& window, const std::string& text) {
  QPushButton* const help = window.addButton(QMessageBox::Help);
  help->disconnect();  // it would close the box
  const auto show = [&window, text] { box_help->ShowEntry(text, window); };
  QObject::connect(help, &QPushButton::clicked, &window, show);
  QObject::connect(new QShortcut(QKeySequence::HelpContents, &window), &QShortcut::activated,
                   &window, show);
}

}  // namespace

void SetBoxHelp(BoxHelp* help) { box_help = help; }

Answer ShowBox(QWidget* parent, const MessageBox& box) {
  QMessageBox window(parent);
  window.setTextFormat(Qt::PlainText);
  window.setWindowTitle(ToQt(box.title));
  window.setText(ToQt(box.text));
  window.setInformativeText(ToQt(box.beside));
  window.setIcon(box.critical ? QMessageBox::Critical : QMessageBox::NoIcon);
  const bool asks = box.buttons != Buttons::kOk;
  window.setStandardButtons(asks ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
  const bool helps = box_help != nullptr && box_help->Tells(box.text);
  if (helps) AddHelp(window, box.text);
  const auto refusal = asks ? QMessageBox::No : QMessageBox::Ok;
  window.setEscapeButton(refusal);
  window.setDefaultButton(asks && !box.critical ? QMessageBox::Yes : refusal);
  if (auto* const grid = qobject_cast<QGridLayout*>(window.layout()))
    grid->addItem(new QSpacerItem(TitleWidth(window), 0), grid->rowCount(), 0, 1, -1);
  const int pressed = window.exec();
  if (helps) box_help->Release(window);
  if (!asks) return Answer::kOk;
  return pressed == QMessageBox::Yes ? Answer::kYes : Answer::kNo;
}

}  // namespace quorval
