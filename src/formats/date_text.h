// Dates of other programs' sheets: day numbers, told apart from measurements by their format alone.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorval {

enum class DateKind { kNone, kDate, kTime };  // kDate: with the time of day where there is one

// Of a format that is built into the workbook formats, by its number.
DateKind KindOfBuiltInFormat(int number);
// Of a format code such as "0.00", "dd/mm/yyyy" or "[h]:mm".
DateKind KindOfFormatCode(std::string_view code);

enum class DateSystem { k1900, k1904 };  // what day 0 is

// "2024-02-29", "2024-02-29 13:45:00", or of a time "13:45:00".  None of a day number outside the
// years that the system knows, 1900 to 9999.
std::optional<std::string> DateText(double days, DateKind kind, DateSystem system);

}  // namespace quorval
