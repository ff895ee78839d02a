#pragma once

#include <string>

#include "platform/platform.h"

class QWidget;

namespace quorval {

// Where the manual tells of boxes.
class BoxHelp {
 public:
  virtual ~BoxHelp() = default;

  // Whether the manual has an entry for a box of this text.
  virtual bool Tells(const std::string& text) = 0;
  // Shows it; `box` is modal, so the window must be one of its own.
  virtual void ShowEntry(const std::string& text, QWidget& box) = 0;
  // The box is about to go.
  virtual void Release(QWidget& box) = 0;
};

// Null: boxes have no help.
void SetBoxHelp(BoxHelp* help);

// Every box of the program.  Where the manual tells of it, F1 and a button show the entry.  A
// question before a loss has No as its default.
Answer ShowBox(QWidget* parent, const MessageBox& box);

}  // namespace quorval
