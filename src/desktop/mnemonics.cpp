#include "desktop/mnemonics.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QShortcut>
#include <algorithm>

namespace quorval {
namespace {

const QString kShortcutName = QStringLiteral("by-number");

// The letters and digits that a window has given away.
class Letters {
 public:
  void Take(QChar letter) { taken_ += letter.toUpper(); }

  // With a free letter marked, the first one of a word before others; as it is when none is free.
  QString Marked(const QString& caption) {
    QString marked = caption;
    for (bool in_words : {false, true})
      for (qsizetype i = 0; i < caption.size(); ++i) {
        const bool begins = i == 0 || !caption[i - 1].isLetterOrNumber();
        if ((!begins && !in_words) || !IsFree(caption[i])) continue;
        Take(caption[i]);
        return marked.insert(i, u'&');
      }
    return marked;
  }

  QChar FreeDigit() {
    for (char16_t digit = u'1'; digit <= u'9'; ++digit)
      if (IsFree(digit)) {
        Take(digit);
        return digit;
      }
    return {};
  }

 private:
  bool IsFree(QChar letter) const {
    return letter.unicode() < 128 && letter.isLetterOrNumber() &&
           !taken_.contains(letter.toUpper());
  }

  QString taken_;
};

bool IsControl(const QWidget& widget, const QWidget& window) {
  // The tab key passes over a radio button that is not pressed.
  const bool takes_keys = (widget.focusPolicy() & Qt::TabFocus) != 0 ||
                          qobject_cast<const QRadioButton*>(&widget) != nullptr;
  const bool part_of_another =
      widget.parentWidget() != nullptr && widget.parentWidget()->focusProxy() == &widget;
  return takes_keys && !part_of_another && widget.window() == &window &&
         widget.isVisibleTo(&window);
}

// What bears the control's letter: a box to tick or choose itself, else the frame that holds
// nothing else, the button itself, or the label of a field.
QObject* CaptionOf(QWidget& control, const QList<QWidget*>& controls, const QWidget& window) {
  auto* const button = qobject_cast<QAbstractButton*>(&control);
  if (button != nullptr && button->isCheckable()) return button;
  auto* const frame = qobject_cast<QGroupBox*>(control.parentWidget());
  const auto in_frame = [&](const QWidget* other) { return other->parentWidget() == frame; };
  if (frame != nullptr && std::ranges::count_if(controls, in_frame) == 1) return frame;
  if (button != nullptr) return button;
  for (QLabel* label : window.findChildren<QLabel*>())
    if (label->buddy() == &control) return label;
  return nullptr;
}

bool Mark(QObject* captioned, Letters& letters) {
  if (captioned == nullptr) return false;
  const char* const property = qobject_cast<QGroupBox*>(captioned) != nullptr ? "title" : "text";
  const QString caption = captioned->property(property).toString();
  const QString marked = letters.Marked(Unmarked(caption));
  if (marked != caption) captioned->setProperty(property, marked);
  return marked != Unmarked(caption);
}

void GiveNumber(QWidget& control, Letters& letters) {
  const QChar digit = letters.FreeDigit();
  if (digit.isNull()) return;
  auto* const shortcut =
      new QShortcut(QKeySequence(QStringLiteral("Alt+") + digit), control.window());
  shortcut->setObjectName(kShortcutName);
  QObject::connect(shortcut, &QShortcut::activated, &control, [&control] {
    control.setFocus(Qt::ShortcutFocusReason);
    if (auto* const button = qobject_cast<QAbstractButton*>(&control)) button->click();
  });
  control.setToolTip(shortcut->key().toString(QKeySequence::NativeText));
}

void TakeMarked(const QList<QAction*>& entries, Letters& letters) {
  for (const QAction* entry : entries)
    if (const QKeySequence key = QKeySequence::mnemonic(entry->text()); !key.isEmpty())
      letters.Take(QChar(key[0].key()));
}

// The entries of a menu that have no letter of their own.
void MarkEntries(const QMenu& menu) {
  Letters letters;
  TakeMarked(menu.actions(), letters);
  for (QAction* entry : menu.actions())
    if (!entry->isSeparator() && QKeySequence::mnemonic(entry->text()).isEmpty())
      entry->setText(letters.Marked(entry->text()));
}

}  // namespace

void GiveMnemonics(QWidget& window) {
  Letters letters;
  if (const auto* const bar = window.findChild<QMenuBar*>()) {
    TakeMarked(bar->actions(), letters);
    for (const QMenu* menu : bar->findChildren<QMenu*>()) MarkEntries(*menu);
  }
  qDeleteAll(window.findChildren<QShortcut*>(kShortcutName));

  QList<QWidget*> controls;
  for (QWidget* widget : window.findChildren<QWidget*>())
    if (IsControl(*widget, window)) controls += widget;
  // The window's own buttons choose first, so that they keep their letters.
  std::stable_partition(controls.begin(), controls.end(), [](const QWidget* control) {
    return qobject_cast<const QDialogButtonBox*>(control->parentWidget()) != nullptr;
  });
  for (QWidget* control : controls)
    if (!Mark(CaptionOf(*control, controls, window), letters)) GiveNumber(*control, letters);
}

QString Unmarked(const QString& caption) {
  QString unmarked;
  for (qsizetype i = 0; i < caption.size(); ++i) {
    if (caption[i] == u'&' && i + 1 < caption.size() && caption[i + 1] != u'&') continue;
    unmarked += caption[i];
    if (caption[i] == u'&' && i + 1 < caption.size()) unmarked += caption[++i];
  }
  return unmarked;
}

}  // namespace quorval
