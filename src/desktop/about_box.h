#pragma once

class QWidget;

namespace quorval {

// The program's version and what is known of the system it runs on.
void ShowAboutBox(QWidget* parent);

}  // namespace quorval
