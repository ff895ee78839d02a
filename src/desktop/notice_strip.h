#pragma once

#include <QPlainTextEdit>

#include "core/notice.h"

namespace quorval {

// Notices a line each, to be read and copied; hidden while there are none.
class NoticeStrip : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit NoticeStrip(QWidget* parent = nullptr);

  void Show(const Notices& notices);
};

// For a status bar: all in one line.
QString OnOneLine(const Notices& notices);

}  // namespace quorval
