#pragma once

#include <span>

#include "platform/platform.h"

class QWidget;

namespace quorval {

// Shows the pages; from there the user prints them or saves them as a PDF file, on a machine
// without a printer too.  False when they could not be printed.
bool ShowPrintPreview(QWidget* parent, std::span<const PrintJob> jobs);

}  // namespace quorval
