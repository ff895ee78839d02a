#pragma once

#include <QWidget>

namespace quorval {

// What is seen for a moment at the start.  It closes by its timer or a click, and is deleted then.
class StartWindow : public QWidget {
  Q_OBJECT

 public:
  explicit StartWindow(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
};

}  // namespace quorval
