// Excel 97-2003 workbooks, ".xls".
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/worksheet.h"

namespace quorval {

// The names of the sheets, in order.  Throws a FileError.
std::vector<std::string> XlsSheetNames(const std::filesystem::path& path);

// The first sheet.  Its first row becomes row 0; dates become texts ("2024-02-29", with " 13:45:00"
// where there is a time of day), formulas their stored values.  Throws a FileError for a file that
// is damaged or no such workbook, and for cells beyond the worksheet.
Worksheet ReadXls(const std::filesystem::path& path);

// Numbers at full precision, in number cells with their decimals; texts as UTF-16.  Throws a
// FileError, and writes nothing, for a grid of more than 256 columns.
void WriteXls(const std::filesystem::path& path, const Grid& grid);

}  // namespace quorval
