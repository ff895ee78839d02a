// Excel workbooks as Office Open XML (ECMA-376), ".xlsx".
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/worksheet.h"

namespace quorval {

// Whether the file's content, whatever its name, is such a workbook.
bool IsXlsx(const std::filesystem::path& path);

// The names of the sheets, in order.  Throws a FileError.
std::vector<std::string> XlsxSheetNames(const std::filesystem::path& path);

// The first sheet.  Its first row becomes row 0; dates become texts ("2024-02-29", with " 13:45:00"
// where there is a time of day), formulas their stored values.  Throws a FileError for a file that
// is damaged or no such workbook, and for cells beyond the worksheet.
Worksheet ReadXlsx(const std::filesystem::path& path);

// Numbers with all their digits, in number cells with their decimals.
void WriteXlsx(const std::filesystem::path& path, const Grid& grid);

}  // namespace quorval
