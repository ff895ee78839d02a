// Tables as text: values separated by a comma (RFC 4180) or a tab, rows by a line end.
#pragma once

#include <filesystem>

#include "core/worksheet.h"
#include "formats/export_options.h"

namespace quorval {

// UTF-8, with or without a byte order mark; lines end in LF, CR or both; a value in double quotes
// may hold separators, line ends and doubled quotes.  Throws a FileError for any other bytes and
// for a table that does not fit the worksheet.
Worksheet ReadCommaSeparated(const std::filesystem::path& path);
Worksheet ReadTabSeparated(const std::filesystem::path& path);

// The used columns of each row, lines ended by LF; a value in double quotes where it must be.  What
// the readers take for no text, a NUL and bytes that are not UTF-8, becomes U+FFFD.  Throws a
// FileError; the old file then stands as it was.
void WriteCommaSeparated(const std::filesystem::path& path, const Grid& grid,
                         const ExportOptions& options = {});
void WriteTabSeparated(const std::filesystem::path& path, const Grid& grid,
                       const ExportOptions& options = {});

}  // namespace quorval
