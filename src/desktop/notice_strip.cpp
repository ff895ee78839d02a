#include "desktop/notice_strip.h"

#include <QFontMetrics>
#include <QStringList>
#include <algorithm>

#include "painting/qt_text.h"

namespace quorval {
namespace {

constexpr qsizetype kMostLines = 4;  // the others are scrolled to

QString Joined(const Notices& notices, const QString& between) {
  QStringList texts;
  for (const Notice& notice : notices) texts << ToQt(notice.text);
  return texts.join(between);
}

}  // namespace

NoticeStrip::NoticeStrip(QWidget* parent) : QPlainTextEdit(parent) {
  setObjectName("notices");
  setAccessibleName(tr("Notices"));
  setReadOnly(true);
  setTabChangesFocus(true);
  setFrameShape(QFrame::StyledPanel);
  setBackgroundVisible(false);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  hide();
}

void NoticeStrip::Show(const Notices& notices) {
  setVisible(!notices.empty());
  const QString text = Joined(notices, "\n");
  if (text == toPlainText()) return;
  setPlainText(text);
  const auto lines = static_cast<int>(std::min(text.count('\n') + 1, kMostLines));
  const int margins = 2 * (static_cast<int>(document()->documentMargin()) + frameWidth());
  setFixedHeight(lines * QFontMetrics(font()).lineSpacing() + margins + 2);
}

QString OnOneLine(const Notices& notices) { return Joined(notices, ";  "); }

}  // namespace quorval
