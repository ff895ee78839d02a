#pragma once

#include <QMainWindow>

#include "core/grid.h"

namespace quorval {

// The verification report, to be read and printed.
class VerificationView : public QMainWindow {
  Q_OBJECT

 public:
  VerificationView(Grid report, QWidget* parent);

 private:
  void Print();

  Grid report_;
};

// Runs the published data sets and shows the report; a box tells why there is none.
void ShowVerification(QWidget* parent);

}  // namespace quorval
