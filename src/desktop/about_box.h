#pragma once

class QWidget;

namespace quorval {

// The program's version, what is known of the system it runs on, and the way to the verification
// report.
void ShowAboutBox(QWidget* parent);

}  // namespace quorval
