#include "desktop/chooser_view.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/caption.h"
#include "desktop/mnemonics.h"

namespace quorval {
namespace {

constexpr int kWidth = 420;

}  // namespace

ChooserView::ChooserView(const MenuEntry& entry, QWidget* parent) : QDialog(parent) {
  setObjectName(ToQt(kChooserWindow));
  setWindowTitle(ToQt(entry.caption).remove('&'));
  setAttribute(Qt::WA_DeleteOnClose);
  auto* const layout = new QVBoxLayout(this);
  auto* const head = new QLabel(ToQt(kChooserHead));
  head->setWordWrap(true);
  head->setMinimumWidth(kWidth);
  layout->addWidget(head);
  for (const MenuEntry& choice : entry.chooser) {
    auto* const frame = new QGroupBox(PlainCaption(choice.caption));
    auto* const enter = new QPushButton("Enter");
    enter->setEnabled(choice.analysis != nullptr);
    enter->setAccessibleName(frame->title());
    auto* const line = new QHBoxLayout(frame);
    line->addStretch();
    line->addWidget(enter);
    layout->addWidget(frame);
    connect(enter, &QPushButton::clicked, this,
            [this, analysis = choice.analysis] { emit Chosen(analysis); });
  }
  auto* const exit = new QPushButton("Exit");
  layout->addWidget(exit, 0, Qt::AlignRight);
  connect(exit, &QPushButton::clicked, this, &QDialog::close);
  GiveMnemonics(*this);
}

}  // namespace quorval
