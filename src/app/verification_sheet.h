#pragma once

#include "app/verification.h"
#include "platform/platform.h"

namespace quorval {

// The report as a sheet, to be shown, printed as a table, and put on paper.
Grid VerificationSheet(const Verification& verification);

// Its pages; the grid is the sheet.
PrintJob VerificationPages(const Grid& sheet);

}  // namespace quorval
