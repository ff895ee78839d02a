#pragma once

#include <QDialog>

#include "analyses/registry.h"

namespace quorval {

// A menu entry that leads to further ones: a frame for each, with its "Enter" button.
class ChooserView : public QDialog {
  Q_OBJECT

 public:
  ChooserView(const MenuEntry& entry, QWidget* parent);

 signals:
  void Chosen(const Analysis* analysis);
};

}  // namespace quorval
